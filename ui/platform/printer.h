// Printing, as the program asks it of its platform.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "ui/code_view.h"
#include "ui/picture.h"

namespace ui {

// A sheet of paper and its margins. Lengths in 1/100 mm, of the sheet as it lies.
struct PageSetup {
  int paper = 9;  // the system's number of the paper (9: A4); 0: by its size alone
  bool landscape = false;
  int width = 21000;
  int height = 29700;
  int left = 2000;
  int top = 2000;
  int right = 2000;
  int bottom = 2000;
  bool operator==(const PageSetup&) const = default;
};

// The room of one letter of a code font, in 1/96 inch: the same on every device.
struct CodeCell {
  Font font;  // complete: name and size are there
  double width = 0;
  double height = 0;
};

// A job on the printer that the user chose. Every call but the destructor may throw base::Error.
class PrintJob {
 public:
  virtual ~PrintJob() = default;   // a job that was begun and not finished is thrown away
  virtual Size sheet() const = 0;  // in 1/100 mm, of the paper that will be used
  // `name` stands in the system's list of jobs. False: the user cancelled (he was asked for a file).
  virtual bool begin(const std::string& name) = 0;
  virtual Canvas& beginPage() = 0;  // its corner is the sheet's, also where the device cannot print
  virtual void endPage() = 0;
  virtual void finish() = 0;
};

struct PrintRequest {
  int pages = 1;  // of the whole text
  bool hasSelection = false;
  PageSetup setup;
};

struct PrintChoice {
  bool selection = false;  // else the pages from `first` to `last`, both from 1
  int first = 1;
  int last = 1;
  int copies = 1;
  bool collated = true;  // a whole copy after the other
  std::unique_ptr<PrintJob> job;
};

class Printer {
 public:
  virtual ~Printer() = default;
  virtual CodeCell codeCell(const Font& font) = 0;
  // The system's dialogs. Nothing (false) when cancelled; base::Error when there is no printer.
  virtual bool pageSetup(PageSetup& setup) = 0;
  virtual std::optional<PrintChoice> choose(const PrintRequest& request) = 0;
};

}  // namespace ui
