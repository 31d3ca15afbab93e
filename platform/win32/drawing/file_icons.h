// The pictures of kinds of files, drawn by code for the density of the screen.
#pragma once

#include "platform/win32/system/handles.h"
#include "ui/platform/file_icon.h"

namespace win32 {

// One image for each ui::FileIcon, in its order, for a window at `dpi`.
UniqueImages fileIcons(int dpi);

// The place of a row's picture in that list; I_IMAGENONE when it has none.
int imageOf(const ui::FileIcons& icons, int number);

}  // namespace win32
