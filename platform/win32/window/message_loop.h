// The one message loop: shortcuts, dialog keys, and which windows of ours are there.
#pragma once

#include <functional>
#include <vector>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// A top-level window of the program, in the loop's care while the object lives.
class LoopWindow {
 public:
  // `translate` sees every message for the window or its children before it is dispatched; true: handled.
  LoopWindow(HWND window, std::function<bool(MSG&)> translate);
  LoopWindow(const LoopWindow&) = delete;
  LoopWindow& operator=(const LoopWindow&) = delete;
  ~LoopWindow();

 private:
  friend void dispatch(MSG& message);
  friend HWND activeWindow();
  friend class ModalRun;
  HWND window_;
  std::function<bool(MSG&)> translate_;
};

// Translates and dispatches one message.
void dispatch(MSG& message);

// The window of ours to own a new dialog: the active one, else the newest enabled one, else none.
HWND activeWindow();

// Disables all windows of ours but one for its life.
class ModalRun {
 public:
  explicit ModalRun(HWND except);
  ModalRun(const ModalRun&) = delete;
  ModalRun& operator=(const ModalRun&) = delete;
  ~ModalRun();
  // Runs until `done`, or the program is told to end (the request is passed on).
  static void until(const std::function<bool()>& done);

 private:
  std::vector<HWND> disabled_;
};

void pumpMessages();  // what is pending now; a request to end stays pending
// Until the program is told to end. `idle` runs each time the queue has become empty, `pause` once when it
// has then been empty for half a second. `background` is called while it is empty, after as many milliseconds
// as it has answered, and after each event; -1: not until the next one.
int runMessageLoop(const std::function<void()>& idle, const std::function<void()>& pause,
                   const std::function<int()>& background);

}  // namespace win32
