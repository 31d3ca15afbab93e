// Strips of tabs.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/controls/watched_peer.h"
#include "ui/tab_strip.h"

namespace win32 {

class TabStripPeer final : public WatchedPeer<TabStripPeer> {
 public:
  TabStripPeer(ui::TabStrip& model, HWND window);
  LRESULT onNotify(const NMHDR& header) override;
  void dpiChanged(int dpi) override;
  // What the tabs need when they are `width` wide, in pixels.
  int heightFor(int width) const;

 protected:
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<TabStripPeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool severalRows() const { return (GetWindowLongPtrW(window(), GWL_STYLE) & TCS_MULTILINE) != 0; }
  bool giveHint(LPARAM notification);
  void showTabs();
  int tabAt(POINT point) const;  // -1: none
  void follow(POINT point);      // the pointer, while the button is down
  void release(POINT point);

  ui::TabStrip& strip_;
  std::vector<std::wstring> shown_;  // texts in the window
  std::wstring hint_;                // of the tool tip that is shown
  int pressed_ = -1;                 // the tab on which the button went down
  int closing_ = -1;                 // the same for the middle button
  POINT pressedAt_{};
  bool dragging_ = false;
};

}  // namespace win32
