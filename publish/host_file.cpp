#include "publish/host_file.h"

#include "base/disk.h"
#include "base/path.h"

namespace publish {

std::string usualHostFile() {
  return base::joinPath(base::disk::ownFolder("Publish"), "known_hosts");
}

}  // namespace publish
