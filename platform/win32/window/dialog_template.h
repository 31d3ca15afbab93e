// Dialog templates of the resources, with a window class of the form's name.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// The extended template `id` of this program with window class `className`, which behaves like the system's
// dialog class and is registered at first use. `sizable`: with a frame by which the user can size it. Throws
// base::Error when there is no such template.
std::vector<WORD> dialogTemplate(int id, const std::wstring& className, bool sizable);

}  // namespace win32
