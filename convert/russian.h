// Russian letters: on the Latin keyboard, and as bytes of Windows-1251.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace convert {

// The letter of each key; both strings have the same length. Seven letters, such as Ё and Щ, have no key.
inline constexpr std::string_view kRussianKeys = "ABVGDEZIKLMNOPRSTUFXCQWHJYabvgdeziklmnoprstufxcqwhjy";
inline constexpr std::string_view kRussianKeyBytes =
    "\xC0\xC1\xC2\xC3\xC4\xC5\xC7\xC8\xCA\xCB\xCC\xCD\xCE\xCF\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD7\xD8\xDE\xDF\xC6"
    "\xE0\xE1\xE2\xE3\xE4\xE5\xE7\xE8\xEA\xEB\xEC\xED\xEE\xEF\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF7\xF8\xFE\xFF"
    "\xE6";
static_assert(kRussianKeys.size() == kRussianKeyBytes.size());

// The byte of a Cyrillic letter, those of other Slavic languages included; nothing for all other characters.
std::optional<std::uint8_t> cyrillicByte(char32_t character);
// The letter of a byte of Windows-1251, likewise.
std::optional<char32_t> russianLetter(std::uint8_t byte);
// The letter of a byte C0..FF.
constexpr char32_t cyrillicLetter(std::uint8_t byte) {
  return char32_t{0x410} + (byte - 0xC0U);
}

}  // namespace convert
