// The conversion of a whole page's letters in the main window: its command, and the form of the shown
// document in the status bar.
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_set>

#include "app/workbench.h"
#include "convert/font_table.h"
#include "convert/frmletters.h"

namespace convert {

// Adds the command to the Edit menu. `bench` must outlive it.
class LettersCommands {
 public:
  explicit LettersCommands(app::Workbench& bench);
  LettersCommands(const LettersCommands&) = delete;
  LettersCommands& operator=(const LettersCommands&) = delete;

 private:
  void readFonts();
  void showForm();

  app::Workbench& bench_;
  frmletters window_;
  FontTable fonts_;
  bool stale_ = true;
  std::unordered_set<std::uint64_t> offered_;  // documents, by number: the conversion is offered once
};

}  // namespace convert
