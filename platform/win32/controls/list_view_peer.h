// Lists with columns, and with check boxes.
#pragma once

#include "platform/win32/controls/control_peer.h"
#include "platform/win32/system/handles.h"
#include "ui/controls.h"

namespace win32 {

class ListViewPeer final : public ControlPeer {
 public:
  ListViewPeer(ui::ListView& model, HWND window) : ControlPeer(model, window), list_(model) {}
  LRESULT onNotify(const NMHDR& header) override;
  bool onKey(int key) override;
  void placed() override;
  void dpiChanged(int) override { bold_.reset(); }

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  void showItems();
  void showChecks();
  void showSorting();
  void itemChanged(const NMLISTVIEW& change);
  LRESULT customDraw(NMLVCUSTOMDRAW& drawing);
  ui::ListView& list_;
  UniqueFont bold_;    // of headings
  int lastWidth_ = 0;  // of the last column, as it was at first
};

}  // namespace win32
