// Files of this side while they are sent or received.
#pragma once

#include <cstdio>
#include <memory>
#include <string_view>

namespace publish {

// What the names of files on their way begin with, on both sides.
inline constexpr std::string_view kMark = ".zervo-";

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

}  // namespace publish
