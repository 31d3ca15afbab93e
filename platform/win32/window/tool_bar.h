// The strip of buttons under the menu bar.
#pragma once

#include <functional>
#include <vector>

#include "platform/win32/controls/subclass.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/system/windows_api.h"
#include "ui/menu.h"
#include "ui/tool_bar.h"

namespace win32 {

// Its buttons send WM_COMMAND with their command. They stand in one row; for those that have no room a
// chevron comes at its end, which sends mnuToolMore. With the keyboard: arrows, Home and End go from button
// to button, Enter and the space bar press it, Esc leaves.
class ToolBar final : private Subclass<ToolBar> {
 public:
  // A child of `parent`, whose density is `dpi`; `leave` gives the focus back. `buttons` outlive the bar.
  ToolBar(HWND parent, const std::vector<ui::ToolBarButton>& buttons, int dpi, std::function<void()> leave);
  ~ToolBar();

  HWND hwnd() const { return bar_; }
  void setDpi(int dpi);
  void fit();               // after the parent's size changed
  void showStates() const;  // after `enabled` of buttons changed
  // What has no room, as items of a menu: those of `menus` with the same commands, where there are such.
  std::vector<ui::MenuItem> hiddenItems(const std::vector<ui::MenuItem>& menus) const;
  POINT belowChevron() const;  // on the screen
  void focus();
  // For WM_NOTIFY of the parent: true when the bar asked for a tool tip and got it.
  bool giveHint(LPARAM notification) const;

 private:
  friend class Subclass<ToolBar>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool handleKey(int key);
  std::size_t roomFor(int width) const;
  std::vector<int> stops() const;
  void goTo(std::size_t stop) const;
  void addButtons();
  int chevron() const { return static_cast<int>(buttons_.size()); }
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(bar_, message, wParam, lParam);
  }

  const std::vector<ui::ToolBarButton>& buttons_;
  std::size_t shown_;  // this many of them from the left; less than all: and the chevron
  int gap_ = 0;        // width between groups
  std::function<void()> leave_;
  HWND bar_ = nullptr;
  UniqueImages pictures_;
};

}  // namespace win32
