// A command of the main window: one row for menu, toolbar, shortcut and tests.
#pragma once

#include <functional>
#include <vector>

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

struct Command {
  int id;
  const char* name;  // as in resources/ids.h
  ui::Text caption;  // as stored, with its "|n|" prefix
  ui::Shortcut shortcut;
  std::function<void()> run;
  CommandRule enabled = nullptr;            // none: always
  std::function<bool()> checked = nullptr;  // none: never
  ui::Text help = {};
  std::function<ui::Text()> text = nullptr;  // a caption that changes; empty: the item is left out
  bool radio = false;                        // one of a group of which one is checked
  bool ownKey = false;                       // see ui::MenuItem
};

// Where rows stand in the menu bar: a top menu, and in it a list of ids (0: a separator) or submenus.
struct MenuPlan {
  struct Line {
    int command = 0;
    ui::Text submenu;  // caption of a submenu, then `lines` are its rows
    std::vector<int> lines;
    ui::Text help = {};                                  // of the submenu; a command has its own
    std::function<std::vector<int>()> listed = nullptr;  // rows of a submenu that come and go, behind `lines`
  };
  ui::Text caption;
  std::vector<Line> lines;
};

}  // namespace app
