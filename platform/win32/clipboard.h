// Text on the clipboard.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/windows_api.h"

namespace win32 {

// Throw base::Error when another program holds the clipboard.
void putClipboardText(HWND owner, std::wstring_view text);
std::wstring clipboardText(HWND owner);  // empty when there is none
bool clipboardHasText();

// The text of a CF_UNICODETEXT block, up to its first NUL.
std::wstring textOfGlobal(HGLOBAL block);

}  // namespace win32
