// What stands behind the program's name when it is started.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

struct CommandLine {
  enum class Kind { Empty, NoMax, One, Several };
  Kind kind = Kind::Empty;
  std::vector<std::string> paths;  // One: that one
};

// Several paths stand in quotes with one blank between; anything else is one path. Where that names no file
// that is there, the line is split as the system does it: so come files that are dropped on the program's
// icon. `exists` tells whether a path names a file.
CommandLine readCommandLine(const std::string& line, const std::function<bool(const std::string&)>& exists);

}  // namespace app
