// Printing as a part of the program: page set-up, preview, and the job itself.
#pragma once

#include "app/workbench.h"
#include "print/print_settings.h"
#include "print/print_sheet.h"

namespace print {

// The shown document, from its selection alone when wanted.
PrintSource shownSource(app::Workbench& bench, bool selection);

// The printer; throws base::Error where there is none to ask.
ui::Printer& printerOf(ui::Platform& platform);

// The print dialog and then the job, for the shown document.
void printShown(app::Workbench& bench, const PrintSettings& settings);

// Adds the commands to the main window, which must outlive them.
void attachPrinting(app::Workbench& bench);

}  // namespace print
