// The forms in which a page can hold its letters.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace convert {

enum class Form : std::uint8_t {
  Utf8,
  Ascii,       // nothing but ASCII, and no Georgian in it
  Legacy,      // the 8-bit layout of the letter tables, what iconv calls GEORGIAN-PS
  Academy,     // the 8-bit layout in the order of Unicode, GEORGIAN-ACADEMY
  Keyboard,    // Latin letters for a font of the keyboard layout
  References,  // character references
  Russian,     // Windows-1251
  Western,     // Windows-1252
  DoubleUtf8,  // UTF-8 that was taken for Windows-1252 or Latin-1 and encoded again
  Mixed,       // of a page: several
  Unknown,
};
inline constexpr std::size_t kForms = 11;

std::string_view nameOf(Form form);  // "utf-8", "legacy", "double-utf-8"...
std::optional<Form> formNamed(std::string_view name);

constexpr bool isEightBit(Form form) {
  return form == Form::Legacy || form == Form::Academy || form == Form::Russian || form == Form::Western;
}

}  // namespace convert
