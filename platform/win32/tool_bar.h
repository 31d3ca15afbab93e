// The strip of buttons under the menu bar.
#pragma once

#include <vector>

#include "platform/win32/windows_api.h"
#include "ui/tool_bar.h"

namespace win32 {

// Its buttons send WM_COMMAND with their command.
HWND makeToolBar(HWND parent, const std::vector<ui::ToolBarButton>& buttons);
// For WM_NOTIFY of the parent: true when the bar asked for a tool tip and got it.
bool giveToolBarHint(HWND bar, const std::vector<ui::ToolBarButton>& buttons, LPARAM notification);

}  // namespace win32
