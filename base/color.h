// A colour as the system stores it: 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <string>

namespace base {

using Color = std::uint32_t;

constexpr Color rgb(std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
  return red | (static_cast<Color>(green) << 8) | (static_cast<Color>(blue) << 16);
}
constexpr std::uint8_t red(Color color) {
  return static_cast<std::uint8_t>(color & 0xFF);
}
constexpr std::uint8_t green(Color color) {
  return static_cast<std::uint8_t>((color >> 8) & 0xFF);
}
constexpr std::uint8_t blue(Color color) {
  return static_cast<std::uint8_t>((color >> 16) & 0xFF);
}

// "#" and the hexadecimal red, green and blue: no leading zero, but "00" for a zero byte (#50000 is 5, 0, 0).
std::string shortHtmlColor(Color color);

}  // namespace base
