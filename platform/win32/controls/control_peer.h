// The window of one control of a form, tied to the control's model both ways.
#pragma once

#include <memory>

#include "platform/win32/system/windows_api.h"
#include "ui/control.h"

namespace win32 {

class ControlPeer : public ui::Peer {
 public:
  // Tied until detach(), which must come before either goes.
  ControlPeer(ui::Control& model, HWND window);
  virtual void detach();
  ControlPeer(const ControlPeer&) = delete;
  ControlPeer& operator=(const ControlPeer&) = delete;

  HWND window() const { return window_; }
  ui::Control& model() const { return model_; }

  // Shows the whole model; from now on its changes are mirrored. Before that only a wish for the focus is
  // kept.
  void begin();
  bool wantsFocus() const { return wantsFocus_; }
  void refresh(ui::Aspect what) final;

  // What the parent window is told of the control.
  virtual void onCommand(int /*code*/) {}
  virtual LRESULT onNotify(const NMHDR&) { return 0; }
  virtual void dpiChanged(int /*dpi*/) {}
  virtual void placed() {}  // the window has another place or size
  // A message for a window inside the control, before the dialog sees it; true: it is done with.
  virtual bool translate(MSG&) { return false; }
  // A key pressed in the control, before the dialog looks at it; true: used.
  virtual bool onKey(int /*key*/) { return false; }

 protected:
  // Makes ready what must be there before anything is shown.
  virtual void prepare() {}
  virtual void show(ui::Aspect what) = 0;
  // The program, not the user, is changing the window.
  bool mirroring() const { return mirroring_; }
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  void addStyle(LONG_PTR style) const;

 private:
  ui::Control& model_;
  HWND window_;
  bool begun_ = false;
  bool wantsFocus_ = false;
  bool mirroring_ = false;
};

// The peer for the model's kind.
std::unique_ptr<ControlPeer> makePeer(ui::Control& model, HWND window);

// Sent to the parent when a control was shown, hidden or has another text: it may have to be laid out anew.
inline constexpr UINT kLayoutMessage = WM_APP + 1;
// Its first parameter: many will come, and this was the last.
inline constexpr WPARAM kHoldLayout = 1, kReleaseLayout = 2;

std::wstring windowText(HWND window);

}  // namespace win32
