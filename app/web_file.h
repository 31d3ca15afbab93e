// The text of a web project file: the documents' names, then the start page. Names are UTF-8 here.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace app {

struct WebFile {
  std::vector<std::string> names;        // relative to the project folder, in file order
  std::optional<std::string> startPage;  // nothing: the file has no "STOPF=" line
};

// Takes files written by hand too: LF line ends, blank lines, spaces around names.
WebFile parseWebFile(std::string_view text);

// Sorted names, the start page, CR LF line ends.
std::string webFileText(std::vector<std::string> names, std::string_view startPage);

// The order of names in a project file: by name without case, empty ones last.
void siasorti(std::vector<std::string>& names);

}  // namespace app
