#include "print/print_layout.h"

#include <algorithm>

#include "base/utf8.h"

namespace print {
namespace {

int room(const PrintGrid& grid, bool continued) {
  return grid.columns - (continued ? kContinuedIndent : 0);
}

// Bytes of the letter at `at`.
std::size_t letterSize(std::string_view text, std::size_t at, const PrintGrid& grid) {
  std::size_t end = at;
  return grid.utf8 && base::nextUtf8(text, end) ? end - at : 1;
}

// Columns of a letter that begins with `byte`, at `column`; a tab ends with its row at the latest.
int widthOf(char byte, int column, int room) {
  if (byte != '\t') return 1;
  return std::min(kPrintTab - column % kPrintTab, room - column);
}

// Calls `line(begin, end)` for each line.
template <class Line>
void forEachLine(std::string_view text, Line line) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find_first_of("\r\n", begin), text.size());
    line(begin, end);
    begin = end + 1;
    if (begin < text.size() && text[end] == '\r' && text[begin] == '\n') ++begin;
  }
}

}  // namespace

PrintLayout::PrintLayout(std::string_view text, PrintGrid grid) : grid_(grid) {
  std::size_t number = 0;
  forEachLine(text, [&](std::size_t begin, std::size_t end) { addLine(text, begin, end, number++); });
}

void PrintLayout::addLine(std::string_view text, std::size_t begin, std::size_t end, std::size_t line) {
  PrintRow row{begin, begin, line, false};
  int column = 0;
  while (row.end < end) {
    if (column == room(grid_, row.continued)) {
      rows_.push_back(row);
      row = {row.end, row.end, line, true};
      column = 0;
    }
    column += widthOf(text[row.end], column, room(grid_, row.continued));
    row.end += letterSize(text.substr(0, end), row.end, grid_);
  }
  rows_.push_back(row);
}

int PrintLayout::pages() const {
  const auto rows = static_cast<int>(rows_.size());
  return std::max(1, (rows + grid_.rows - 1) / grid_.rows);
}

std::span<const PrintRow> PrintLayout::page(int at) const {
  const std::size_t begin = static_cast<std::size_t>(at) * static_cast<std::size_t>(grid_.rows);
  if (at < 0 || begin >= rows_.size()) return {};
  return std::span(rows_).subspan(begin,
                                  std::min(rows_.size() - begin, static_cast<std::size_t>(grid_.rows)));
}

std::size_t printedLines(std::string_view text) {
  std::size_t lines = 0;
  forEachLine(text, [&](std::size_t, std::size_t) { ++lines; });
  return lines;
}

std::string rowText(std::string_view text, const PrintRow& row, const PrintGrid& grid) {
  const std::string_view bytes = text.substr(row.begin, row.end - row.begin);
  std::string shown;
  int column = 0;
  for (std::size_t at = 0; at < bytes.size();) {
    const auto code = static_cast<unsigned char>(bytes[at]);
    const std::size_t size = letterSize(bytes, at, grid);
    const int width = widthOf(bytes[at], column, room(grid, row.continued));
    if (code == '\t') {
      shown.append(static_cast<std::size_t>(width), ' ');
    } else if (code < ' ' || code == 0x7F) {
      shown += '\0';
    } else {
      shown += bytes.substr(at, size);
    }
    column += width;
    at += size;
  }
  return shown;
}

}  // namespace print
