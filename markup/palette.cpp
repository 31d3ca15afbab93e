#include "markup/palette.h"

#include <charconv>

#include "base/text.h"

namespace markup {
namespace {

constexpr PaletteColor kNamed[] = {
    {base::rgb(0x00, 0x00, 0x00), "Black"},  {base::rgb(0x80, 0x80, 0x80), "Gray"},
    {base::rgb(0xC0, 0xC0, 0xC0), "Silver"}, {base::rgb(0xFF, 0xFF, 0xFF), "White"},
    {base::rgb(0x80, 0x00, 0x00), "Maroon"}, {base::rgb(0xFF, 0x00, 0x00), "Red"},
    {base::rgb(0x80, 0x80, 0x00), "Olive"},  {base::rgb(0xFF, 0xFF, 0x00), "Yellow"},
    {base::rgb(0x00, 0x80, 0x00), "Green"},  {base::rgb(0x00, 0xFF, 0x00), "Lime"},
    {base::rgb(0x00, 0x80, 0x80), "Teal"},   {base::rgb(0x00, 0xFF, 0xFF), "Aqua"},
    {base::rgb(0x00, 0x00, 0x80), "Navy"},   {base::rgb(0x00, 0x00, 0xFF), "Blue"},
    {base::rgb(0x80, 0x00, 0x80), "Purple"}, {base::rgb(0xFF, 0x00, 0xFF), "Fuchsia"}};

}  // namespace

const std::vector<PaletteColor>& palette() {
  static const std::vector<PaletteColor> all = [] {
    constexpr int kRows = 12;
    constexpr int kSteps = 6;
    const auto part = [](int step) { return static_cast<std::uint8_t>(step * 0x33); };
    std::vector<PaletteColor> colors;
    // Six squares, one for each red: blue grows downwards, green to the right.
    for (int row = 0; row < kRows; ++row) {
      for (int column = 0; column < kPaletteColumns; ++column) {
        const int red = (row / kSteps) * (kPaletteColumns / kSteps) + column / kSteps;
        colors.push_back({base::rgb(part(red), part(column % kSteps), part(row % kSteps)), ""});
      }
    }
    colors.insert(colors.end(), std::begin(kNamed), std::end(kNamed));
    return colors;
  }();
  return all;
}

std::optional<base::Color> colorFromHtml(std::string_view text) {
  text = base::trimSpaces(text);
  for (const PaletteColor& named : kNamed) {
    if (base::equalNoCase(text, named.name)) return named.color;
  }
  if (text.starts_with('#')) text.remove_prefix(1);
  std::string digits(text);
  if (digits.size() == 3) digits = {text[0], text[0], text[1], text[1], text[2], text[2]};
  if (digits.size() != 6) return std::nullopt;
  unsigned number = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
  if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return base::rgb(static_cast<std::uint8_t>(number >> 16), static_cast<std::uint8_t>(number >> 8),
                   static_cast<std::uint8_t>(number));
}

std::string colorName(base::Color color) {
  for (const PaletteColor& named : kNamed) {
    if (named.color == color) return named.name;
  }
  return {};
}

}  // namespace markup
