#include "platform/win32/list_peers.h"

#include "platform/win32/dpi.h"
#include "platform/win32/strings.h"

namespace win32 {

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
