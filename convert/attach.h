// Text conversion in the main window: tables, commands, typing modes and status panels.
#pragma once

#include <memory>

#include "app/workbench.h"
#include "convert/conversions.h"
#include "convert/letter_tables.h"
#include "convert/letters_commands.h"
#include "convert/status_panels.h"
#include "convert/typing_mode.h"

namespace convert {

class Attached {
 public:
  explicit Attached(app::Workbench& bench);

  const LetterTables tables;
  const Conversions conversions;
  const Typing typing;
  const StatusPanels panels;
  const LettersCommands letters;
};

// Reads the tables from the program's resources; call it before documents are opened. The result and `bench`
// must live as long as the main window shows.
std::unique_ptr<Attached> attach(app::Workbench& bench);

}  // namespace convert
