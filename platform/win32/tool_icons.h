// The pictures of the tool bar, drawn by code: sharp at any density.
#pragma once

#include "platform/win32/windows_api.h"
#include "ui/tool_bar.h"

namespace win32 {

// Draws a picture into a square of `size` pixels whose corner is `at`, in the system's text colour. The
// background is the caller's.
void drawToolIcon(HDC canvas, ui::ToolIcon icon, POINT at, int size);

}  // namespace win32
