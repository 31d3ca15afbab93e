#include "base/prepared_file.h"

#include <cerrno>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"

namespace base {

PreparedFile::PreparedFile(std::string_view target, std::string_view name, std::string_view bytes)
    : target_(target), path_(joinPath(folderOf(target), name)) {
  std::FILE* const file = disk::open(path_, disk::Mode::Create);
  if (file == nullptr) throwFileError(errno, path_);
  int code = disk::write(file, bytes);
  if (std::fclose(file) != 0 && code == 0) code = errno != 0 ? errno : EIO;
  if (code == 0) {
    there_ = true;
    return;
  }
  disk::remove(path_);
  throwFileError(code, path_);
}

PreparedFile::~PreparedFile() {
  if (there_) disk::remove(path_);
}

void PreparedFile::put() {
  const disk::Look old = disk::look(target_);
  // Put by name it would have one of several names alone, take the place of a link, or slip past a mark.
  const bool plain =
      old.kind == disk::Kind::File && !old.readOnly && old.names == 1 && !disk::isLink(target_);
  if (plain && disk::replace(path_, target_) == 0) {
    there_ = false;
    return;
  }
  writeFile(target_, readFile(path_));
}

}  // namespace base
