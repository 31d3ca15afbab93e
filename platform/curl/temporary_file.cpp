#include "platform/curl/temporary_file.h"

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"

namespace platform {

TemporaryFile::TemporaryFile(const std::string& text, const char* ending) {
  if (text.empty()) return;
  path_ = base::joinPath(base::tempFolder(), "zervo-" + base::disk::newName() + ending);
  try {
    base::writeFile(path_, text);
  } catch (const base::Error&) {
    path_.clear();
  }
}

TemporaryFile::~TemporaryFile() {
  if (!path_.empty()) base::disk::remove(path_);
}

}  // namespace platform
