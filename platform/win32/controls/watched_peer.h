// A peer that sees the messages of its control before the control does.
#pragma once

#include "platform/win32/controls/control_peer.h"
#include "platform/win32/controls/subclass.h"

namespace win32 {

// Derived: as for Subclass. The watch lasts from the peer's making to detach().
template <class Derived, class Base = ControlPeer>
class WatchedPeer : public Base, protected Subclass<Derived> {
 public:
  template <class Model>
  WatchedPeer(Model& model, HWND window) : Base(model, window) {
    this->watch(window);
  }
  void detach() override {
    this->unwatch(this->window());
    Base::detach();
  }
};

}  // namespace win32
