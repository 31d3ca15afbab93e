// A command of the main window: one row for menu, tool bar, shortcut and tests.
#pragma once

#include <functional>
#include <vector>

#include "ui/icons/menu_icons.h"
#include "ui/menu.h"

namespace app {

// What a rule of a command may look at. Small and cheap: asked each time a menu opens or a shortcut is
// pressed.
struct CommandState {
  bool hasText = false;
  bool hasSelection = false;
  bool canUndo = false;
  bool canRedo = false;
  bool canPaste = false;
  bool changed = false;    // the shown document has unsaved changes
  bool untitled = false;   // the shown document has no file
  bool webOpened = false;  // a web project is open
  bool inProject = false;  // the shown document belongs to it
  int documents = 0;       // records in the list
};

using CommandRule = std::function<bool(const CommandState&)>;

inline bool hasText(const CommandState& state) {
  return state.hasText;
}
inline bool hasSelection(const CommandState& state) {
  return state.hasSelection;
}

struct Menu;

// Where a row is shown: groups have separators between them. Rows of the same group and position come in the
// order in which they were added.
struct MenuPlace {
  const Menu* menu = nullptr;  // none: no menu shows the row
  int group = 0;
  int position = 0;
};

// A menu of the bar, or one inside another. It is there when a row names it; address it by reference.
struct Menu {
  ui::Text caption;
  ui::MenuIcon icon = ui::MenuIcon::None;
  ui::Text help = {};    // one sentence for the status bar
  MenuPlace place = {};  // no menu: the bar, where `group` is the order
};

struct Command {
  int id = 0;  // see resources/ids.h
  ui::MenuIcon icon = ui::MenuIcon::None;
  ui::Text caption = {};
  MenuPlace place = {};
  ui::Shortcut shortcut = {};
  std::function<void()> run = nullptr;
  CommandRule enabled = nullptr;             // none: always
  std::function<bool()> checked = nullptr;   // none: never
  bool radio = false;                        // one of a group of which one is checked
  bool ownKey = false;                       // see ui::MenuItem
  std::function<ui::Text()> text = nullptr;  // a caption that changes; empty: the item is left out
  ui::Text help = {};                        // one sentence for the status bar
};

// The item that shows a row; its state is asked for when the menu opens.
ui::MenuItem menuItem(const Command& row);

// The menu bar of all rows, in the order in which they were added. A row with an empty caption is left out.
std::vector<ui::MenuItem> menuBar(const std::vector<const Command*>& rows);

}  // namespace app
