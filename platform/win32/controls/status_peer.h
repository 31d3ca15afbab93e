// The status bar.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/controls/control_peer.h"
#include "ui/controls.h"

namespace win32 {

class StatusPeer final : public ControlPeer {
 public:
  StatusPeer(ui::StatusBar& model, HWND window) : ControlPeer(model, window), bar_(model) {}
  // Along the bottom of the parent window; divides the panels anew.
  void fit();
  LRESULT onNotify(const NMHDR& notification) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  void showWhole();
  void divide();
  int widthOf(const std::wstring& text) const;  // in pixels

  ui::StatusBar& bar_;
  std::vector<std::wstring> shown_;  // texts in the window
  std::vector<int> widths_;          // of these texts, in pixels
  std::vector<int> ends_;            // of the panels there
};

}  // namespace win32
