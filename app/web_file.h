// Writing a web project file; base reads it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/web_file.h"

namespace app {

using base::leavesFolder;
using base::parseWebFile;
using base::WebFile;

// Sorted names, the start page, CR LF line ends.
std::string webFileText(std::vector<std::string> names, std::string_view startPage);

// The order of names in a project file: by name without case, empty ones last.
void siasorti(std::vector<std::string>& names);

}  // namespace app
