// The page before and after, line beside line, as far as a window shows it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "convert/page_review.h"

namespace convert {

// A part of a line; no line ends or other control characters.
struct LinePart {
  std::string letters;
  bool changed = false;
  bool selected = false;  // of the change that is looked at
};

// One line on the screen: as it is and as it will be. Either may be empty where the other one is longer.
struct LinePair {
  std::vector<LinePart> before;
  std::vector<LinePart> after;
};

// `rows` lines or less, of `columns` letters or less, from the place `top` of the page on. Its cost depends
// on what is shown, not on the page.
std::vector<LinePair> linesFrom(const PageReview& review, std::size_t top, std::size_t rows,
                                std::size_t columns, std::optional<std::uint32_t> selected);

// 0: the beginning of the line of `place`; else `place` is one, and the answer that of the line so many below
// (less than 0: above). Where lines are long, a place between: never more than `most` bytes a line.
std::size_t lineBeginning(std::string_view page, std::size_t place, int lines, std::size_t most);

}  // namespace convert
