// Byte text divided into rows and pages for letters of one width. No device needed.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace print {

inline constexpr int kPrintTab = 8;         // columns between tab stops, counted from the row's text
inline constexpr int kContinuedIndent = 2;  // columns for the mark before the rest of a long line

struct PrintGrid {
  int columns;        // above kContinuedIndent
  int rows;           // of a page, above 0
  bool utf8 = false;  // a letter of UTF-8 takes one column, like a byte that is none; else every byte does
};

struct PrintRow {
  std::size_t begin;  // bytes of the text, without line ends
  std::size_t end;
  std::size_t line;  // that it belongs to, from 0
  bool continued;    // the rest of a line that is too long for one row
};

class PrintLayout {
 public:
  // CR LF, LF and CR end a line; behind the last line end no further line begins.
  PrintLayout(std::string_view text, PrintGrid grid);
  int pages() const;                             // an empty text has one
  std::span<const PrintRow> page(int at) const;  // from 0
  const std::vector<PrintRow>& rows() const { return rows_; }

 private:
  void addLine(std::string_view text, std::size_t begin, std::size_t end, std::size_t line);

  PrintGrid grid_;
  std::vector<PrintRow> rows_;
};

// Lines as the layout counts them.
std::size_t printedLines(std::string_view text);

// The row as it is drawn: spaces for tabs, NUL for bytes that have no letter.
std::string rowText(std::string_view text, const PrintRow& row, const PrintGrid& grid);

}  // namespace print
