#include "base/color.h"

#include <charconv>

namespace base {

std::string shortHtmlColor(Color color) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string html = "#";
  for (const std::uint8_t part : {red(color), green(color), blue(color)}) {
    if (part == 0) {
      html += "00";
      continue;
    }
    if (part >= 16) html += kDigits[part / 16U];
    html += kDigits[part % 16U];
  }
  return html;
}

}  // namespace base
