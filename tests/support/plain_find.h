// Finding in the plainest way: the yardstick for the engine.
#pragma once

#include <clocale>
#include <cwctype>
#include <string>
#include <vector>

#include "base/cp1252.h"
#include "search/find_engine.h"

namespace tests {

// The C library's idea of lower case, byte by byte.
inline std::uint8_t libraryLowerCase(std::uint8_t byte) {
  static const char* const locale = std::setlocale(LC_CTYPE, "C.UTF-8");
  if (locale == nullptr) return 0;
  const auto lower = static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(base::charOfByte(byte))));
  return base::byteOfChar(lower).value_or(byte);
}

// Each behind the end of the one before; those that begin in the range.
inline std::vector<std::size_t> plainAll(const std::string& text, const std::string& term,
                                         search::Comparison comparison, search::Range range) {
  const auto same = [comparison](char a, char b) {
    return a == b ||
           (comparison == search::Comparison::IgnoreCase &&
            libraryLowerCase(static_cast<std::uint8_t>(a)) == libraryLowerCase(static_cast<std::uint8_t>(b)));
  };
  std::vector<std::size_t> places;
  for (std::size_t at = range.begin; at < range.end;) {
    std::size_t size = 0;
    while (size < term.size() && at + size < text.size() && same(text[at + size], term[size])) ++size;
    if (size == term.size()) places.push_back(at);
    at += size == term.size() ? size : 1;
  }
  return places;
}

}  // namespace tests
