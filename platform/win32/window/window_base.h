// A window of a class of ours, tied to its object from WM_NCCREATE to WM_NCDESTROY.
#pragma once

#include "platform/win32/system/errors.h"
#include "platform/win32/system/windows_api.h"

namespace win32 {

// Derived: `LRESULT handle(UINT, WPARAM, LPARAM)`, which may throw.
template <class Derived>
class WindowBase {
 public:
  WindowBase() = default;
  WindowBase(const WindowBase&) = delete;
  WindowBase& operator=(const WindowBase&) = delete;

  HWND hwnd() const { return hwnd_; }

 protected:
  ~WindowBase() {
    if (hwnd_ != nullptr) DestroyWindow(hwnd_);
  }

  // Registers `className` at first use. `classSetup` may change the class before that.
  template <class ClassSetup>
  HWND create(const wchar_t* className, DWORD style, DWORD exStyle, HWND parent, ClassSetup classSetup) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.lpszClassName = className;
    classSetup(windowClass);
    RegisterClassExW(&windowClass);  // fails harmlessly when it is there already
    return CreateWindowExW(exStyle, className, L"", style, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, parent, nullptr, windowClass.hInstance,
                           static_cast<Derived*>(this));
  }

  LRESULT defaultHandling(UINT message, WPARAM wParam, LPARAM lParam) const {
    return DefWindowProcW(hwnd_, message, wParam, lParam);
  }

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
      auto* const object =
          static_cast<Derived*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
      object->hwnd_ = window;
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
    }
    auto* const object = reinterpret_cast<Derived*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
    const LRESULT result = guarded([&] { return object->handle(message, wParam, lParam); }, LRESULT{0});
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      object->hwnd_ = nullptr;
    }
    return result;
  }

  HWND hwnd_ = nullptr;
};

}  // namespace win32
