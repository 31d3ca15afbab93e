// The web project dialog in the main window's menus.
#pragma once

#include "app/workbench.h"

namespace project {

// `bench` must outlive the rows added.
void attach(app::Workbench& bench);

}  // namespace project
