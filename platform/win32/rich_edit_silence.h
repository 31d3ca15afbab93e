// What the parts of the code view share.
#pragma once

#include "platform/win32/rich_edit_code_view.h"
// After windows.h, which it needs.
#include <richedit.h>

namespace win32 {

// From this many lines on a new control is faster than taking them out of the old one.
inline constexpr int kManyLines = 500;

inline constexpr LPARAM kControlEvents = ENM_CHANGE | ENM_SELCHANGE;

// Keeps the control from reporting what the program does, and from drawing it step by step.
class RichEditCodeView::Silence {
 public:
  explicit Silence(const RichEditCodeView& view) : view_(view) {
    view_.send(EM_SETEVENTMASK, 0, ENM_NONE);
    view_.send(WM_SETREDRAW, FALSE);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;
  ~Silence() {
    view_.send(WM_SETREDRAW, TRUE);
    view_.send(EM_SETEVENTMASK, 0, kControlEvents);
    InvalidateRect(view_.edit_, nullptr, TRUE);
  }

 private:
  const RichEditCodeView& view_;
};

}  // namespace win32
