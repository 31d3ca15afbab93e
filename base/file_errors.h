// An error of the disk as a sentence for the user.
#pragma once

#include <string_view>

namespace base {

// `code` is one of <cerrno>; `path` is named since the user may have many files open.
[[noreturn]] void throwFileError(int code, std::string_view path);

}  // namespace base
