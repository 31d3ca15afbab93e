// What the program file carries, and where it is.
#pragma once

#include <string>
#include <string_view>

namespace win32 {

// Bytes of a resource of type CUSTOM; throws base::Error when it is not there.
std::string customResource(std::string_view name);
std::string programFile();  // UTF-8 path

}  // namespace win32
