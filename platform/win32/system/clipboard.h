// Text on the clipboard.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/win32/system/windows_api.h"
#include "ui/code_view.h"

namespace win32 {

// The clip's letters as Unicode text, its bytes, if it has any, as ANSI text and, whole, in a format of the
// program's own. Throw base::Error when another program holds the clipboard.
void putClip(HWND owner, const ui::TextClip& clip);
ui::TextClip clipboardClip(HWND owner);  // nothing in it when there is no text

std::wstring clipboardText(HWND owner);  // empty when there is none
bool clipboardHasText();

// A clip as blocks in formats of the clipboard, and back, from what gives the block of a format or null.
std::vector<std::pair<UINT, std::string>> blocksOf(const ui::TextClip& clip);
ui::TextClip clipFrom(const std::function<HGLOBAL(UINT format)>& block);
// A moveable block; null when there is not enough memory.
HGLOBAL globalOf(std::string_view bytes);

// The text of a CF_UNICODETEXT block, up to its first NUL.
std::wstring textOfGlobal(HGLOBAL block);

}  // namespace win32
