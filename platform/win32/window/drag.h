// Dragging something of the program's own from one of its controls to another.
#pragma once

#include "platform/win32/system/windows_api.h"

namespace win32 {

// Sent to the window under the pointer; TRUE: it takes what is dragged. lParam: the place on the screen.
inline constexpr UINT kDragMessage = WM_APP + 4;
// Its wParam: the pointer is over the window; the button was released there, and the window makes the place
// its own; the pointer has left, or the user gave it up.
enum DragStep : WPARAM { kDragOver, kDragDrop, kDragLeave };

// The pointer has moved far enough from where the button went down for a drag.
bool beyondClick(POINT pressed, POINT now);

// Follows the pointer from `source`, where the button is down, until it is released: the window that took the
// drop, or null. Esc, the other button and a lost capture give up.
HWND drag(HWND source);

}  // namespace win32
