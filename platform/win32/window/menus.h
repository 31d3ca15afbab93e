// Menus whose lines the program draws: with icons, and in a font that has Georgian letters.
#pragma once

#include <deque>
#include <vector>

#include "platform/win32/system/handles.h"
#include "platform/win32/window/menu_drawing.h"
#include "ui/menu.h"

namespace win32 {

class Menu {
 public:
  enum class Kind { Bar, PopUp };
  Menu(const std::vector<ui::MenuItem>& items, Kind kind);
  HMENU handle() const { return menu_.get(); }
  // Takes over enabled and checked of the items it was made of.
  void refresh(const std::vector<ui::MenuItem>& items) { refreshItems(menu_.get(), items); }
  // For a bar that a window shows and destroys.
  HMENU release() { return menu_.release(); }

 private:
  void add(HMENU menu, const std::vector<ui::MenuItem>& items, bool bar);
  static void refreshItems(HMENU menu, const std::vector<ui::MenuItem>& items);
  UniqueMenu menu_;
  std::deque<MenuRow> rows_;  // the menu points at them
};

// For WM_MEASUREITEM and WM_DRAWITEM of a window with such menus: true when it was about a menu.
bool drawsMenu(HWND window, UINT message, LPARAM lParam);
// For WM_MENUCHAR.
LRESULT menuCharacter(HMENU menu, wchar_t character);
// For WM_MENUSELECT: the help of the item; empty: none, or no menu is open any more.
ui::Text menuHelp(WPARAM wParam, LPARAM lParam);

// The item with this shortcut, searched in submenus too; 0: none.
int commandOfShortcut(const std::vector<ui::MenuItem>& items, const ui::Shortcut& pressed,
                      bool inText = false);
// The items with these command ids, in that order (0: a separator); unknown ids are left out.
std::vector<ui::MenuItem> pickItems(const std::vector<ui::MenuItem>& items, const std::vector<int>& ids);

// Shows a pop-up menu at a place on the screen; the chosen command, 0: none.
int showPopup(HWND owner, const std::vector<ui::MenuItem>& items, POINT screen);

}  // namespace win32
