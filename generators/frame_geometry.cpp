#include "generators/frame_geometry.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <optional>

#include "base/text.h"

namespace generators {
namespace {

struct Length {
  enum class Unit { Pixels, Percent, Share } unit = Unit::Share;
  int number = 1;
};

constexpr int kMostPixels = 100000;  // more is no length of a window

std::optional<Length> lengthOf(std::string_view part) {
  part = base::trimSpaces(part);
  if (part == "*") return Length{};
  Length length;
  const char* const last = part.data() + part.size();
  const auto [end, error] = std::from_chars(part.data(), last, length.number);
  if (error != std::errc() || end == part.data() || length.number < 0 || length.number > kMostPixels)
    return {};
  const std::string_view unit(end, static_cast<std::size_t>(last - end));
  if (unit.empty()) {
    length.unit = Length::Unit::Pixels;
  } else if (unit == "%") {
    length.unit = Length::Unit::Percent;
  } else if (unit != "*") {
    return {};
  }
  return length;
}

// Makes `sizes` fill `total` in their proportions, to the last pixel.
void fit(std::vector<int>& sizes, int total) {
  const std::int64_t sum = std::accumulate(sizes.begin(), sizes.end(), std::int64_t{0});
  std::int64_t before = 0;
  int filled = 0;
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    // Equal parts where all are nothing.
    before += sum > 0 ? sizes[i] : 1;
    const int edge =
        static_cast<int>(before * total / (sum > 0 ? sum : static_cast<std::int64_t>(sizes.size())));
    sizes[i] = edge - filled;
    filled = edge;
  }
}

}  // namespace

bool isFrameLengths(std::string_view lengths) {
  const std::vector<std::string> parts = base::split(lengths, ",");
  return std::all_of(parts.begin(), parts.end(),
                     [](const std::string& part) { return lengthOf(part).has_value(); });
}

std::vector<int> dealLengths(std::string_view lengths, std::size_t count, int total) {
  const std::vector<std::string> parts = base::split(lengths, ",");
  std::vector<Length> wanted(count);
  std::vector<int> sizes(count, 0);
  int fixed = 0;
  int shares = 0;
  for (std::size_t i = 0; i < count; ++i) {
    if (i < parts.size()) wanted[i] = lengthOf(parts[i]).value_or(Length{});
    const Length& length = wanted[i];
    if (length.unit == Length::Unit::Share) {
      shares += length.number;
    } else {
      sizes[i] = length.unit == Length::Unit::Pixels
                     ? length.number
                     : static_cast<int>(static_cast<std::int64_t>(total) * length.number / 100);
      fixed += sizes[i];
    }
  }
  const int rest = std::max(total - fixed, 0);
  if (shares > 0 && rest > 0) {
    std::vector<int> parted(count, 0);
    for (std::size_t i = 0; i < count; ++i) {
      if (wanted[i].unit == Length::Unit::Share) parted[i] = wanted[i].number;
    }
    fit(parted, rest);
    for (std::size_t i = 0; i < count; ++i) sizes[i] += parted[i];
  }
  fit(sizes, total);
  return sizes;
}

std::vector<ui::Rect> frameAreas(const FramesetDesign& design, const ui::Rect& area) {
  if (design.layout < 0) return {area};
  const FrameShape shape = shapeOf(design.layout);
  // In browser pixels first, where a length in pixels means something.
  const auto cut = [&design](const ui::Rect& all, bool rows, std::size_t count) {
    std::vector<ui::Rect> cells;
    int at = rows ? all.top : all.left;
    for (const int size :
         dealLengths(rows ? design.rows : design.cols, count, rows ? all.height : all.width)) {
      cells.push_back(rows ? ui::Rect{all.left, at, all.width, size}
                           : ui::Rect{at, all.top, size, all.height});
      at += size;
    }
    return cells;
  };
  const std::size_t outer = design.frames.size() - (shape.nested >= 0 ? 1 : 0);
  std::vector<ui::Rect> places;
  const auto cells = cut({0, 0, kBrowser.width, kBrowser.height}, cutInRows(design), outer);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (static_cast<int>(i) != shape.nested) {
      places.push_back(cells[i]);
    } else {
      for (const ui::Rect& inner : cut(cells[i], !shape.outerRows, 2)) places.push_back(inner);
    }
  }
  for (ui::Rect& place : places) {
    const int left = area.left + place.left * area.width / kBrowser.width;
    const int top = area.top + place.top * area.height / kBrowser.height;
    place = {left, top, area.left + place.right() * area.width / kBrowser.width - left,
             area.top + place.bottom() * area.height / kBrowser.height - top};
  }
  return places;
}

}  // namespace generators
