#include "site/attach.h"

#include "app/menus.h"
#include "resources/ids.h"

namespace site {

std::unique_ptr<frmsite> attach(app::Workbench& bench) {
  auto window = std::make_unique<frmsite>(bench);
  bench.addCommands({{.id = mnusite,
                      .icon = ui::MenuIcon::Folder,
                      .caption = "მთელი საიტის ასოების გადაყვანა...",
                      .place = {&app::kFileMenu, 4},
                      .run = [&bench, form = window.get()] { bench.platform().showModal(*form); },
                      .help = "საქაღალდის ან პროექტის ყველა გვერდის ასოები ერთად: ჯერ ჩანს, რა შეიცვლება, და "
                              "ძველი ფაილები ბრუნდება"}});
  return window;
}

}  // namespace site
