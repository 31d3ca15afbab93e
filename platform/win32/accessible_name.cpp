#include "platform/win32/accessible_name.h"

namespace win32 {
namespace {

// The text of other controls, which do not show it, is free to be their name.
bool holdsText(HWND window) {
  wchar_t kind[16] = L"";
  GetClassNameW(window, kind, 16);
  return _wcsicmp(kind, L"Edit") == 0 || _wcsicmp(kind, L"ComboBox") == 0 ||
         _wcsnicmp(kind, L"RichEdit", 8) == 0;
}

}  // namespace

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
