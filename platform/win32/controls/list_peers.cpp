#include "platform/win32/controls/list_peers.h"

#include <utility>

#include "platform/win32/controls/pressed_key.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/drag.h"

namespace win32 {

bool ListPeer::onKey(int key) {
  return list_.keyPressed && list_.keyPressed(pressedKey(static_cast<WPARAM>(key)));
}

LRESULT ListPeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN: {
      const LRESULT row = send(LB_ITEMFROMPOINT, 0, lParam);
      pressed_ = list_.draggable && HIWORD(row) == 0 && LOWORD(row) < list_.items().size() ? LOWORD(row) : -1;
      pressedAt_ = point;
      break;
    }
    case WM_MOUSEMOVE:
      // The list itself would go on choosing rows while the button is down.
      if (pressed_ < 0 || (wParam & MK_LBUTTON) == 0) break;
      if (beyondClick(pressedAt_, point)) dragRow();
      return 0;
    case WM_LBUTTONUP:
      pressed_ = -1;
      break;
    default:
      break;
  }
  return forward(window, message, wParam, lParam);
}

void ListPeer::dragRow() {
  const int row = std::exchange(pressed_, -1);
  // The list's own click ends where it began.
  forward(window(), WM_LBUTTONUP, 0, MAKELPARAM(pressedAt_.x, pressedAt_.y));
  if (drag(window()) != nullptr) list_.droppedInText(row);
}

void ListPeer::onCommand(int code) {
  if (code == LBN_SELCHANGE) list_.userSelect(static_cast<int>(send(LB_GETCURSEL)));
  if (code == LBN_DBLCLK) list_.doubleClicked();
}

void ListPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Items) {
    send(WM_SETREDRAW, FALSE);
    send(LB_RESETCONTENT);
    // At once: a list that grows row by row is moved again and again.
    constexpr std::size_t kBytesOfRow = 32;
    send(LB_INITSTORAGE, list_.items().size(), static_cast<LPARAM>(list_.items().size() * kBytesOfRow));
    for (const ui::Text& item : list_.items()) {
      send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wideFromText(item).c_str()));
    }
    send(WM_SETREDRAW, TRUE);
    InvalidateRect(window(), nullptr, TRUE);
  } else if (what == ui::Aspect::Selection) {
    send(LB_SETCURSEL, static_cast<WPARAM>(list_.selected()));
  }
}

void ComboPeer::prepare() {
  if (combo_.dropWidth > 0) {
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(scaled(combo_.dropWidth, dpiOf(window()))));
  }
}

void ComboPeer::onCommand(int code) {
  if (code == CBN_SELCHANGE) combo_.userSelect(static_cast<int>(send(CB_GETCURSEL)));
}

void ComboPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Items) {
    send(CB_RESETCONTENT);
    for (const ui::Text& item : combo_.items()) {
      send(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(wideFromText(item).c_str()));
    }
  } else if (what == ui::Aspect::Selection) {
    send(CB_SETCURSEL, static_cast<WPARAM>(combo_.selected()));
  }
}

}  // namespace win32
