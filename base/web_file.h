// Reading a web project file: the documents' names, then the start page. Names are UTF-8 here.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace base {

struct WebFile {
  std::vector<std::string> names;        // relative to the project folder, in file order
  std::optional<std::string> startPage;  // nothing: the file has no "STOPF=" line
};

// Lines are taken as they are, blanks included; those of blanks alone are skipped. Files that other editors
// wrote are read too: with a UTF-8 byte-order mark, or with LF for every line end.
WebFile parseWebFile(std::string_view text);

// The name leads out of the project's folder.
bool leavesFolder(std::string_view name);

}  // namespace base
