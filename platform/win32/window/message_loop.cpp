#include "platform/win32/window/message_loop.h"

#include <algorithm>
#include <utility>

#include "platform/win32/system/errors.h"

namespace win32 {
namespace {

constexpr UINT kPause = 500;  // milliseconds

bool isInput(UINT message) {
  return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
         (message > WM_MOUSEMOVE && message <= WM_MOUSELAST) || message == WM_COMMAND || message >= WM_APP;
}

// Of the user-interface thread, the only one.
std::vector<LoopWindow*>& windows() {
  static std::vector<LoopWindow*> list;
  return list;
}

}  // namespace

LoopWindow::LoopWindow(HWND window, std::function<bool(MSG&)> translate)
    : window_(window), translate_(std::move(translate)) {
  windows().push_back(this);
}

LoopWindow::~LoopWindow() {
  auto& list = windows();
  list.erase(std::remove(list.begin(), list.end(), this), list.end());
}

void dispatch(MSG& message) {
  for (const LoopWindow* entry : windows()) {
    if (message.hwnd != entry->window_ && IsChild(entry->window_, message.hwnd) == 0) continue;
    // A copy: what the key does may close the window, and the entry goes with it.
    const std::function<bool(MSG&)> translate = entry->translate_;
    if (guarded([&] { return translate(message); }, true)) return;
    break;
  }
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

HWND activeWindow() {
  const HWND active = GetActiveWindow();
  HWND newest = nullptr;
  for (const LoopWindow* entry : windows()) {
    if (entry->window_ == active) return active;
    if (IsWindowEnabled(entry->window_) != 0 && IsWindowVisible(entry->window_) != 0) newest = entry->window_;
  }
  return newest;
}

ModalRun::ModalRun(HWND except) {
  for (const LoopWindow* entry : windows()) {
    if (entry->window_ == except || IsWindowEnabled(entry->window_) == 0) continue;
    EnableWindow(entry->window_, FALSE);
    disabled_.push_back(entry->window_);
  }
}

ModalRun::~ModalRun() {
  for (const HWND window : disabled_) EnableWindow(window, TRUE);
}

void ModalRun::until(const std::function<bool()>& done) {
  while (!done()) {
    MSG message;
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got <= 0) {
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    dispatch(message);
  }
}

void pumpMessages() {
  constexpr DWORD kLongest = 200;  // milliseconds; timers may come faster than they are dealt with
  MSG message;
  const DWORD start = GetTickCount();
  while (GetTickCount() - start < kLongest && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    dispatch(message);
  }
}

int runMessageLoop(const std::function<void()>& idle, const std::function<void()>& pause,
                   const std::function<int()>& background) {
  MSG message;
  UINT_PTR timer = SetTimer(nullptr, 0, kPause, nullptr);
  for (;;) {
    while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == 0) {
      const int wait = background();
      if (wait < 0) break;
      if (wait > 0) {
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(wait), QS_ALLINPUT, MWMO_INPUTAVAILABLE);
      }
    }
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) break;
    if (message.hwnd == nullptr && message.message == WM_TIMER && message.wParam == timer) {
      KillTimer(nullptr, std::exchange(timer, 0));
      pause();
      continue;
    }
    dispatch(message);
    if (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) == 0) idle();
    // The blinking of the caret is nothing that the user does.
    if (isInput(message.message)) timer = SetTimer(nullptr, timer, kPause, nullptr);
  }
  return static_cast<int>(message.wParam);
}

}  // namespace win32
