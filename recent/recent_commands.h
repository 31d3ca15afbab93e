// The recent files in the main window: the dialog, the first nine in the File menu, the start-up action.
#pragma once

#include "app/workbench.h"

namespace recent {

// Adds rows and handlers to the main window; `bench` must outlive them.
void attach(app::Workbench& bench);

}  // namespace recent
