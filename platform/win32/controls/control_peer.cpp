#include "platform/win32/controls/control_peer.h"

#include "base/error.h"
#include "platform/win32/controls/accessible_name.h"
#include "platform/win32/controls/button_peers.h"
#include "platform/win32/controls/list_peers.h"
#include "platform/win32/controls/list_view_peer.h"
#include "platform/win32/controls/page_tabs_peer.h"
#include "platform/win32/controls/picture_peer.h"
#include "platform/win32/controls/status_peer.h"
#include "platform/win32/controls/tab_strip_peer.h"
#include "platform/win32/controls/text_peer.h"
#include "platform/win32/controls/tree_peer.h"
#include "platform/win32/controls/web_peer.h"
#include "platform/win32/system/strings.h"

namespace win32 {

ControlPeer::ControlPeer(ui::Control& model, HWND window) : model_(model), window_(window) {
  model_.attach(this);
}

void ControlPeer::detach() {
  begun_ = false;
  model_.attach(nullptr);
}

void ControlPeer::addStyle(LONG_PTR style) const {
  SetWindowLongPtrW(window_, GWL_STYLE, GetWindowLongPtrW(window_, GWL_STYLE) | style);
}

void ControlPeer::begin() {
  if (model_.caption().empty() && !model_.hint.empty() && !hasLabel(window_)) {
    setAccessibleName(window_, wideFromText(model_.hint));
  }
  prepare();
  begun_ = true;
  for (const ui::Aspect what : {ui::Aspect::Items, ui::Aspect::Text, ui::Aspect::Value, ui::Aspect::Selection,
                                ui::Aspect::Enabled, ui::Aspect::Visible}) {
    refresh(what);
  }
}

void ControlPeer::refresh(ui::Aspect what) {
  if (!begun_) {
    wantsFocus_ = wantsFocus_ || what == ui::Aspect::Focus;
    return;
  }
  const bool outer = mirroring_;
  mirroring_ = true;
  switch (what) {
    case ui::Aspect::Enabled:
      // The keyboard must not stay in a disabled control.
      if (!model_.enabled() && GetFocus() == window_) {
        SendMessageW(GetParent(window_), WM_NEXTDLGCTL, 0, FALSE);
      }
      EnableWindow(window_, model_.enabled() ? TRUE : FALSE);
      break;
    case ui::Aspect::Visible:
      ShowWindow(window_, model_.visible() ? SW_SHOWNA : SW_HIDE);
      SendMessageW(GetParent(window_), kLayoutMessage, 0, 0);
      break;
    case ui::Aspect::Focus:
      SendMessageW(GetParent(window_), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window_), TRUE);
      break;
    default:
      show(what);
      break;
  }
  mirroring_ = outer;
}

std::unique_ptr<ControlPeer> makePeer(ui::Control& model, HWND window) {
  const auto make = [&]<class Peer, class Model>() -> std::unique_ptr<ControlPeer> {
    return std::make_unique<Peer>(static_cast<Model&>(model), window);
  };
  using enum ui::ControlKind;
  switch (model.kind()) {
    case Label:
      return make.operator()<LabelPeer, ui::Label>();
    case IconBox:
      return make.operator()<IconPeer, ui::IconBox>();
    case Button:
      return make.operator()<ButtonPeer, ui::Button>();
    case CheckBox:
      return make.operator()<CheckPeer, ui::CheckBox>();
    case OptionButton:
      return make.operator()<OptionPeer, ui::OptionButton>();
    case TextBox:
      return make.operator()<TextPeer, ui::TextBox>();
    case ProgressBar:
      return make.operator()<ProgressPeer, ui::ProgressBar>();
    case ListBox:
      return make.operator()<ListPeer, ui::ListBox>();
    case ComboBox:
      return make.operator()<ComboPeer, ui::ComboBox>();
    case ListView:
      return make.operator()<ListViewPeer, ui::ListView>();
    case TreeView:
      return make.operator()<TreePeer, ui::TreeView>();
    case StatusBar:
      return make.operator()<StatusPeer, ui::StatusBar>();
    case PictureBox:
      return make.operator()<PicturePeer, ui::PictureBox>();
    case TabStrip:
      return make.operator()<TabStripPeer, ui::TabStrip>();
    case PageTabs:
      return make.operator()<PageTabsPeer, ui::PageTabs>();
    case WebView:
      return make.operator()<WebPeer, ui::WebView>();
  }
  throw base::Error(base::ErrorNumber::InvalidCall, "control without a window of its kind");
}

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace win32
