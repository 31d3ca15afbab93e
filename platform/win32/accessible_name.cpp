#include "platform/win32/accessible_name.h"

#include <initguid.h>
// After initguid.h, which makes it define its names.
#include <oleacc.h>

namespace win32 {
namespace {

// An edit field's own text is what it holds; for all others that show none it is free to be the name, and is
// read even by programs that know nothing of annotations.
bool holdsText(HWND window) {
  const LRESULT code = SendMessageW(window, WM_GETDLGCODE, 0, 0);
  return (code & (DLGC_HASSETSEL | DLGC_WANTCHARS)) == (DLGC_HASSETSEL | DLGC_WANTCHARS);
}

}  // namespace

void setAccessibleName(HWND window, const std::wstring& name) {
  if (!holdsText(window)) SetWindowTextW(window, name.c_str());
  IAccPropServices* services = nullptr;
  if (FAILED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                              reinterpret_cast<void**>(&services)))) {
    return;
  }
  services->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                           name.c_str());
  services->Release();
}

}  // namespace win32
