#include "platform/win32/drawing/file_icons.h"

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/vector_icons.h"
#include "ui/icons/tool_drawings.h"

namespace win32 {

UniqueImages fileIcons(int dpi) {
  const IconColors colors = systemIconColors(COLOR_WINDOWTEXT, COLOR_WINDOW);
  std::vector<Icon> icons;
  for (int icon = 0; icon < ui::kFileIcons; ++icon) {
    icons.push_back({ui::fileDrawing(static_cast<ui::FileIcon>(icon)), colors});
  }
  return iconImages(icons, scaled(16, dpi));
}

int imageOf(const ui::FileIcons& icons, int number) {
  const auto found = icons.find(number);
  return found == icons.end() ? I_IMAGENONE : static_cast<int>(found->second);
}

}  // namespace win32
