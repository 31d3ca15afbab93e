#include "project/project_commands.h"

#include "app/menu_names.h"
#include "project/frmWEB.h"
#include "project/frmupload.h"
#include "resources/ids.h"

namespace project {

namespace {

// The connection outlives the dialog: it may be kept open for the next run.
struct Uploading {
  explicit Uploading(app::Workbench& bench) : ftp(bench.platform().makeFtp()) {
    if (ftp) form = std::make_unique<frmupload>(bench, *ftp);
  }
  std::unique_ptr<ui::Ftp> ftp;
  std::unique_ptr<frmupload> form;
};

}  // namespace

void attach(app::Workbench& bench) {
  const auto uploading = std::make_shared<std::unique_ptr<Uploading>>();
  bench.addCommands({{mnuupload,
                      "mnuupload",
                      "|38|გადატა&ნა სერვერზე (FTP)...",
                      {},
                      [&bench, uploading] {
                        if (!*uploading) *uploading = std::make_unique<Uploading>(bench);
                        if ((*uploading)->form) bench.platform().showModal(*(*uploading)->form);
                      },
                      nullptr,
                      nullptr,
                      "ფაილების გადატანა FTP სერვერზე"}});
  bench.addCommands({{mnunewWEB,
                      "mnunewWEB",
                      "|29|ახალი პროე&ქტი...",
                      {},
                      [&bench] {
                        frmWEB form(bench);
                        bench.platform().showModal(form);
                      },
                      nullptr,
                      nullptr,
                      "ახალი ვებ-პროექტის შექმნა"}});
  bench.addMenu({app::kFileMenu, {{mnunewWEB, {}, {}}, {mnuupload, {}, {}}}});
}

}  // namespace project
