#include "platform/win32/window/common_dialogs.h"

#include <cderr.h>
#include <commdlg.h>
#include <shlobj.h>

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/path.h"
#include "base/text.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr std::size_t kAnswerSize = 64 * 1024;  // characters; many files at once

// The dialog's answer up to the double NUL at its end; empty when cancelled.
std::wstring ask(HWND owner, const ui::FileDialog& dialog, bool open) {
  std::wstring answer = wideFromUtf8(dialog.name).substr(0, kAnswerSize - 1);
  answer.resize(kAnswerSize);
  const std::wstring filter = filterPieces(dialog.filter);
  const std::wstring title = wideFromText(dialog.title);
  const FilterChoice choice = filterFor(dialog.filter, open ? std::string() : dialog.name);
  OPENFILENAMEW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.lpstrFilter = filter.c_str();
  request.nFilterIndex = choice.index;
  request.lpstrFile = answer.data();
  request.nMaxFile = static_cast<DWORD>(answer.size());
  request.lpstrTitle = title.empty() ? nullptr : title.c_str();
  const std::wstring folder = wideFromUtf8(dialog.folder);
  if (!folder.empty()) request.lpstrInitialDir = folder.c_str();
  request.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING | OFN_PATHMUSTEXIST;
  request.Flags |= open ? OFN_FILEMUSTEXIST : OFN_OVERWRITEPROMPT;
  if (dialog.multiple) request.Flags |= OFN_ALLOWMULTISELECT;
  if (!open) request.lpstrDefExt = choice.extension.c_str();
  if ((open ? GetOpenFileNameW(&request) : GetSaveFileNameW(&request)) == 0) {
    const DWORD error = CommDlgExtendedError();
    if (error == FNERR_BUFFERTOOSMALL) {
      throw base::Error(base::ErrorNumber::OutOfMemory, "ერთად ძალიან ბევრი ფაილი აირჩა.");
    }
    return {};
  }
  answer.resize(answer.find(std::wstring(2, L'\0')));
  return answer;
}

}  // namespace

std::wstring filterPieces(const std::string& filter) {
  std::wstring pieces = wideFromUtf8(filter);
  std::replace(pieces.begin(), pieces.end(), L'|', L'\0');
  pieces += std::wstring(2, L'\0');
  return pieces;
}

FilterChoice filterFor(const std::string& filter, const std::string& name) {
  const std::vector<std::string> pieces = base::split(filter, "|");
  const std::string wanted = "*." + base::extensionOf(name);
  FilterChoice first{1, {}};
  for (std::size_t i = 1; i < pieces.size(); i += 2) {
    const std::vector<std::string> patterns = base::split(pieces[i], ";");
    const std::string& main = patterns[0];
    const FilterChoice choice{static_cast<DWORD>(i / 2 + 1),
                              main.starts_with("*.") && main != "*.*" ? wideFromUtf8(main.substr(2)) : L""};
    if (i == 1) first = choice;
    for (const std::string& pattern : patterns) {
      if (base::equalNoCase(pattern, wanted)) return choice;
    }
  }
  return first;
}

std::vector<std::string> pathsOfAnswer(const std::wstring& answer) {
  std::vector<std::string> pieces;
  for (std::size_t at = 0; at < answer.size();) {
    const std::size_t end = std::min(answer.find(L'\0', at), answer.size());
    pieces.push_back(utf8FromWide(std::wstring_view(answer).substr(at, end - at)));
    at = end + 1;
  }
  if (pieces.size() < 2) return pieces;
  std::vector<std::string> paths;
  for (std::size_t i = 1; i < pieces.size(); ++i) paths.push_back(base::joinPath(pieces[0], pieces[i]));
  return paths;
}

std::vector<std::string> openFiles(HWND owner, const ui::FileDialog& dialog) {
  return pathsOfAnswer(ask(owner, dialog, true));
}

std::optional<std::string> saveFile(HWND owner, const ui::FileDialog& dialog) {
  const std::wstring answer = ask(owner, dialog, false);
  if (answer.empty()) return std::nullopt;
  return utf8FromWide(answer);
}

std::optional<std::string> pickFolder(HWND owner, const ui::Text& title) {
  const std::wstring heading = wideFromText(title);
  BROWSEINFOW request{};
  request.hwndOwner = owner;
  request.lpszTitle = heading.c_str();
  request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
  PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&request);
  if (chosen == nullptr) return std::nullopt;
  std::array<wchar_t, 32768> path{};
  const bool found = SHGetPathFromIDListEx(chosen, path.data(), path.size(), GPFIDL_DEFAULT) != 0;
  CoTaskMemFree(chosen);
  if (!found) return std::nullopt;
  return utf8FromWide(path.data());
}

std::optional<base::Color> pickColor(HWND owner, base::Color first) {
  static std::array<COLORREF, 16> own{};  // the user's, for the length of the run
  CHOOSECOLORW request{};
  request.lStructSize = sizeof request;
  request.hwndOwner = owner;
  request.rgbResult = first;
  request.lpCustColors = own.data();
  request.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR;
  if (ChooseColorW(&request) == 0) return std::nullopt;
  return request.rgbResult;
}

}  // namespace win32
