// A text as it stands on paper: pages of a size, drawn alike on a printer and on the screen.
#pragma once

#include <cstddef>
#include <string>

#include "print/print_layout.h"
#include "ui/picture.h"
#include "ui/platform/printer.h"

namespace print {

// What is printed, whatever the paper.
struct PrintSource {
  std::string text;   // byte text
  std::string title;  // UTF-8, in the head of each page
  ui::CodeCell cell;
  std::size_t firstLine = 1;  // number of the text's first line
};

class PrintSheet {
 public:
  // `source` must outlive the sheet. Throws base::Error when the margins leave no room for a text.
  PrintSheet(const PrintSource& source, const ui::PageSetup& setup, bool lineNumbers);

  const PrintLayout& layout() const { return layout_; }
  const PrintGrid& grid() const { return grid_; }
  ui::Size size() const { return size_; }  // of the paper, in 1/96 inch
  // Page `at` from 0, black on nothing.
  void paint(ui::Canvas& canvas, int at) const;

 private:
  void paintHead(ui::Canvas& canvas, int at) const;
  void paintRow(ui::Canvas& canvas, const PrintRow& row, double top) const;

  const PrintSource& source_;
  ui::Size size_;
  ui::Rect inner_;  // within the margins, in 1/96 inch
  int numberColumns_;
  PrintGrid grid_;
  PrintLayout layout_;
};

// "გვერდი 2 / 5", of a page from 0.
std::string pageOf(int at, int pages);

}  // namespace print
