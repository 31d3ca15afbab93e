// The one place where texts become UTF-16 and come back; the names say from what.
#pragma once

#include <functional>
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

// Characters that end a string or break a line in a control stand in this form there.
inline constexpr wchar_t kNulStandIn = 0xE000;
inline constexpr wchar_t kLfStandIn = 0xE00A;
inline constexpr wchar_t kCrStandIn = 0xE00D;

// What a user typed or pasted, as byte text: every run of characters that no byte stands for goes, as UTF-8,
// through `rule`; without a rule its UTF-8 enters as bytes.
using UnicodeRule = std::function<std::string(const std::string& utf8)>;
std::string bytesFromTyped(std::wstring_view typed, const UnicodeRule& rule);

// What wideFromBytes() made, with the user's changes.
std::string bytesFromWide(std::wstring_view wide);

}  // namespace win32
