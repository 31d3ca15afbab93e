// The conversion commands of the Edit menu, and copying.
#pragma once

#include "app/workbench.h"
#include "convert/conversions.h"

namespace convert {

// Both arguments must outlive the commands.
void addConversionCommands(app::Workbench& bench, const Conversions& conversions);

}  // namespace convert
