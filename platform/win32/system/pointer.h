// The hourglass.
#pragma once

namespace win32 {

void setHourglass(bool on);  // calls nest
// For WM_SETCURSOR: puts the hourglass up when it is on; true: done.
bool showHourglass();

}  // namespace win32
