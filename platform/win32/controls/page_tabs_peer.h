// The tabs above the pages of a dialog.
#pragma once

#include "platform/win32/controls/control_peer.h"
#include "ui/page_tabs.h"

namespace win32 {

class PageTabsPeer final : public ControlPeer {
 public:
  PageTabsPeer(ui::PageTabs& model, HWND window) : ControlPeer(model, window), tabs_(model) {}
  LRESULT onNotify(const NMHDR& header) override;

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  ui::PageTabs& tabs_;
};

}  // namespace win32
