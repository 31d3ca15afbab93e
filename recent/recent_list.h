// recentF.ini: the files that were opened, the most recent first.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace recent {

// The file's new text after `path` was opened, or `text` itself when nothing is to be written. Names are in
// the stored form of 8-bit files. `exists` is asked only when the list has grown past its limit.
std::string withRecent(std::string_view text, const std::string& path,
                       const std::function<bool(const std::string&)>& exists);

// Reads, extends and writes the list in the program's folder. A list that cannot be read or written never
// keeps a file from being opened: such an error is swallowed.
void addRecent(const std::string& programFolder, const std::string& path);

// The listed paths, UTF-8; none when the file is missing or cannot be read.
std::vector<std::string> recentPaths(const std::string& programFolder);
void writeRecent(const std::string& programFolder,
                 const std::vector<std::string>& paths);  // throws base::Error

}  // namespace recent
