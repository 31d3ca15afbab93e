// The commands on lines and paragraphs.
#pragma once

#include <string>

#include "app/workbench.h"
#include "editor/frmxascvla.h"

namespace editor {

class LineCommands {
 public:
  // Adds rows and menu to the workbench, and works on it as long as both live.
  explicit LineCommands(app::Workbench& bench);

 private:
  void mnulinesnaid_Click();
  void mnulinelength_Click();
  void mnuparindent_Click();
  // Asks for a number within the limits; 0 when cancelled or outside, which the user is told.
  int askNumber(const char* prompt, const char* title, int least, int most, int proposal);
  template <class Change>
  void changeLines(Change change);

  app::Workbench& bench_;
  frmxascvla replace_;
  int lineLength_ = 80;  // of the last time
  int indent_ = 3;
};

}  // namespace editor
