#include "platform/win32/drawing/file_icons.h"

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/vector_icons.h"
#include "ui/icons/tool_drawings.h"

namespace win32 {

UniqueImages fileIcons(int dpi) {
  const int size = scaled(16, dpi);
  UniqueImages images(ImageList_Create(size, size, ILC_COLOR32, ui::kFileIcons, 0));
  const IconColors colors = systemIconColors(COLOR_WINDOWTEXT, COLOR_WINDOW);
  for (int icon = 0; icon < ui::kFileIcons; ++icon) {
    const UniqueBitmap bitmap = iconBitmap(ui::fileDrawing(static_cast<ui::FileIcon>(icon)), size, colors);
    ImageList_Add(images.get(), bitmap.get(), nullptr);
  }
  return images;
}

int imageOf(const ui::FileIcons& icons, int number) {
  const auto found = icons.find(number);
  return found == icons.end() ? I_IMAGENONE : static_cast<int>(found->second);
}

}  // namespace win32
