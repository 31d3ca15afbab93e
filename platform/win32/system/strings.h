// The one place where texts become UTF-16 and come back; the names say from what.
#pragma once

#include <string>
#include <string_view>

#include "ui/text.h"

namespace win32 {

// Malformed UTF-8 and lone surrogates become U+FFFD.
std::wstring wideFromUtf8(std::string_view utf8);
std::string utf8FromWide(std::wstring_view wide);

// Interface text as the user sees it.
std::wstring wideFromText(const ui::Text& text);

// Byte text, one character a byte, for places that hold CR and LF as they are; NUL becomes kNulStandIn.
std::wstring wideFromBytes(std::string_view bytes);

// Byte text that is read as UTF-8, a letter a character. A byte that is no UTF-8, and a NUL, is a private
// character from U+E000 on; letters that are these characters themselves are shown by their bytes, so that
// every text comes back.
std::wstring wideFromUtf8Bytes(std::string_view bytes);
std::string utf8BytesFromWide(std::wstring_view wide);

// Characters that end a string or break a line in a control stand in this form there.
inline constexpr wchar_t kNulStandIn = 0xE000;
inline constexpr wchar_t kLfStandIn = 0xE00A;
inline constexpr wchar_t kCrStandIn = 0xE00D;

// What wideFromBytes() made, with the user's changes.
std::string bytesFromWide(std::wstring_view wide);

}  // namespace win32
