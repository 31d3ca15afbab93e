// The commands that insert a table or a colour, and their two buttons of the tag toolbar.
#pragma once

#include "app/workbench.h"
#include "generators/frmTabColor.h"

namespace generators {

class TableColorCommands {
 public:
  // Adds rows and the menu to the workbench, and works on it as long as both live.
  explicit TableColorCommands(app::Workbench& bench);

 private:
  void mnuTable_Click();
  void mnuTabColor_Click();

  app::Workbench& bench_;
  frmTabColor::Choice choice_;
};

}  // namespace generators
