// Upper and lower case of byte text as Windows-1252 has it. In a legacy Georgian font the two bytes of such a
// pair are two different letters: comparing without case cannot tell them apart.
#pragma once

#include <array>
#include <cstdint>

namespace search {

// The lower-case form of each byte; bytes without case stand for themselves.
inline constexpr std::array<std::uint8_t, 256> kLowerCase = [] {
  std::array<std::uint8_t, 256> lower{};
  for (int byte = 0; byte < 256; ++byte) {
    const bool ascii = byte >= 'A' && byte <= 'Z';
    const bool latin = byte >= 0xC0 && byte <= 0xDE && byte != 0xD7;  // D7 is the multiplication sign
    lower[static_cast<std::size_t>(byte)] = static_cast<std::uint8_t>(ascii || latin ? byte + 0x20 : byte);
  }
  lower[0x8A] = 0x9A;  // S with caron
  lower[0x8C] = 0x9C;  // OE
  lower[0x8E] = 0x9E;  // Z with caron
  lower[0x9F] = 0xFF;  // Y with diaeresis
  return lower;
}();

inline std::uint8_t lowerCase(char byte) {
  return kLowerCase[static_cast<std::uint8_t>(byte)];
}

}  // namespace search
