#include "project/project_commands.h"

#include "app/menu_names.h"
#include "project/frmWEB.h"
#include "resources/ids.h"

namespace project {

void attach(app::Workbench& bench) {
  bench.addCommands({{mnunewWEB,
                      "mnunewWEB",
                      "ახალი პროე&ქტი...",
                      {},
                      [&bench] {
                        frmWEB form(bench);
                        bench.platform().showModal(form);
                      },
                      nullptr,
                      nullptr,
                      "ახალი ვებ-პროექტის შექმნა"}});
  bench.addMenu({app::kFileMenu, {{mnunewWEB, {}, {}}}});
}

}  // namespace project
