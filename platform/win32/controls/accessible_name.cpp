#include "platform/win32/controls/accessible_name.h"

#include <string_view>

namespace win32 {
namespace {

// The window class's name begins like that.
bool isKind(HWND window, std::wstring_view kind) {
  wchar_t name[16] = L"";
  if (window != nullptr) GetClassNameW(window, name, 16);
  return _wcsnicmp(name, kind.data(), kind.size()) == 0;
}

// The text of other controls, which do not show it, is free to be their name.
bool holdsText(HWND window) {
  return isKind(window, L"Edit") || isKind(window, L"ComboBox") || isKind(window, L"Scintilla");
}

}  // namespace

bool hasLabel(HWND control) {
  const HWND before = GetWindow(control, GW_HWNDPREV);
  // An empty one is filled later, with something else than a name.
  return isKind(before, L"Static") && GetWindowTextLengthW(before) > 0;
}

HWND setAccessibleName(HWND control, const std::wstring& name, HWND label) {
  if (!holdsText(control)) {
    SetWindowTextW(control, name.c_str());
    return nullptr;
  }
  if (label == nullptr) {
    label = CreateWindowExW(0, L"STATIC", name.c_str(), WS_CHILD | SS_NOPREFIX, 0, 0, 0, 0,
                            GetParent(control), nullptr, nullptr, nullptr);
  }
  const HWND before = GetWindow(control, GW_HWNDPREV);
  SetWindowPos(label, before != nullptr ? before : HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return label;
}

}  // namespace win32
