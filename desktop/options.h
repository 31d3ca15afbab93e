// The options command of the View menu.
#pragma once

#include "app/workbench.h"

namespace desktop {

void attachOptions(app::Workbench& bench);

}  // namespace desktop
