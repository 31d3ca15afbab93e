// List boxes and drop-down lists.
#pragma once

#include "platform/win32/control_peer.h"
#include "ui/controls.h"

namespace win32 {

class ListPeer final : public ControlPeer {
 public:
  ListPeer(ui::ListBox& model, HWND window) : ControlPeer(model, window), list_(model) {}
  void onCommand(int code) override;

 protected:
  void show(ui::Aspect what) override;

 private:
  ui::ListBox& list_;
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
