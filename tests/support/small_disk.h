// A disk that is soon full.
#pragma once

#include <sys/mount.h>

#include <filesystem>
#include <string>

#include "tests/support/temp_folder.h"

namespace tests {

// Only root may mount one: `made` tells.
struct SmallDisk {
  explicit SmallDisk(const std::string& size = "64k") {
    std::filesystem::create_directory(path);
    made = mount("none", path.c_str(), "tmpfs", 0, ("size=" + size).c_str()) == 0;
  }
  SmallDisk(const SmallDisk&) = delete;
  SmallDisk& operator=(const SmallDisk&) = delete;
  ~SmallDisk() {
    if (made) umount(path.c_str());
  }

  TempFolder folder;
  std::string path = folder.path() + "/disk";
  bool made = false;
};

}  // namespace tests
