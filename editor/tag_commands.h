// The commands that put tags around or in place of the selection, and the 27 buttons of the tag toolbar.
#pragma once

#include <array>
#include <string>

#include "app/workbench.h"
#include "base/color.h"

namespace editor {

inline constexpr int kToolButtons = 27;

class TagCommands {
 public:
  // Adds rows, menu and toolbar to the workbench, and works on it as long as both live.
  explicit TagCommands(app::Workbench& bench);

  // The command of a button, 0 to 26; anything else does nothing.
  void htmlbarklick(int index);

  // Of the two colour buttons: the colour chosen last, and the one before.
  std::array<base::Color, 2> colors{base::rgb(255, 0, 0), base::rgb(0, 0, 255)};

 private:
  void addCommands();
  void addButtons();
  void showColors();
  void mnutags_Click();
  void mnutagkod_Click();
  void mnuabzac_Click();
  void mnuasos_Click();
  void pickFont();
  void pickColor();
  void wrapInColor(base::Color color);
  void noBreakSpace();

  app::Workbench& bench_;
};

}  // namespace editor
