#include "options/options.h"

#include "app/menus.h"
#include "options/frmproperties.h"
#include "resources/ids.h"

namespace options {

void attachOptions(app::Workbench& bench) {
  bench.addCommands({{.id = mnuproperties,
                      .icon = ui::MenuIcon::Options,
                      .caption = "&პარამეტრები...",
                      .place = {&app::kViewMenu, 7},
                      .run =
                          [&bench] {
                            frmproperties form(bench);
                            bench.platform().showModal(form);
                            bench.codeView().setFocus();
                          },
                      .help = "პროგრამის პარამეტრები"}});
}

}  // namespace options
