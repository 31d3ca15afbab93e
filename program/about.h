// The about box as a part of the program.
#pragma once

#include "app/workbench.h"

namespace program {

// Adds the command to the main window, which must outlive it.
void attachAbout(app::Workbench& bench);

}  // namespace program
