// The files of a site, before they are read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "site/site.h"

namespace site {

struct ListedFile {
  std::string file;                 // its path in the folder
  FileKind kind = FileKind::Other;  // Other also of one that is not included
  Note note = Note::None;           // it cannot be read
};

struct FileList {
  std::string folder;             // the full path
  std::vector<ListedFile> files;  // pages and texts first, then what they link; each part by name
};

// Throws base::Error where the folder or the project file cannot be read.
FileList filesOf(const Options& options);

// Whether a path with "/" between fits a glob.
bool fits(std::string_view glob, std::string_view path);

}  // namespace site
