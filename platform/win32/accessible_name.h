// What screen readers call a control that shows no name of its own.
#pragma once

#include <string>

#include "platform/win32/windows_api.h"

namespace win32 {

// Nothing happens where the system does not know such names. Needs COM.
void setAccessibleName(HWND window, const std::wstring& name);

}  // namespace win32
