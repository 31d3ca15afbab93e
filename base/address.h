// Addresses of files, as pages and servers refer to them.
#pragma once

#include <string>
#include <string_view>

namespace base {

// The address of a file for a document in `folder` (empty: not saved yet): from there, where both are on one
// drive. Paths are UTF-8; what addresses cannot hold is in its hexadecimal form.
std::string addressOf(std::string_view folder, std::string_view path);

// Bytes other than ASCII letters, digits and those in `plain` become "%" and two digits.
std::string percentEncoded(std::string_view text, std::string_view plain);
// "%20" becomes a blank; a "%" without two hexadecimal digits stays.
std::string percentDecoded(std::string_view address);

}  // namespace base
