#include "platform/win32/controls/tab_strip_peer.h"

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/drag.h"

namespace win32 {
namespace {

// To the strip itself: the user did something with tabs. Posted, because what follows may take the tabs away,
// which the control does not stand while it tells of it. lParam: the tab, and for a move where to.
constexpr UINT kDoneMessage = WM_APP + 5;
enum Done : WPARAM { kChosen, kCloseAsked, kMoved };

// A "&" of a name is that, and no mnemonic.
std::wstring literal(std::wstring text) {
  for (std::size_t at = 0; (at = text.find(L'&', at)) != std::wstring::npos; at += 2)
    text.insert(at, 1, L'&');
  return text;
}

// Around a tab's text, in 1/96 inch; less where all tabs are to be seen at once.
constexpr SIZE kPadding = {8, 4};
constexpr SIZE kNarrowPadding = {4, 4};

}  // namespace

TabStripPeer::TabStripPeer(ui::TabStrip& model, HWND window) : WatchedPeer(model, window), strip_(model) {
  dpiChanged(dpiOf(window));
  const auto tips = reinterpret_cast<HWND>(send(TCM_GETTOOLTIPS));
  if (tips != nullptr) SetWindowLongPtrW(tips, GWL_STYLE, GetWindowLongPtrW(tips, GWL_STYLE) | TTS_NOPREFIX);
}

void TabStripPeer::dpiChanged(int dpi) {
  const SIZE padding = severalRows() ? kNarrowPadding : kPadding;
  send(TCM_SETPADDING, 0, MAKELPARAM(scaled(padding.cx, dpi), scaled(padding.cy, dpi)));
}

int TabStripPeer::heightFor(int width) const {
  RECT pages{0, 0, width, 1000};
  if (severalRows()) {
    // How many rows there are shows only at that width.
    SetWindowPos(window(), nullptr, 0, 0, width, 1000,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
  }
  send(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&pages));
  return pages.top;
}

void TabStripPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Items) {
    showTabs();
  } else if (what == ui::Aspect::Selection) {
    send(TCM_SETCURSEL, static_cast<WPARAM>(strip_.selected()));
  }
}

// Only what has changed: one mark must not make a hundred tabs flicker.
void TabStripPeer::showTabs() {
  const std::size_t count = strip_.tabs().size();
  for (; shown_.size() > count; shown_.pop_back()) send(TCM_DELETEITEM, shown_.size() - 1);
  for (std::size_t i = 0; i < count; ++i) {
    std::wstring text = literal(wideFromText(strip_.tabs()[i].text));
    if (i < shown_.size() && shown_[i] == text) continue;
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    if (i < shown_.size()) {
      send(TCM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
      shown_[i] = std::move(text);
    } else {
      send(TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
      shown_.push_back(std::move(text));
    }
  }
  pressed_ = closing_ = -1;
  InvalidateRect(window(), nullptr, TRUE);  // tabs that moved leave their edges behind
}

LRESULT TabStripPeer::onNotify(const NMHDR& header) {
  if (header.code == TCN_SELCHANGE && !mirroring()) {
    PostMessageW(window(), kDoneMessage, kChosen, MAKELPARAM(send(TCM_GETCURSEL), 0));
  }
  return 0;
}

int TabStripPeer::tabAt(POINT point) const {
  TCHITTESTINFO hit{point, 0};
  return static_cast<int>(send(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

bool TabStripPeer::giveHint(LPARAM notification) {
  auto& info = *reinterpret_cast<NMTTDISPINFOW*>(notification);
  const std::size_t tab = info.hdr.idFrom;
  if (info.hdr.code != TTN_GETDISPINFOW || tab >= strip_.tabs().size()) return false;
  hint_ = wideFromText(strip_.tabs()[tab].hint);
  info.lpszText = hint_.data();
  return true;
}

void TabStripPeer::follow(POINT point) {
  if (pressed_ < 0 || (!dragging_ && !beyondClick(pressedAt_, point))) return;
  if (!dragging_) SetCapture(window());
  dragging_ = true;
  SetCursor(LoadCursorW(nullptr, tabAt(point) >= 0 ? IDC_SIZEWE : IDC_NO));
}

void TabStripPeer::release(POINT point) {
  const bool dragged = dragging_;
  const int from = pressed_;
  const int to = tabAt(point);
  if (dragged) ReleaseCapture();
  if (dragged && to >= 0) PostMessageW(window(), kDoneMessage, kMoved, MAKELPARAM(from, to));
}

LRESULT TabStripPeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN:
      pressed_ = strip_.movable ? tabAt(point) : -1;
      pressedAt_ = point;
      break;
    case WM_MOUSEMOVE:
      if ((wParam & MK_LBUTTON) != 0) follow(point);
      break;
    case WM_LBUTTONUP:
      release(point);
      pressed_ = -1;
      break;
    case WM_CAPTURECHANGED:
      dragging_ = false;
      pressed_ = -1;
      break;
    case WM_MBUTTONDOWN:
      closing_ = tabAt(point);
      return 0;
    case WM_MBUTTONUP:
      if (closing_ >= 0 && closing_ == tabAt(point)) {
        PostMessageW(window, kDoneMessage, kCloseAsked, MAKELPARAM(closing_, 0));
      }
      closing_ = -1;
      return 0;
    case WM_NOTIFY:
      if (giveHint(lParam)) return 0;
      break;
    case kDoneMessage: {
      const int tab = LOWORD(lParam);
      if (wParam == kChosen) strip_.userSelect(tab);
      if (wParam == kCloseAsked) strip_.userClose(tab);
      if (wParam == kMoved) strip_.userMove(tab, HIWORD(lParam));
      return 0;
    }
    default:
      break;
  }
  return forward(window, message, wParam, lParam);
}

}  // namespace win32
