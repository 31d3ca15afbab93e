// Other programs: opened by the shell, started, or the help viewer. Texts are UTF-8.
#pragma once

#include <string_view>

#include "platform/win32/system/windows_api.h"

namespace win32 {

bool shellOpen(HWND owner, std::string_view path, std::string_view parameters);
// A page on the disk in the default browser.
bool browse(HWND owner, std::string_view path);
bool startProcess(std::string_view commandLine);
// False where the system has no help viewer, or no engine that shows pages in it, and for a missing file.
bool showHelp(HWND owner, std::string_view path, std::string_view topic);

}  // namespace win32
