// The options command of the View menu.
#pragma once

#include "app/workbench.h"

namespace options {

void attachOptions(app::Workbench& bench);

}  // namespace options
