// What the settings say of the code view's looks.
#pragma once

#include "app/props_record.h"
#include "ui/code_view.h"

namespace app {

// `systemIsDark`: the user has chosen dark windows in the system.
ui::CodeLook codeLook(const PropsRecord& props, bool systemIsDark);

}  // namespace app
