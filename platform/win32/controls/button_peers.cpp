#include "platform/win32/controls/button_peers.h"

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/strings.h"
#include "resources/ids.h"
#include "ui/mnemonics.h"

namespace win32 {
namespace {

constexpr int kProgramSize = 48;  // of the program's picture, in 1/96 inch

}  // namespace

void CaptionPeer::show(ui::Aspect what) {
  if (what != ui::Aspect::Text) return;
  const std::string caption = ui::withMnemonic(ui::display(model().caption()), mnemonic_);
  SetWindowTextW(window(), wideFromUtf8(caption).c_str());
  SendMessageW(GetParent(window()), kLayoutMessage, 0, 0);
}

void CaptionPeer::setMnemonic(char32_t letter) {
  if (letter == mnemonic_) return;
  mnemonic_ = letter;
  show(ui::Aspect::Text);
}

void IconPeer::prepare() {
  const wchar_t* name = nullptr;
  switch (icon_.sign) {
    case ui::IconBox::Sign::Information:
      name = IDI_INFORMATION;
      break;
    case ui::IconBox::Sign::Question:
      name = IDI_QUESTION;
      break;
    case ui::IconBox::Sign::Warning:
      name = IDI_WARNING;
      break;
    case ui::IconBox::Sign::Critical:
      name = IDI_ERROR;
      break;
    case ui::IconBox::Sign::Program:
      showProgram();
      return;
    case ui::IconBox::Sign::None:
      return;
  }
  send(STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, name)));  // shared: not to be destroyed
}

void IconPeer::showProgram() {
  const int size = scaled(kProgramSize, dpiOf(window()));
  own_.reset(static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_Zervo), IMAGE_ICON, size, size, 0)));
  send(STM_SETICON, reinterpret_cast<WPARAM>(own_.get()));
}

void ButtonPeer::onCommand(int code) {
  if (code == BN_CLICKED) button_.click();
}

LRESULT ButtonPeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE:
      if (!pointerInside_) {
        pointerInside_ = true;
        TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, window, 0};
        TrackMouseEvent(&leave);
        button_.pointed(true);
      }
      break;
    case WM_MOUSELEAVE:
      pointerInside_ = false;
      button_.pointed(false);
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      button_.pointed(message == WM_SETFOCUS);
      break;
    default:
      break;
  }
  return forward(window, message, wParam, lParam);
}

void CheckPeer::onCommand(int code) {
  if (code != BN_CLICKED) return;
  const bool wasGreyed = check_.greyed();
  check_.setGreyed(false);
  check_.userSet(wasGreyed ? !check_.checked() : send(BM_GETCHECK) == BST_CHECKED);
}

void CheckPeer::show(ui::Aspect what) {
  CaptionPeer::show(what);
  if (what != ui::Aspect::Value) return;
  // Grey comes and goes by the program alone: with a style in which the control does not change itself.
  const WPARAM type = check_.greyed() ? BS_3STATE : BS_AUTOCHECKBOX;
  if ((GetWindowLongPtrW(window(), GWL_STYLE) & BS_TYPEMASK) != static_cast<LONG_PTR>(type)) {
    send(BM_SETSTYLE, type, TRUE);
  }
  send(BM_SETCHECK, check_.greyed() ? BST_INDETERMINATE : check_.checked() ? BST_CHECKED : BST_UNCHECKED);
}

void OptionPeer::onCommand(int code) {
  if (code == BN_CLICKED) option_.userChoose();
}

void OptionPeer::show(ui::Aspect what) {
  CaptionPeer::show(what);
  if (what == ui::Aspect::Value) send(BM_SETCHECK, option_.chosen() ? BST_CHECKED : BST_UNCHECKED);
}

}  // namespace win32
