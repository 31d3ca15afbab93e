#include "platform/win32/controls/page_tabs_peer.h"

#include "platform/win32/system/strings.h"

namespace win32 {

void PageTabsPeer::prepare() {
  int at = 0;
  for (const ui::Text& caption : tabs_.captions()) {
    std::wstring text = wideFromText(caption);
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    send(TCM_INSERTITEMW, static_cast<WPARAM>(at++), reinterpret_cast<LPARAM>(&item));
  }
}

// The user sees the finished page at once, not one control of it after the other.
void PageTabsPeer::show(ui::Aspect what) {
  const HWND dialog = GetParent(window());
  if (what == ui::Aspect::Items) SendMessageW(dialog, kLayoutMessage, kHoldLayout, 0);
  if (what != ui::Aspect::Selection) return;
  send(TCM_SETCURSEL, static_cast<WPARAM>(tabs_.page()));
  SendMessageW(dialog, kLayoutMessage, kReleaseLayout, 0);
}

LRESULT PageTabsPeer::onNotify(const NMHDR& header) {
  if (header.code == TCN_SELCHANGE) tabs_.showPage(static_cast<int>(send(TCM_GETCURSEL)));
  return 0;
}

}  // namespace win32
