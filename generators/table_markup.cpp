#include "generators/table_markup.h"

#include <charconv>
#include <vector>

#include "base/text.h"

namespace generators {
namespace {

// The number that a part begins with; none: 0; too large: -1.
int numberAtStart(std::string_view part) {
  part = base::trimSpaces(part);
  int number = 0;
  const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), number);
  return error == std::errc::result_out_of_range ? -1 : number;
}

std::string_view borderAttributes(int style) {
  switch (style) {
    case 0:
      return "BORDER=\"1\" ";
    case 1:
      return "BORDER=\"1\" CELLSPACING=\"0\" BORDERCOLOR=\"#000000\" ";
    default:
      return "";
  }
}

}  // namespace

std::string tableChoice(int lastColumn, int lastRow, TableBorder border) {
  return std::to_string(lastColumn) + "|" + std::to_string(lastRow) + "|" +
         std::to_string(static_cast<int>(border));
}

std::string tableMarkup(std::string_view choice) {
  constexpr std::size_t kShortest = 5;
  if (choice.size() < kShortest) return {};
  const std::vector<std::string> parts = base::split(choice, "|");
  if (parts.size() < 3) return {};
  const int lastColumn = numberAtStart(parts[0]);
  const int lastRow = numberAtStart(parts[1]);
  if (lastColumn < 0 || lastColumn >= kMostCells || lastRow < 0 || lastRow >= kMostCells) return {};

  // C2 and a blank: what the cells have always been filled with, so that browsers draw them.
  const std::string cell = "<TD WIDTH=\"" + std::to_string(100 / (lastColumn + 1)) + "%\">\xC2 </TD>\r\n";
  std::string row = "<TR>\r\n";
  for (int column = 0; column <= lastColumn; ++column) row += cell;
  row += "</TR>\r\n";
  std::string table =
      "<TABLE " + std::string(borderAttributes(numberAtStart(parts[2]))) + "WIDTH=\"100%\">\r\n";
  for (int i = 0; i <= lastRow; ++i) table += row;
  return table + "</TABLE>\r\n";
}

}  // namespace generators
