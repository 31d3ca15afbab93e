#include "platform/win32/drawing/dpi.h"

namespace win32 {

int systemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

int dpiOf(HWND window) {
  // Windows before 10 does not have it, and no screens of different density.
  using GetDpi = UINT(WINAPI*)(HWND);
  static const auto getDpi = reinterpret_cast<GetDpi>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "GetDpiForWindow")));
  const UINT dpi = getDpi != nullptr ? getDpi(window) : 0;
  return dpi != 0 ? static_cast<int>(dpi) : systemDpi();
}

}  // namespace win32
