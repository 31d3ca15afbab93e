// Handles that close themselves.
#pragma once

#include <utility>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// `Close` is called with a handle that is not null.
template <class Handle, auto Close>
class Unique {
 public:
  Unique() = default;
  explicit Unique(Handle handle) : handle_(handle) {}
  Unique(Unique&& other) noexcept : handle_(std::exchange(other.handle_, Handle{})) {}
  Unique& operator=(Unique&& other) noexcept {
    reset(std::exchange(other.handle_, Handle{}));
    return *this;
  }
  Unique(const Unique&) = delete;
  Unique& operator=(const Unique&) = delete;
  ~Unique() { reset(); }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle{}; }
  Handle release() { return std::exchange(handle_, Handle{}); }
  void reset(Handle handle = Handle{}) {
    if (handle_ != Handle{}) Close(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_{};
};

template <class Interface>
inline void releaseInterface(Interface* object) {
  object->Release();
}

// Named, because a lambda would be another type in every file. Some of the calls have a calling convention
// of their own and a result that nobody needs.
inline void closeObject(HGDIOBJ object) {
  DeleteObject(object);
}
inline void closeCanvas(HDC canvas) {
  DeleteDC(canvas);
}
inline void closeImages(HIMAGELIST images) {
  ImageList_Destroy(images);
}
inline void closeIcon(HICON icon) {
  DestroyIcon(icon);
}
inline void closeWindow(HWND window) {
  DestroyWindow(window);
}
inline void closeLibrary(HMODULE library) {
  FreeLibrary(library);
}
inline void closeHandle(HANDLE handle) {
  CloseHandle(handle);
}
inline void closeKey(HKEY key) {
  RegCloseKey(key);
}
inline void closeMenu(HMENU menu) {
  DestroyMenu(menu);
}

using UniqueBitmap = Unique<HBITMAP, closeObject>;
using UniqueBrush = Unique<HBRUSH, closeObject>;
using UniqueCanvas = Unique<HDC, closeCanvas>;
using UniqueIcon = Unique<HICON, closeIcon>;
using UniqueImages = Unique<HIMAGELIST, closeImages>;
using UniqueFont = Unique<HFONT, closeObject>;
using UniqueHandle = Unique<HANDLE, closeHandle>;
using UniqueWindow = Unique<HWND, closeWindow>;
using UniqueLibrary = Unique<HMODULE, closeLibrary>;
using UniqueKey = Unique<HKEY, closeKey>;
using UniqueMenu = Unique<HMENU, closeMenu>;
template <class Interface>
using UniqueCom = Unique<Interface*, releaseInterface<Interface>>;

}  // namespace win32
