// Handles the messages of a window of another class before that class does.
#pragma once

#include "platform/win32/system/errors.h"
#include "platform/win32/system/windows_api.h"

namespace win32 {

// Derived: `LRESULT handleOf(HWND, UINT, WPARAM, LPARAM)`, which passes on what it does not handle with
// forward(). One object may watch several windows, each once; the watch ends with the window.
template <class Derived>
class Subclass {
 public:
  Subclass() = default;
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;

 protected:
  ~Subclass() = default;

  void watch(HWND window) { SetWindowSubclass(window, procedure, id(), 0); }
  void unwatch(HWND window) { RemoveWindowSubclass(window, procedure, id()); }
  static LRESULT forward(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefSubclassProc(window, message, wParam, lParam);
  }

 private:
  UINT_PTR id() { return reinterpret_cast<UINT_PTR>(static_cast<Derived*>(this)); }
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR) {
    auto* const object = reinterpret_cast<Derived*>(id);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(window, procedure, id);
    return guarded([&] { return object->handleOf(window, message, wParam, lParam); }, LRESULT{0});
  }
};

}  // namespace win32
