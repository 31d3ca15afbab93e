// The markup of a new table from what was chosen.
#pragma once

#include <string>
#include <string_view>

namespace generators {

enum class TableBorder { Border = 0, Line = 1, None = 2 };

// What was chosen, as one text: "2|1|0" is last column, last row (both from 0) and border style.
std::string tableChoice(int lastColumn, int lastRow, TableBorder border);

// Empty when the choice is shorter than five characters, has less than three parts, or asks for less
// than one or more than kMostCells columns or rows.
inline constexpr int kMostCells = 1000;
std::string tableMarkup(std::string_view choice);

}  // namespace generators
