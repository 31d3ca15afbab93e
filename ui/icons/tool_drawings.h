// The drawings of tool bar buttons and of kinds of files; see ui/drawing.h.
#pragma once

#include <string_view>

#include "ui/platform/file_icon.h"
#include "ui/tool_bar.h"

namespace ui {

std::string_view toolDrawing(ToolIcon icon);
std::string_view fileDrawing(FileIcon icon);

}  // namespace ui
