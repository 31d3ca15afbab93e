#include "project/project_commands.h"

#include "app/menus.h"
#include "project/frmWEB.h"
#include "project/frmpublish.h"
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

void attach(app::Workbench& bench, const publish::MakeTransport& connect) {
  const auto publishing = std::make_shared<std::unique_ptr<frmpublish>>();
  const auto uploading = std::make_shared<std::unique_ptr<Uploading>>();
  bench.addCommands(
      {{.id = mnunewWEB,
        .icon = ui::MenuIcon::NewProject,
        .caption = "ახალი პროე&ქტი...",
        .place = {&app::kFileMenu, 4},
        .run =
            [&bench] {
              frmWEB form(bench);
              bench.platform().showModal(form);
            },
        .help = "ახალი ვებ-პროექტის შექმნა"},
       {.id = mnuupload,
        .icon = ui::MenuIcon::Upload,
        .caption = "გადატა&ნა სერვერზე (FTP)...",
        .place = {&app::kFileMenu, 4},
        .run =
            [&bench, uploading] {
              if (!*uploading) *uploading = std::make_unique<Uploading>(bench);
              if ((*uploading)->form) bench.platform().showModal(*(*uploading)->form);
            },
        .help = "ფაილების გადატანა FTP სერვერზე"},
       {.id = mnupublish,
        .icon = ui::MenuIcon::Upload,
        .caption = "საიტის გამოქვე&ყნება (SFTP, FTPS)...",
        .place = {&app::kFileMenu, 4},
        .run =
            [&bench, publishing, connect] {
              if (!*publishing) *publishing = std::make_unique<frmpublish>(bench, connect);
              bench.platform().showModal(**publishing);
              if (const std::string page = (*publishing)->takeWanted(); !page.empty()) bench.ofnen(page);
            },
        .help = "საქაღალდის ან პროექტის შეცვლილი ფაილების გაგზავნა SFTP-ით, FTPS-ით ან FTP-ით"}});
}

}  // namespace project
