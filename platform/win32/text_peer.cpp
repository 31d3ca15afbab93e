#include "platform/win32/text_peer.h"

#include "base/cp1252.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/strings.h"

namespace win32 {

TextPeer::TextPeer(ui::TextBox& model, HWND window) : WatchedPeer(model, window), text_(model) {
  text_.selectionInWindow = [this] { return selection(); };
}

void TextPeer::detach() {
  text_.selectionInWindow = nullptr;
  WatchedPeer::detach();
}

void TextPeer::prepare() {
  send(EM_SETLIMITTEXT, 0);
  dpiChanged(dpiOf(window()));
}

void TextPeer::dpiChanged(int dpi) {
  if (!holdsBytes()) return;
  font_ = codeFont(text_.font(), dpi);
  send(WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
}

std::wstring TextPeer::wideOf(const std::string& text) const {
  return holdsBytes() ? wideFromBytes(text) : wideFromUtf8(text);
}

std::string TextPeer::shownText() const {
  const std::wstring shown = windowText(window());
  return holdsBytes() ? bytesFromWide(shown) : utf8FromWide(shown);
}

ui::TextBox::Selection TextPeer::selection() const {
  DWORD start = 0;
  DWORD end = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  if (holdsBytes()) return {static_cast<int>(start), static_cast<int>(end - start)};
  const std::wstring shown = windowText(window());
  const auto bytes = [&shown](DWORD to) {
    return static_cast<int>(utf8FromWide(shown.substr(0, to)).size());
  };
  return {bytes(start), bytes(end) - bytes(start)};
}

void TextPeer::show(ui::Aspect what) {
  if (what == ui::Aspect::Text && shownText() != text_.text()) {
    SetWindowTextW(window(), wideOf(text_.text()).c_str());
  } else if (what == ui::Aspect::Value) {
    constexpr WPARAM kDot = 0x25CF;
    const WPARAM sign = text_.masked() ? kDot : 0;
    if (static_cast<WPARAM>(send(EM_GETPASSWORDCHAR)) == sign) return;
    send(EM_SETPASSWORDCHAR, sign);
    InvalidateRect(window(), nullptr, TRUE);
  } else if (what == ui::Aspect::Selection) {
    const auto selected = text_.selected();
    const auto place = [this](int bytes) {
      return wideOf(text_.text().substr(0, static_cast<std::size_t>(bytes))).size();
    };
    send(EM_SETSEL, place(selected.start), static_cast<LPARAM>(place(selected.start + selected.length)));
    send(EM_SCROLLCARET);
  } else if (what == ui::Aspect::Font) {
    dpiChanged(dpiOf(window()));
  }
}

void TextPeer::onCommand(int code) {
  if (code == EN_CHANGE && !mirroring()) text_.userSet(shownText());
}

void TextPeer::enter(std::wstring_view typed) const {
  send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wideFromBytes(bytesFromTyped(typed, nullptr)).c_str()));
}

// In a Cyrillic font the bytes are those of Windows-1251.
std::optional<std::uint8_t> TextPeer::byteOf(wchar_t character) const {
  if (text_.font().characterSet == ui::CharacterSet::Russian) {
    char byte = 0;
    BOOL unknown = FALSE;
    const int size =
        WideCharToMultiByte(1251, WC_NO_BEST_FIT_CHARS, &character, 1, &byte, 1, nullptr, &unknown);
    if (size == 1 && unknown == FALSE) return static_cast<std::uint8_t>(byte);
  }
  return base::byteOfChar(character);
}

LRESULT TextPeer::handleOf(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_SETTEXT && !mirroring()) {
    // By another program: a field of several lines does not say so itself.
    const LRESULT set = forward(window, message, wParam, lParam);
    onCommand(EN_CHANGE);
    return set;
  }
  const bool readOnly = (GetWindowLongPtrW(window, GWL_STYLE) & ES_READONLY) != 0;
  if (readOnly && message == WM_GETDLGCODE) {
    // The keyboard that comes into a text to read would select all of it and show its end.
    return forward(window, message, wParam, lParam) & ~DLGC_HASSETSEL;
  }
  if (!holdsBytes() || readOnly) return forward(window, message, wParam, lParam);
  if (message == WM_PASTE) {
    enter(clipboardText(window));
    return 0;
  }
  if (message != WM_CHAR || wParam < ' ') return forward(window, message, wParam, lParam);
  const auto character = static_cast<wchar_t>(wParam);
  const auto byte = byteOf(character);
  if (!byte) {
    enter(std::wstring_view(&character, 1));
    return 0;
  }
  const int key = text_.keyPress ? text_.keyPress(*byte) : *byte;
  if (key == 0) return 0;
  return forward(window, message, base::charOfByte(static_cast<std::uint8_t>(key)), lParam);
}

}  // namespace win32
