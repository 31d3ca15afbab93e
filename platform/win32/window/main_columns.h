// Where the panes of the main window stand side by side.
#pragma once

#include "platform/win32/system/windows_api.h"
#include "ui/main_form.h"

namespace win32 {

// In client pixels, from left to right; a column that is hidden is empty, and its splitter too.
struct Columns {
  RECT left;
  RECT leftSplitter;
  RECT middle;
  RECT rightSplitter;
  RECT right;
};

// Of `area`, where what is beside the code view gets the width the user wants, as far as there is room.
Columns columnsOf(const RECT& area, int dpi, ui::PaneWidths wanted, bool left, bool right);

}  // namespace win32
