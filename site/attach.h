// The conversion of a whole site in the main window: its command and its window.
#pragma once

#include <memory>

#include "app/workbench.h"
#include "site/frmsite.h"

namespace site {

// Adds the command to the File menu. `bench` must outlive the result; the result lives as long as the main
// window shows.
std::unique_ptr<frmsite> attach(app::Workbench& bench);

}  // namespace site
