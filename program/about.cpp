#include "program/about.h"

#include "app/menus.h"
#include "program/frmabout.h"

namespace program {

void attachAbout(app::Workbench& bench) {
  bench.addCommands({{.id = mnuAbout,
                      .icon = ui::MenuIcon::About,
                      .caption = "პროგრამის &შესახებ...",
                      .place = {&app::kHelpMenu, 1},
                      .run =
                          [&bench] {
                            frmabout form(bench.platform());
                            bench.platform().showModal(form);
                          },
                      .help = "პროგრამის ვერსია და შრიფტების ლიცენზია"}});
}

}  // namespace program
