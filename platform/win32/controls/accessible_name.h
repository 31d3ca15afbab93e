// What screen readers call a control that shows no name of its own.
#pragma once

#include <string>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// A static text stands right before the control in its window.
bool hasLabel(HWND control);

// A field that holds text is named by the label before it: it gets a hidden one. `label` is that of an
// earlier window of the same control, to be used again; the label is returned, null for other controls.
HWND setAccessibleName(HWND control, const std::wstring& name, HWND label = nullptr);

}  // namespace win32
