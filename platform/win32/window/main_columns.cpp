#include "platform/win32/window/main_columns.h"

#include <algorithm>

#include "platform/win32/drawing/dpi.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr int kSplitter = 5;
constexpr int kLeastPane = 60;
constexpr int kLeastMiddle = 200;

}  // namespace

Columns columnsOf(const RECT& area, int dpi, ui::PaneWidths wanted, bool left, bool right) {
  const int splitter = scaled(kSplitter, dpi);
  const int least = scaled(kLeastPane, dpi);
  int room = static_cast<int>(area.right - area.left) - scaled(kLeastMiddle, dpi);
  const auto widthOf = [&](bool there, int wish, int keep) {
    if (!there) return 0;
    const int width = std::clamp(scaled(wish, dpi), least, std::max(least, room - splitter - keep));
    room -= width + splitter;
    return width;
  };
  const int leftWidth = widthOf(left, wanted.left, right ? least + splitter : 0);
  const int rightWidth = widthOf(right, wanted.right, 0);
  int at = static_cast<int>(area.left);
  const auto next = [&](int width) {
    const RECT column{at, area.top, at + std::max(0, width), std::max(area.top, area.bottom)};
    at = static_cast<int>(column.right);
    return column;
  };
  Columns columns{};
  columns.left = next(leftWidth);
  columns.leftSplitter = next(left ? splitter : 0);
  const int rest = static_cast<int>(area.right) - at - rightWidth - (right ? splitter : 0);
  columns.middle = next(rest);
  columns.rightSplitter = next(right ? splitter : 0);
  columns.right = next(rightWidth);
  return columns;
}

}  // namespace win32
