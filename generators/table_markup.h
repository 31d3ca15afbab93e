// The markup of a new table from its specification.
#pragma once

#include <string>
#include <string_view>

namespace generators {

enum class TableBorder { Border = 0, Line = 1, None = 2 };

// "2|1|0": last column, last row (both from 0) and border style.
std::string tableSpecification(int lastColumn, int lastRow, TableBorder border);

// Empty when the specification is shorter than five characters, has less than three parts, or asks for less
// than one or more than kMostCells columns or rows.
inline constexpr int kMostCells = 1000;
std::string tableMarkup(std::string_view specification);

}  // namespace generators
