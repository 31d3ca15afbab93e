// A text for a library that takes it by the name of a file alone.
#pragma once

#include <string>

namespace platform {

class TemporaryFile {
 public:
  // Empty, or no disk takes it: there is no file.
  TemporaryFile(const std::string& text, const char* ending);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace platform
