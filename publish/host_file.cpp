#include "publish/host_file.h"

#include "base/disk.h"
#include "base/path.h"

namespace publish {

std::string usualHostFile() {
  // The notes of writing have a folder of their own on Windows.
  std::string folder = base::disk::ownFolder();
  if (base::fileName(folder) == "Writing") folder = base::folderOf(folder);
  return base::joinPath(folder, "known_hosts");
}

}  // namespace publish
