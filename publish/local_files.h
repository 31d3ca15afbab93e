// The files of this computer that are to be on the server.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace publish {

struct LocalFile {
  std::string path;    // below the account's folder, "/" between names
  std::string source;  // where it is here
  std::int64_t size = 0;
  std::int64_t time = 0;  // of the last change, in units of the system
};

// All ordinary files below a folder, by path. Left out: what begins with ".zervo-", folders of version
// control, links to folders, and what systems put into folders for themselves. Throws base::Error where a
// folder cannot be read.
std::vector<LocalFile> localFiles(std::string_view folder);
// A path of a server ("/" between names) that a file below a folder of Windows can have, and that does not
// lead out of it (Microsoft, "Naming Files, Paths, and Namespaces").
bool isLocalPath(std::string_view path);

}  // namespace publish
