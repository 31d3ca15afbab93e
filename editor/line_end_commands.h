// Line ends of the shown document: the status bar names them, a menu exchanges them.
#pragma once

#include <string_view>
#include <vector>

#include "app/workbench.h"
#include "base/line_ends.h"

namespace editor {

class LineEndCommands {
 public:
  // Adds rows, menu and panel to the workbench, and works on it as long as both live.
  explicit LineEndCommands(app::Workbench& bench);

 private:
  void convertTo(base::LineEnd end);
  // Counts anew when the text has changed, like all that asks for the kinds: not on a key.
  void show();
  const base::LineEndKinds& kinds();
  void showMenu();
  bool all(base::LineEnd end);  // the text has ends, and none of another kind

  app::Workbench& bench_;
  base::LineEndKinds kinds_;
  bool stale_ = true;
};

}  // namespace editor
