#include "print/print_sheet.h"

#include <cmath>

#include "base/error.h"

namespace print {
namespace {

constexpr base::Color kBlack = base::rgb(0, 0, 0);
constexpr int kHeadHeight = 20;  // in 1/96 inch; the gap below it is not counted
constexpr int kHeadGap = 8;
constexpr int kPageNumberWidth = 130;
constexpr int kLeastColumns = 10;
constexpr int kLeastRows = 3;

int unitsOf(int hundredthsOfMillimetre) {
  return static_cast<int>(std::lround(hundredthsOfMillimetre * 96.0 / 2540.0));
}

ui::Rect innerOf(const ui::PageSetup& setup) {
  const int left = unitsOf(setup.left);
  const int top = unitsOf(setup.top);
  return {left, top, unitsOf(setup.width) - unitsOf(setup.right) - left,
          unitsOf(setup.height) - unitsOf(setup.bottom) - top};
}

// The greatest number and a space behind it.
int columnsForNumbers(const PrintSource& source) {
  const std::size_t last = source.firstLine + printedLines(source.text);
  return static_cast<int>(std::to_string(last).size()) + 1;
}

PrintGrid gridOf(const ui::Rect& inner, const ui::CodeCell& cell, int numberColumns) {
  // A hair more, so that a width that fits exactly is not lost by rounding.
  const auto fitting = [](double room, double part) { return static_cast<int>(room / part + 1e-6); };
  const PrintGrid grid{fitting(inner.width, cell.width) - numberColumns,
                       fitting(inner.height - kHeadHeight - kHeadGap, cell.height),
                       cell.font.characterSet == ui::CharacterSet::Utf8};
  if (grid.columns < kLeastColumns || grid.rows < kLeastRows) {
    throw base::Error(base::ErrorNumber::InvalidCall,
                      "გვერდის ველები ტექსტს ადგილს არ უტოვებს. შეამცირეთ ველები ან შრიფტი.");
  }
  return grid;
}

}  // namespace

PrintSheet::PrintSheet(const PrintSource& source, const ui::PageSetup& setup, bool lineNumbers)
    : source_(source),
      size_{unitsOf(setup.width), unitsOf(setup.height)},
      inner_(innerOf(setup)),
      numberColumns_(lineNumbers ? columnsForNumbers(source) : 0),
      grid_(gridOf(inner_, source.cell, numberColumns_)),
      layout_(source.text, grid_) {}

void PrintSheet::paint(ui::Canvas& canvas, int at) const {
  paintHead(canvas, at);
  double top = inner_.top + kHeadHeight + kHeadGap;
  for (const PrintRow& row : layout_.page(at)) {
    paintRow(canvas, row, top);
    top += source_.cell.height;
  }
}

void PrintSheet::paintHead(ui::Canvas& canvas, int at) const {
  ui::TextStyle right;
  right.align = ui::TextStyle::Align::Right;
  const int number = std::min(kPageNumberWidth, inner_.width / 2);
  canvas.text({inner_.left, inner_.top, inner_.width - number, kHeadHeight}, source_.title, kBlack);
  canvas.text({inner_.right() - number, inner_.top, number, kHeadHeight}, pageOf(at, layout_.pages()), kBlack,
              right);
  const int under = inner_.top + kHeadHeight;
  canvas.line({inner_.left, under}, {inner_.right(), under}, kBlack);
}

void PrintSheet::paintRow(ui::Canvas& canvas, const PrintRow& row, double top) const {
  const double advance = source_.cell.width;
  const auto area = [&](int column, int columns) {
    const auto edge = [&](int at) { return inner_.left + static_cast<int>(std::lround(at * advance)); };
    const auto above = static_cast<int>(std::lround(top));
    const auto below = static_cast<int>(std::lround(top + source_.cell.height));
    return ui::Rect{edge(column), above, edge(column + columns) - edge(column), below - above};
  };
  ui::TextStyle letters;
  letters.font = source_.cell.font;
  letters.bytes = true;
  letters.advance = advance;
  if (numberColumns_ > 0 && !row.continued) {
    const std::string number = std::to_string(source_.firstLine + row.line);
    const int digits = static_cast<int>(number.size());
    canvas.text(area(numberColumns_ - 1 - digits, digits), number, kBlack, letters);
  }
  if (row.continued) canvas.text(area(numberColumns_, kContinuedIndent), "»", kBlack);
  const int indent = row.continued ? kContinuedIndent : 0;
  const std::string shown = rowText(source_.text, row, grid_);
  if (!shown.empty()) {
    canvas.text(area(numberColumns_ + indent, grid_.columns - indent), shown, kBlack, letters);
  }
}

std::string pageOf(int at, int pages) {
  return "გვერდი " + std::to_string(at + 1) + " / " + std::to_string(pages);
}

}  // namespace print
