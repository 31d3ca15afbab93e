// File dialogs open in the folder where a file of their kind was chosen last, from run to run.
#pragma once

#include <string>
#include <string_view>

#include "ui/platform/platform.h"

namespace ui {

// Where the dialog opens: the folder of the last choice of its kind, unless the dialog asks for another one
// that this is not inside of: a picture for a page is looked for in or below that page's folder. Empty: where
// the system likes.
std::string folderToOpen(const Platform& platform, const FileDialog& dialog);

// `path` was chosen. Throws nothing: what the registry refuses is not remembered.
void rememberFolder(Platform& platform, const FileDialog& dialog, std::string_view path);

}  // namespace ui
