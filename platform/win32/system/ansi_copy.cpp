#include "platform/win32/system/ansi_copy.h"

#include <atomic>

#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

constexpr int kTries = 20;  // of deleting a copy that a scanner for viruses looks at, 50 ms each

// In the system's 8-bit characters, by its short name if need be; empty when there is no such name.
std::string ansiPath(const std::wstring& path) {
  const auto ansi = [](const std::wstring& wide) {
    std::string name(wide.size() * 2 + 1, '\0');
    BOOL lossy = FALSE;
    const int size =
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.c_str(), static_cast<int>(wide.size()),
                            name.data(), static_cast<int>(name.size()), nullptr, &lossy);
    name.resize(size > 0 && lossy == FALSE ? static_cast<std::size_t>(size) : 0);
    return name;
  };
  const std::string name = ansi(path);
  if (!name.empty()) return name;
  std::wstring shorter(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
  shorter.resize(GetShortPathNameW(path.c_str(), shorter.data(), static_cast<DWORD>(shorter.size())));
  return ansi(shorter);
}

std::wstring variable(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return value;
}

// Where copies may stand: the user's folder, or, where 8 bits cannot name that, those of all users.
std::wstring folder() {
  for (const wchar_t* name : {L"TMP", L"TEMP", L"PUBLIC", L"ProgramData"}) {
    const std::wstring path = variable(name);
    if (!path.empty() && GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES &&
        !ansiPath(path).empty()) {
      return path;
    }
  }
  return {};
}

}  // namespace

AnsiCopy::AnsiCopy(const std::string& source, BOOL* stop) {
  static std::atomic<unsigned> number = 0;
  const std::wstring where = folder();
  if (where.empty()) {
    SetLastError(ERROR_PATH_NOT_FOUND);
    return;
  }
  DWORD error = ERROR_FILE_EXISTS;
  while (error == ERROR_FILE_EXISTS) {
    const std::wstring name = where + L"\\zervo-upload-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                              std::to_wstring(++number) + L".tmp";
    const bool copied = CopyFileExW(wideFromUtf8(source).c_str(), name.c_str(), nullptr, nullptr, stop,
                                    COPY_FILE_FAIL_IF_EXISTS) != FALSE;
    error = copied ? 0 : GetLastError();
    if (copied) file_ = name;
  }
  if (error == 0) path_ = ansiPath(file_);
  SetLastError(error);
}

AnsiCopy::~AnsiCopy() {
  if (file_.empty()) return;
  const DWORD error = GetLastError();
  SetFileAttributesW(file_.c_str(), FILE_ATTRIBUTE_NORMAL);  // the source's came along
  for (int i = 0; i < kTries && DeleteFileW(file_.c_str()) == FALSE && GetLastError() != ERROR_FILE_NOT_FOUND;
       ++i) {
    Sleep(50);
  }
  SetLastError(error);
}

}  // namespace win32
