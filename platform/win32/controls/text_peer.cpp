#include "platform/win32/controls/text_peer.h"

#include <utility>

#include "base/cp1252.h"
#include "base/utf8.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/clipboard.h"
#include "platform/win32/system/strings.h"

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
  shownUtf8_ = isUtf8();
  dpiChanged(dpiOf(window()));
}

void TextPeer::dpiChanged(int dpi) {
  if (!holdsBytes()) return;
  font_ = codeFont(text_.font(), dpi);
  send(WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), TRUE);
}

std::wstring TextPeer::wideOf(const std::string& text) const {
  if (!holdsBytes()) return wideFromUtf8(text);
  return shownUtf8_ ? wideFromUtf8Bytes(text) : wideFromBytes(text);
}

std::string TextPeer::shownText() const {
  return bytesShown(windowText(window()));
}

std::string TextPeer::bytesShown(std::wstring_view shown) const {
  if (!holdsBytes()) return utf8FromWide(shown);
  return shownUtf8_ ? utf8BytesFromWide(shown) : bytesFromWide(shown);
}

ui::TextBox::Selection TextPeer::selection() const {
  DWORD start = 0;
  DWORD end = 0;
  send(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
  const std::wstring shown = windowText(window());
  const auto bytes = [&](DWORD to) { return static_cast<int>(bytesShown(shown.substr(0, to)).size()); };
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
    showFont();
  }
}

// The same bytes may be other letters now.
void TextPeer::showFont() {
  if (holdsBytes() && shownUtf8_ != isUtf8()) {
    const ui::TextBox::Selection selected = selection();
    shownUtf8_ = isUtf8();
    SetWindowTextW(window(), wideOf(text_.text()).c_str());
    text_.select(selected.start, selected.length);
  }
  dpiChanged(dpiOf(window()));
}

void TextPeer::onCommand(int code) {
  if (code == EN_CHANGE && !mirroring()) text_.userSet(shownText());
}

// Bytes as the field shows them, in place of the selection.
void TextPeer::enter(const std::string& bytes) const {
  send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(wideOf(bytes).c_str()));
}

// In a Cyrillic font the bytes are those of Windows-1251.
std::optional<std::uint8_t> TextPeer::byteOf(char32_t character) const {
  if (isUtf8()) return character < 0x80 ? std::optional(static_cast<std::uint8_t>(character)) : std::nullopt;
  if (text_.font().characterSet == ui::CharacterSet::Russian && character < 0x10000) {
    const auto unit = static_cast<wchar_t>(character);
    char byte = 0;
    BOOL unknown = FALSE;
    const int size = WideCharToMultiByte(1251, WC_NO_BEST_FIT_CHARS, &unit, 1, &byte, 1, nullptr, &unknown);
    if (size == 1 && unknown == FALSE) return static_cast<std::uint8_t>(byte);
  }
  return base::byteOfChar(character);
}

std::string TextPeer::bytesOf(char32_t character) const {
  if (const auto byte = byteOf(character)) return std::string(1, static_cast<char>(*byte));
  if (!isUtf8() && text_.typed) return text_.typed(character);
  std::string utf8;
  base::appendUtf8(utf8, character);
  return utf8;
}

// The bytes themselves where they come from a view like the field's.
void TextPeer::paste() const {
  const ui::TextClip clip = clipboardClip(window());
  if (!clip.bytes.empty() &&
      clip.form == static_cast<int>(isUtf8() ? ui::TextView::Utf8 : ui::TextView::EightBit)) {
    enter(clip.bytes);
    return;
  }
  std::string bytes;
  for (std::size_t at = 0; at < clip.letters.size();) {
    const auto character = base::nextUtf8(clip.letters, at);
    if (!character) break;  // the clipboard's letters are well-formed
    bytes += bytesOf(*character);
  }
  enter(bytes);
}

LRESULT TextPeer::type(HWND window, WPARAM unit, LPARAM lParam) {
  if (unit < ' ') return forward(window, WM_CHAR, unit, lParam);
  const auto half = static_cast<wchar_t>(unit);
  if (IS_HIGH_SURROGATE(half)) {
    firstHalf_ = half;
    return 0;
  }
  auto character = static_cast<char32_t>(half);
  const wchar_t first = std::exchange(firstHalf_, L'\0');
  if (IS_LOW_SURROGATE(half)) {
    if (first == 0) return 0;
    character = 0x10000 + ((static_cast<char32_t>(first) & 0x3FF) << 10) + (character & 0x3FF);
  }
  const auto byte = byteOf(character);
  const std::string bytes = byte && text_.keyPress ? text_.keyPress(*byte) : bytesOf(character);
  const std::wstring shown = wideOf(bytes);
  // The control makes one undo step of the keys that it gets one by one.
  if (shown.size() == 1) return forward(window, WM_CHAR, shown.front(), lParam);
  if (!shown.empty()) enter(bytes);
  return 0;
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
    paste();
    return 0;
  }
  return message == WM_CHAR ? type(window, wParam, lParam) : forward(window, message, wParam, lParam);
}

}  // namespace win32
