#include "platform/win32/window/drag.h"

#include <cstdlib>

namespace win32 {
namespace {

// A window of this thread under the place; others are not asked.
HWND ownWindowAt(POINT screen) {
  const HWND window = WindowFromPoint(screen);
  return window != nullptr && GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId() ? window
                                                                                                : nullptr;
}

class Drag {
 public:
  explicit Drag(HWND source) : source_(source) { SetCapture(source); }
  Drag(const Drag&) = delete;
  Drag& operator=(const Drag&) = delete;
  ~Drag() {
    leave();
    if (GetCapture() == source_) ReleaseCapture();
  }

  // False: it is over.
  bool step(const MSG& message) {
    switch (message.message) {
      case WM_MOUSEMOVE:
      case WM_LBUTTONUP: {
        POINT screen{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
        ClientToScreen(source_, &screen);
        const bool drop = message.message == WM_LBUTTONUP;
        over(screen, drop ? kDragDrop : kDragOver);
        return !drop;
      }
      case WM_KEYDOWN:
        return message.wParam != VK_ESCAPE;
      case WM_RBUTTONDOWN:
        return false;
      default:
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return GetCapture() == source_;
    }
  }
  HWND taken() const { return taken_; }

 private:
  void over(POINT screen, DragStep step) {
    const HWND window = ownWindowAt(screen);
    if (window != over_) leave();
    over_ = window;
    const bool takes =
        window != nullptr && SendMessageW(window, kDragMessage, step, MAKELPARAM(screen.x, screen.y)) != 0;
    SetCursor(LoadCursorW(nullptr, takes ? IDC_HAND : IDC_NO));
    if (step == kDragDrop && takes) taken_ = window;
  }
  void leave() {
    if (over_ != nullptr) SendMessageW(over_, kDragMessage, kDragLeave, 0);
    over_ = nullptr;
  }

  HWND source_;
  HWND over_ = nullptr;
  HWND taken_ = nullptr;
};

}  // namespace

bool beyondClick(POINT pressed, POINT now) {
  return std::abs(now.x - pressed.x) > GetSystemMetrics(SM_CXDRAG) ||
         std::abs(now.y - pressed.y) > GetSystemMetrics(SM_CYDRAG);
}

HWND drag(HWND source) {
  Drag run(source);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (!run.step(message)) return run.taken();
  }
  PostQuitMessage(static_cast<int>(message.wParam));  // the program ends meanwhile: its loop must see it
  return nullptr;
}

}  // namespace win32
