// The coloured look of the page in the code view: on with F12, off before the next key acts.
#pragma once

#include "app/workbench.h"

namespace editor {

class Colouring {
 public:
  // Listens to the workbench's keys and texts; both live as long as it does.
  explicit Colouring(app::Workbench& bench);

  bool coloured = false;  // the code view shows the coloured form
  bool busy = false;      // the looks are being exchanged

  // Text, selection, place, undo history and changed mark stay as they are.
  void ToggleColouring();

 private:
  void T1_KeyDown(int key);
  void T1_KeyUp(int key);
  void T1_Change();

  app::Workbench& bench_;
};

}  // namespace editor
