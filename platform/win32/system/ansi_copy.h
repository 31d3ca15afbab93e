// A file's copy for calls that take 8-bit names and keep a file to themselves while they read it.
#pragma once

#include <string>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// In a folder for temporary files, gone with the object.
class AnsiCopy {
 public:
  // `source` is UTF-8. Copying ends when `*stop` becomes TRUE; it must outlive the constructor alone.
  AnsiCopy(const std::string& source, BOOL* stop);
  AnsiCopy(const AnsiCopy&) = delete;
  AnsiCopy& operator=(const AnsiCopy&) = delete;
  // Leaves the thread's last error as it is.
  ~AnsiCopy();

  bool good() const { return !path_.empty(); }  // else the thread's last error tells why
  const std::string& path() const { return path_; }

 private:
  std::wstring file_;
  std::string path_;
};

}  // namespace win32
