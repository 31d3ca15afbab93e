#include "options/options.h"

#include "app/menu_names.h"
#include "options/frmproperties.h"
#include "resources/ids.h"

namespace options {

void attachOptions(app::Workbench& bench) {
  const auto show = [&bench] {
    frmproperties form(bench);
    bench.platform().showModal(form);
    bench.codeView().setFocus();
  };
  std::vector<app::Command> rows(1);
  rows[0].id = mnuproperties;
  rows[0].name = "mnuproperties";
  rows[0].caption = "|53|&პარამეტრები...";
  rows[0].run = show;
  rows[0].help = "პროგრამის პარამეტრები";
  bench.addCommands(std::move(rows));
  bench.addMenu({app::kViewMenu, {{0, {}, {}}, {mnuproperties, {}, {}}}});
}

}  // namespace options
