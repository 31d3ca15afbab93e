// How pages are printed, kept for the next run.
#pragma once

#include "ui/platform/platform.h"

namespace print {

struct PrintSettings {
  ui::PageSetup setup;
  bool lineNumbers = false;
  bool operator==(const PrintSettings&) const = default;
};

PrintSettings readPrintSettings(const ui::Platform& platform);  // the usual ones for none or damaged ones
void writePrintSettings(ui::Platform& platform, const PrintSettings& settings);

}  // namespace print
