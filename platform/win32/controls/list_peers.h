// List boxes and drop-down lists.
#pragma once

#include "platform/win32/controls/watched_peer.h"
#include "ui/controls.h"

namespace win32 {

class ListPeer final : public WatchedPeer<ListPeer> {
 public:
  ListPeer(ui::ListBox& model, HWND window) : WatchedPeer(model, window), list_(model) {}
  void onCommand(int code) override;
  bool onKey(int key) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  friend class Subclass<ListPeer>;
  LRESULT handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void dragRow();

  ui::ListBox& list_;
  int pressed_ = -1;  // the row on which the button went down
  POINT pressedAt_{};
};

class ComboPeer final : public ControlPeer {
 public:
  ComboPeer(ui::ComboBox& model, HWND window) : ControlPeer(model, window), combo_(model) {}
  void onCommand(int code) override;

 protected:
  void prepare() override;
  void show(ui::Aspect what) override;

 private:
  ui::ComboBox& combo_;
};

}  // namespace win32
