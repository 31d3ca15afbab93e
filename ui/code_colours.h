// Colours of the code view's marks, on light and on dark.
#pragma once

#include <array>
#include <cstdint>

#include "base/color.h"

namespace ui {

// The first four are those of the F12 rule, by its numbers.
enum class CodeColour : std::uint8_t {
  Text,
  Tag,
  Attribute,
  Comment,
  Value,
  Number,
  Entity,
  Keyword,
  Server,  // what a server runs
  LineNumber,
  LineNumberBack,
  CurrentLine,
  Selection,
  WhiteSpace,
  Count
};

// 0x00BBGGRR, each readable on white or on 1E1E1E.
inline constexpr std::array<base::Color, static_cast<std::size_t>(CodeColour::Count)> kLightColours = {
    0x000000, 0xFF0000, 0x0000FF, 0x329600, 0x8B008B, 0x805000, 0x00609C,
    0xA02000, 0x6A5A00, 0x6B6B6B, 0xF2F2F2, 0xFFF4E8, 0xFFD6AD, 0x909090};
inline constexpr std::array<base::Color, static_cast<std::size_t>(CodeColour::Count)> kDarkColours = {
    0xD4D4D4, 0xFFB070, 0x9090FF, 0x70C070, 0xE0A0E0, 0xA8CEB5, 0x70C8F0,
    0xFFC090, 0xC8C060, 0x909090, 0x282828, 0x302A28, 0x784F26, 0x7A7A7A};

inline base::Color codeColour(CodeColour which, bool dark) {
  return (dark ? kDarkColours : kLightColours)[static_cast<std::size_t>(which)];
}

}  // namespace ui
