#include "program/about.h"

#include "program/frmabout.h"

namespace program {

void attachAbout(app::Workbench& bench) {
  bench.addCommands({{mnuAbout,
                      "mnuAbout",
                      "|55|პროგრამის &შესახებ...",
                      {},
                      [&bench] {
                        frmabout form(bench.platform());
                        bench.platform().showModal(form);
                      },
                      nullptr,
                      nullptr,
                      "პროგრამის ვერსია და შრიფტების ლიცენზია"}});
}

}  // namespace program
