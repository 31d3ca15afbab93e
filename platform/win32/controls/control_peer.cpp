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
  if (auto* label = dynamic_cast<ui::Label*>(&model)) return std::make_unique<LabelPeer>(*label, window);
  if (auto* icon = dynamic_cast<ui::IconBox*>(&model)) return std::make_unique<IconPeer>(*icon, window);
  if (auto* button = dynamic_cast<ui::Button*>(&model)) return std::make_unique<ButtonPeer>(*button, window);
  if (auto* check = dynamic_cast<ui::CheckBox*>(&model)) return std::make_unique<CheckPeer>(*check, window);
  if (auto* option = dynamic_cast<ui::OptionButton*>(&model))
    return std::make_unique<OptionPeer>(*option, window);
  if (auto* bar = dynamic_cast<ui::ProgressBar*>(&model)) return std::make_unique<ProgressPeer>(*bar, window);
  if (auto* text = dynamic_cast<ui::TextBox*>(&model)) return std::make_unique<TextPeer>(*text, window);
  if (auto* combo = dynamic_cast<ui::ComboBox*>(&model)) return std::make_unique<ComboPeer>(*combo, window);
  if (auto* list = dynamic_cast<ui::ListBox*>(&model)) return std::make_unique<ListPeer>(*list, window);
  if (auto* list = dynamic_cast<ui::ListView*>(&model)) return std::make_unique<ListViewPeer>(*list, window);
  if (auto* tree = dynamic_cast<ui::TreeView*>(&model)) return std::make_unique<TreePeer>(*tree, window);
  if (auto* bar = dynamic_cast<ui::StatusBar*>(&model)) return std::make_unique<StatusPeer>(*bar, window);
  if (auto* picture = dynamic_cast<ui::PictureBox*>(&model))
    return std::make_unique<PicturePeer>(*picture, window);
  if (auto* strip = dynamic_cast<ui::TabStrip*>(&model))
    return std::make_unique<TabStripPeer>(*strip, window);
  if (auto* tabs = dynamic_cast<ui::PageTabs*>(&model)) return std::make_unique<PageTabsPeer>(*tabs, window);
  if (auto* web = dynamic_cast<ui::WebView*>(&model)) return std::make_unique<WebPeer>(*web, window);
  throw base::Error(base::ErrorNumber::InvalidCall, "control without a window of its kind");
}

std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

}  // namespace win32
