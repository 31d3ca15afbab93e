// A folder of the test's own, gone with it.
#pragma once

#include <filesystem>
#include <string>

#include "base/files.h"
#include "base/path.h"

namespace tests {

class TempFolder {
 public:
  TempFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "zervo-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() { std::filesystem::remove_all(path_); }

  const std::string& path() const { return path_; }
  std::string file(const std::string& name) const { return base::joinPath(path_, name); }
  std::string make(const std::string& name, const std::string& bytes) const {
    base::writeFile(file(name), bytes);
    return file(name);
  }
  std::string makeFolder(const std::string& name) const {
    std::filesystem::create_directories(path_ + "/" + name);
    return file(name);
  }

 private:
  std::string path_;
};

}  // namespace tests
