// A window for controls under test.
#pragma once

#include "platform/win32/system/windows_api.h"

namespace tests {

class TestWindow {
 public:
  TestWindow()
      : window_(CreateWindowExW(0, L"STATIC", L"test", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 640, 480,
                                nullptr, nullptr, nullptr, nullptr)) {}
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;
  ~TestWindow() { DestroyWindow(window_); }
  HWND hwnd() const { return window_; }

 private:
  HWND window_;
};

}  // namespace tests
