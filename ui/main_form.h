// What a main window has besides a form's controls: menus, the code view, a place on the screen.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/code_view.h"
#include "ui/controls.h"
#include "ui/form.h"
#include "ui/menu.h"
#include "ui/tool_bar.h"

namespace ui {

enum class WindowState { Normal, Maximized };

struct WindowPlace {  // of the restored window, in pixels of the virtual screen
  int left;
  int top;
  int width = 0;  // 0: as it is
  int height = 0;
};

// How wide the user has made the panes beside the code view, in 1/96 inch; what is too little or too much for
// the window is shown narrower or wider.
struct PaneWidths {
  int left = 240;
  int right = 190;
};

// The window behind a main form.
class MainPeer {
 public:
  virtual ~MainPeer() = default;
  virtual void show() = 0;
  virtual void setState(WindowState state) = 0;
  virtual WindowPlace place() const = 0;
  virtual void setPlace(WindowPlace place) = 0;  // moved into the nearest screen when outside all
  virtual PaneWidths paneWidths() const = 0;
  virtual void setPaneWidths(PaneWidths widths) = 0;
  virtual void nextPane() = 0;  // the keyboard goes on to the next pane, from the last one to the code view
  virtual void toolBarChanged() = 0;  // colours of its buttons
  virtual void toolBarStates() = 0;   // which of them are enabled
  virtual void menusChanged() = 0;    // rows, not states: states are asked before they show
};

class MainForm : public Form {
 public:
  MainForm(const char* name, int id, CodeView& codeView) : Form(name, id), T1(codeView) {}

  CodeView& T1;  // not owned

  // Where its controls stand around the code view; a hidden one leaves its room to the others. Null: none.
  Control* leftPane = nullptr;
  Control* above = nullptr;      // as high as it wants to be
  Control* rightTabs = nullptr;  // above the right pane, hidden and shown with it
  Control* rightPane = nullptr;
  // A line of news above the code view with its buttons, from left to right; shown while `notice` is visible.
  // Null: there is never one.
  Label* notice = nullptr;
  std::vector<Button*> noticeButtons;

  // Menu bar; each top item has items. Enabled and checked are brought up to date by menuOpening().
  std::vector<MenuItem> menus;
  virtual void menuOpening() = 0;
  // Buttons from left to right; none: no bar. Set before the window is made.
  std::vector<ToolBarButton> toolBar;
  // A menu item, shortcut or posted command; ignored when it is unknown or disabled.
  virtual void command(int id) = 0;
  // The menu item under the pointer or the keyboard's mark changed: its help. Empty: none, or no menu any
  // more.
  virtual void menuHighlighted(const Text& help) = 0;
  virtual void filesDropped(const std::vector<std::string>& paths) = 0;
  // Bytes of the code view on their way to another window, with the letters that the user sees.
  virtual TextClip clipFor(std::string bytes) { return {bytes, std::move(bytes)}; }
  // No event is waiting: time for what need not happen on every keystroke.
  virtual void idle() = 0;
  // The user has done nothing for half a second, once after each time that they did.
  virtual void pause() = 0;
  // A small piece of work that can wait, while no event is waiting: after how many milliseconds there is more
  // to do, -1: when something has happened.
  virtual int background() = 0;
  // Another theme, or other colours of the system.
  virtual void systemColoursChanged() = 0;

  // Set by the platform while the window is there; not owned.
  MainPeer* window = nullptr;
};

}  // namespace ui
