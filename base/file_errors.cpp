#include "base/file_errors.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "base/error.h"

namespace base {

void throwFileError(int code, std::string_view path) {
  const std::string name(path);
  switch (code) {
    case ENOENT:
      throw Error(ErrorNumber::FileNotFound, "ფაილი ვერ მოიძებნა:\r\n" + name);
    case ENOTDIR:
      throw Error(ErrorNumber::PathNotFound, "საქაღალდე ვერ მოიძებნა:\r\n" + name);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Error(ErrorNumber::PermissionDenied, "ფაილზე წვდომა აკრძალულია:\r\n" + name);
    case EISDIR:
      throw Error(ErrorNumber::PathAccess, "ეს საქაღალდეა და არა ფაილი:\r\n" + name);
    case ENOSPC:
#ifdef EDQUOT
    case EDQUOT:
#endif
      throw Error(ErrorNumber::DiskFull, "დისკზე ადგილი აღარ არის, ფაილი არ ჩაწერილა:\r\n" + name);
    case ENOMEM:
    case EFBIG:
      throw Error(ErrorNumber::OutOfMemory, "ფაილი მეტისმეტად დიდია:\r\n" + name);
    default:
      throw Error(ErrorNumber::DeviceError,
                  "ფაილთან მუშაობა ვერ მოხერხდა (" + std::string(std::strerror(code)) + "):\r\n" + name);
  }
}

}  // namespace base
