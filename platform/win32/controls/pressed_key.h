// The key of a message with the modifiers that are down.
#pragma once

#include "platform/win32/system/windows_api.h"
#include "ui/menu.h"

namespace win32 {

inline ui::Shortcut pressedKey(WPARAM key) {
  const auto down = [](int modifier) { return GetKeyState(modifier) < 0; };
  return {static_cast<int>(key), down(VK_CONTROL), down(VK_SHIFT), down(VK_MENU)};
}

}  // namespace win32
