#include "platform/win32/system/resources.h"

#include "base/error.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/system/windows_api.h"

namespace win32 {

std::string customResource(std::string_view name) {
  constexpr WORD kLanguage = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);  // 1031, under which they are stored
  const HRSRC found = FindResourceExW(nullptr, L"CUSTOM", wideFromUtf8(name).c_str(), kLanguage);
  if (found == nullptr) {
    throw base::Error(base::ErrorNumber::FileNotFound,
                      "პროგრამაში არ არის რესურსი " + std::string(name) + ".");
  }
  return {static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
          SizeofResource(nullptr, found)};
}

std::string programFile() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD size = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (size < path.size()) return utf8FromWide(path.substr(0, size));
    path.resize(path.size() * 2);
  }
}

}  // namespace win32
