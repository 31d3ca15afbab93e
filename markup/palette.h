// The colours that a page can name: 216 whose parts are multiples of 33 hexadecimal, and 16 with names.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/color.h"

namespace markup {

struct PaletteColor {
  base::Color color;
  const char* name;  // empty for most
};

// By rows: 12 rows of kPaletteColumns colours, then the 16 named ones.
inline constexpr int kPaletteColumns = 18;
const std::vector<PaletteColor>& palette();

// "#RRGGBB", "#RGB", both also without "#", or one of the 16 names in any case; blanks around are allowed.
std::optional<base::Color> colorFromHtml(std::string_view text);

// The name of one of the 16; else empty.
std::string colorName(base::Color color);

}  // namespace markup
