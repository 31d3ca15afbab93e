// The letters of each form as Unicode characters, and back.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "convert/forms.h"

namespace convert {

inline constexpr char32_t kFirstGeorgian = 0x10D0;  // ა
inline constexpr char32_t kLastModern = 0x10F0;     // ჰ, the last of the alphabet of today

// Georgian letters of every kind: Mkhedruli, the old capitals, Mtavruli.
constexpr bool isGeorgian(char32_t c) {
  return (c >= 0x10A0 && c <= 0x10FF && c != 0x10FB) || (c >= 0x1C90 && c <= 0x1CBF) ||
         (c >= 0x2D00 && c <= 0x2D2D);
}
constexpr bool isCyrillic(char32_t c) {
  return c >= 0x400 && c <= 0x4FF;
}

// The characters of the bytes 00..FF in an 8-bit form. Georgian letters are those of iconv's GEORGIAN-PS and
// GEORGIAN-ACADEMY; all other bytes of both forms, as of Western, are Windows-1252. The bytes that a code
// page leaves open stand for the control character of their number.
const std::array<char16_t, 256>& charactersOf(Form eightBit);

// The byte of a character in an 8-bit form; nothing where there is none.
std::optional<std::uint8_t> byteIn(Form eightBit, char32_t character);

// The Georgian letter of a key of the keyboard layout; 0 for all other bytes.
char32_t keyboardLetter(std::uint8_t key);
std::optional<char> keyOf(char32_t georgian);

}  // namespace convert
