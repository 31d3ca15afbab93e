// Shown while pages go to the printer: how far it is, and a button to stop.
#pragma once

#include <vector>

#include "print/print_sheet.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"
#include "ui/platform/printer.h"

namespace print {

// The pages of a job in the order in which they are printed, from 0; `first` and `last` are limited to those
// that are there.
std::vector<int> printOrder(const ui::PrintChoice& choice, int pages);

class frmprint : public ui::Form {
 public:
  // Prints `pages` of `sheet` as soon as it is shown, and closes itself. All must outlive the form.
  frmprint(ui::Platform& platform, ui::PrintJob& job, const PrintSheet& sheet, std::vector<int> pages,
           std::string name);

  ui::Label Lpage{*this, IDC_frmprint_Lpage};
  ui::ProgressBar Bar{*this, IDC_frmprint_Bar};
  ui::Button CEXIT{*this, IDC_frmprint_CEXIT};

  void shown() override;
  bool queryClose() override;  // stops the run, which then closes the form

 private:
  void run();
  void stop();

  ui::Platform& platform_;
  ui::PrintJob& job_;
  const PrintSheet& sheet_;
  std::vector<int> pages_;
  std::string name_;
  bool stop_ = false;
};

}  // namespace print
