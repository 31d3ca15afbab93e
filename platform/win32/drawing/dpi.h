// Sizes on screens of different density.
#pragma once

#include "platform/win32/system/windows_api.h"

namespace win32 {

inline constexpr int kBaseDpi = 96;
int systemDpi();
int dpiOf(HWND window);  // of the screen that the window is on
inline int scaled(int pixelsAt96, int dpi) {
  return MulDiv(pixelsAt96, dpi, kBaseDpi);
}

}  // namespace win32
