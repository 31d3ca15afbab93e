// The system's dialogs for files, folders and colours. Paths are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/color.h"
#include "platform/win32/system/windows_api.h"
#include "ui/platform/platform.h"

namespace win32 {

std::vector<std::string> openFiles(HWND owner, const ui::FileDialog& dialog);
std::optional<std::string> saveFile(HWND owner, const ui::FileDialog& dialog);
std::optional<std::string> pickFolder(HWND owner, const ui::Text& title);
std::optional<base::Color> pickColor(HWND owner, base::Color first);

// "A(*.a)|*.a|B|*.b" as the dialogs want it: NUL behind each piece, one more at the end.
std::wstring filterPieces(const std::string& filter);
// The pair of a filter that is for files named so, else the first one; 1 for the first.
struct FilterChoice {
  DWORD index;
  std::wstring extension;  // what a name without one gets; empty: nothing
};
FilterChoice filterFor(const std::string& filter, const std::string& name);
// What a dialog for several files answers: one path, or a folder and names behind NULs.
std::vector<std::string> pathsOfAnswer(const std::wstring& answer);

}  // namespace win32
