// A new file that lies beside the one it is going to replace: many can be written first, flushed together
// (disk::flushAll) and then put in their places one by one.
#pragma once

#include <string>
#include <string_view>

namespace base {

class PreparedFile {
 public:
  // Writes `bytes` into a new file `name` in the folder of the existing file `target`. Not flushed, and noted
  // nowhere: the caller sees to what a dying run leaves behind. Throws base::Error, and nothing is left then.
  PreparedFile(std::string_view target, std::string_view name, std::string_view bytes);
  PreparedFile(const PreparedFile&) = delete;
  PreparedFile& operator=(const PreparedFile&) = delete;
  ~PreparedFile();  // takes it away unless it was put

  const std::string& path() const { return path_; }

  // Puts it in the place of the target, or where that cannot be, writes the target as writeFile does. Throws
  // base::Error.
  void put();

 private:
  std::string target_, path_;
  bool there_ = false;
};

}  // namespace base
