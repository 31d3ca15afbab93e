// Small pictures drawn from their one source, with smooth edges at any density.
#pragma once

#include <string_view>
#include <vector>

#include "platform/win32/system/handles.h"

namespace win32 {

// What the inks of a drawing become.
struct IconColors {
  COLORREF text;
  COLORREF back;       // what is behind the picture: no ink may vanish on it
  bool plain = false;  // everything in the text's colour: high contrast, a highlighted or a disabled item
  COLORREF own = 0;    // a colour that is what the picture is about: shown as it is
  bool operator==(const IconColors&) const = default;
};
// In system colours; plain when the user wants high contrast.
IconColors systemIconColors(int textColor, int backColor);
bool highContrast();

struct Icon {
  std::string_view drawing;
  IconColors colors;
};
// Side by side, in a bitmap of 32 bits with premultiplied transparency; each `size` pixels square. Null: no
// memory.
UniqueBitmap iconStrip(const std::vector<Icon>& icons, int size);
UniqueImages iconImages(const std::vector<Icon>& icons, int size);
// Over what is there; `at` is the left top corner. Pictures are kept for the next time.
void drawIcon(HDC canvas, std::string_view drawing, POINT at, int size, const IconColors& colors);

}  // namespace win32
