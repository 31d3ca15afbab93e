#include "convert/russian.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace convert {
namespace {

// Outside the run А..я.
constexpr std::pair<char32_t, std::uint8_t> kOthers[] = {
    {0x401, 0xA8}, {0x402, 0x80}, {0x403, 0x81},  {0x404, 0xAA}, {0x405, 0xBD}, {0x406, 0xB2}, {0x407, 0xAF},
    {0x408, 0xA3}, {0x409, 0x8A}, {0x40A, 0x8C},  {0x40B, 0x8E}, {0x40C, 0x8D}, {0x40E, 0xA1}, {0x40F, 0x8F},
    {0x451, 0xB8}, {0x452, 0x90}, {0x453, 0x83},  {0x454, 0xBA}, {0x455, 0xBE}, {0x456, 0xB3}, {0x457, 0xBF},
    {0x458, 0xBC}, {0x459, 0x9A}, {0x45A, 0x9C},  {0x45B, 0x9E}, {0x45C, 0x9D}, {0x45E, 0xA2}, {0x45F, 0x9F},
    {0x490, 0xA5}, {0x491, 0xB4}, {0x2116, 0xB9},  // the number sign is on every Russian keyboard
};

}  // namespace

std::optional<std::uint8_t> cyrillicByte(char32_t character) {
  if (character >= 0x410 && character <= 0x44F) return static_cast<std::uint8_t>(character - 0x410 + 0xC0);
  const auto* const at =
      std::ranges::find(kOthers, character, [](const auto& letter) { return letter.first; });
  return at == std::end(kOthers) ? std::nullopt : std::optional(at->second);
}

std::optional<char32_t> russianLetter(std::uint8_t byte) {
  if (byte >= 0xC0) return cyrillicLetter(byte);
  const auto* const at = std::ranges::find(kOthers, byte, [](const auto& letter) { return letter.second; });
  return at == std::end(kOthers) ? std::nullopt : std::optional(at->first);
}

}  // namespace convert
