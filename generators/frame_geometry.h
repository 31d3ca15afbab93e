// Where the frames of a frameset stand, for a drawing of it.
#pragma once

#include <string_view>
#include <vector>

#include "generators/frameset.h"
#include "ui/picture.h"

namespace generators {

// "64,25%,*,2*": lengths in pixels, percent, and shares of the rest. False for anything else, or nothing.
bool isFrameLengths(std::string_view lengths);

// The lengths of `count` cells that fill `total` pixels, as browsers deal them out; parts that say nothing
// count as "*".
std::vector<int> dealLengths(std::string_view lengths, std::size_t count, int total);

// Of each frame of the design, in its order, inside `area`, which stands for a window of kBrowser pixels.
inline constexpr ui::Size kBrowser{800, 600};
std::vector<ui::Rect> frameAreas(const FramesetDesign& design, const ui::Rect& area);

}  // namespace generators
