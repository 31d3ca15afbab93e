// Addresses of files, as pages refer to them.
#pragma once

#include <string>
#include <string_view>

namespace base {

// The address of a file for a document in `folder` (empty: not saved yet): from there, where both are on one
// drive. Paths are UTF-8; what addresses cannot hold is in its hexadecimal form.
std::string addressOf(std::string_view folder, std::string_view path);

}  // namespace base
