// Takes files and text that are dropped on a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/system/windows_api.h"
#include "ui/code_view.h"

namespace win32 {

struct DropHandlers {
  std::function<void(const std::vector<std::string>&)> files;        // UTF-8 paths
  std::function<void(const ui::TextClip& clip, POINT screen)> text;  // none: text is not taken
};

// Needs OleInitialize(). Valid until the window goes or undoDrops(); failure leaves the window without drops.
void takeDrops(HWND window, DropHandlers handlers);
void undoDrops(HWND window);

// The paths of a WM_DROPFILES message; frees the handle of one that came as message when `finish`.
std::vector<std::string> droppedFiles(WPARAM drop, bool finish);

}  // namespace win32
