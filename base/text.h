// Helpers for byte text: one char is one byte of a file, CR LF line ends, positions in bytes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

inline constexpr std::string_view kCrLf = "\r\n";

// The pieces between separators; a text without the separator is one piece, an empty text one empty piece.
std::vector<std::string> split(std::string_view text, std::string_view separator);
std::string join(const std::vector<std::string>& pieces, std::string_view separator);

// Every occurrence, left to right, without overlaps. An empty `from` changes nothing.
std::string replaceAll(std::string_view text, std::string_view from, std::string_view to);

// Without the spaces at both ends (spaces only: tabs and line ends stay).
std::string_view trimSpaces(std::string_view text);

// ASCII letters only; every other byte stays, so UTF-8 and 8-bit text are safe.
std::string upperAscii(std::string_view text);
bool equalNoCase(std::string_view a, std::string_view b);
// For sorting: negative, zero or positive as in strcmp, ASCII letters compared without case.
int compareNoCase(std::string_view a, std::string_view b);

// Index of the first byte at which the two differ, up to the shorter one's end.
std::size_t commonPrefix(std::string_view a, std::string_view b);

}  // namespace base
