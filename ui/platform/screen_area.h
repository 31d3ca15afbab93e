// A part of the screen.
#pragma once

namespace ui {

struct ScreenArea {  // in pixels of the virtual screen; right and bottom are not part of it
  int left;
  int top;
  int right;
  int bottom;
  bool operator==(const ScreenArea&) const = default;
};

}  // namespace ui
