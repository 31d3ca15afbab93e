#include "platform/win32/system/registry.h"

#include "base/error.h"
#include "platform/win32/system/errors.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

std::wstring pathOf(std::string_view section) {
  return L"Software\\Zervo\\" + wideFromUtf8(section);
}

}  // namespace

std::string registryValue(std::string_view section, std::string_view key) {
  const std::wstring path = pathOf(section);
  const std::wstring name = wideFromUtf8(key);
  std::wstring value(256, L'\0');
  for (;;) {
    auto size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, path.c_str(), name.c_str(), RRF_RT_REG_SZ, nullptr,
                                        value.data(), &size);
    if (status == ERROR_MORE_DATA) {
      value.resize(value.size() * 2);
      continue;
    }
    return status == ERROR_SUCCESS ? utf8FromWide(value.c_str()) : std::string();
  }
}

void setRegistryValue(std::string_view section, std::string_view key, std::string_view value) {
  HKEY opened = nullptr;
  LSTATUS status = RegCreateKeyExW(HKEY_CURRENT_USER, pathOf(section).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                   nullptr, &opened, nullptr);
  const UniqueKey owned(opened);
  const std::wstring text = wideFromUtf8(value);
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(opened, wideFromUtf8(key).c_str(), 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(text.c_str()),
                            static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }
  if (status != ERROR_SUCCESS) {
    throw base::Error(base::ErrorNumber::PermissionDenied, systemMessage(static_cast<DWORD>(status)));
  }
}

}  // namespace win32
