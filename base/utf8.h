// UTF-8 coding of single characters; the only place that computes it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

void appendUtf8(std::string& out, char32_t character);

// Reads the character at `at` and moves `at` behind it; nothing (and `at` unmoved) when the bytes there are
// no well-formed UTF-8 (overlong forms and surrogates are malformed).
std::optional<char32_t> nextUtf8(std::string_view text, std::size_t& at);

bool isUtf8(std::string_view text);
// All of it is UTF-8, and it has a letter of more than one byte or begins with a byte-order mark: text that
// is to be read as UTF-8.
bool readsAsUtf8(std::string_view text);
// It begins with the mark of UTF-16: its units are two bytes each.
bool isUtf16(std::string_view text);

}  // namespace base
