// Writing whole files.
#include <algorithm>
#include <cerrno>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "base/write_notes.h"

namespace base {
namespace {

// A file beside the target that is gone again unless it is put in its place; the next run takes it away when
// this one dies.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view target)
      : target_(target), folder_(target.substr(0, target.size() - fileName(target).size())) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (made_) disk::remove(path_);
  }
  const std::string& path() const { return path_; }

  // `more` gives the next bytes, none at the end; what it throws ends the writing. What dies on the way is
  // taken away by the next start.
  int write(const std::function<std::string_view()>& more) {
    return write(more, [this](WriteNote& note) { note.temporary(path_, path_, {}); });
  }
  // The next start puts it in its place when the run dies while the system exchanges the two.
  int write(std::string_view bytes) {
    return write([rest = bytes]() mutable { return std::exchange(rest, {}); },
                 [&](WriteNote& note) { note.temporary(path_, target_, bytes); });
  }

 private:
  int write(const std::function<std::string_view()>& more, const std::function<void(WriteNote&)>& noteIt) {
    std::FILE* file = nullptr;
    for (int code = EEXIST; code == EEXIST;) {
      // Short, whatever the target is called.
      path_ = folder_ + ".zervo-" + disk::newName() + ".tmp";
      if (disk::look(disk::asideOf(path_)).kind != disk::Kind::Nothing) continue;
      noteIt(note_.emplace());  // without it the file may stay behind, no worse
      file = disk::open(path_, disk::Mode::Create);
      code = file == nullptr ? errno : 0;
      if (code != 0 && code != EEXIST) return code;
    }
    made_ = true;
    int code = 0;
    try {
      for (std::string_view bytes = more(); !bytes.empty() && code == 0; bytes = more()) {
        code = disk::write(file, bytes);
      }
    } catch (...) {
      std::fclose(file);
      throw;
    }
    if (code == 0) code = disk::flush(file);
    if (std::fclose(file) != 0 && code == 0) code = errno != 0 ? errno : EIO;
    return code;
  }

  std::string target_, folder_, path_;
  bool made_ = false;
  std::optional<WriteNote> note_;
};

// A folder that takes no new file, a disk without room for a second one, a file that must keep its place: it
// may still be written over.
bool isAboutPlace(int code) {
  constexpr int kCodes[] = {EACCES, EPERM, ENOSPC, EBUSY, EXDEV, EMLINK, ENAMETOOLONG};
  return std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

int writeBeside(const std::string& target, std::string_view bytes, bool exists) {
  TemporaryFile temporary(target);
  if (const int code = temporary.write(bytes)) return code;
  return exists ? disk::replace(temporary.path(), target) : disk::rename(temporary.path(), target);
}

int writeOver(const std::string& target, std::string_view bytes) {
  const std::string before = readFile(target);
  WriteNote note;
  if (const int code = note.rewriting(target, before, bytes)) return code;
  return rewriteInPlace(target, before, bytes);
}

// A device or a pipe takes the bytes; a file put in its place would be the end of it.
int writeInto(const std::string& target, std::string_view bytes) {
  std::FILE* file = disk::open(target, disk::Mode::Change);
  if (file == nullptr) return errno;
  const int code = disk::write(file, bytes);
  return std::fclose(file) == 0 ? code : errno;
}

}  // namespace

void writeFile(std::string_view path, std::string_view bytes) {
  const std::string target = disk::target(path);
  const disk::Look old = disk::look(target);
  const bool exists = old.kind == disk::Kind::File;
  if (old.kind == disk::Kind::Folder) throwFileError(EISDIR, path);
  if (old.kind == disk::Kind::Other) {
    if (const int code = writeInto(target, bytes)) throwFileError(code, path);
    return;
  }
  // Replacing by name would slip past a read-only mark that a plain write respects.
  if (exists && old.readOnly) throwFileError(EACCES, path);

  // Another program may have the file open just now, to look for viruses or to index it.
  constexpr int kTries = 6;
  constexpr int kPause = 75;  // milliseconds
  int code = EACCES;
  for (int tried = 0; code == EACCES && tried < kTries; ++tried) {
    if (tried > 0) disk::pause(kPause);
    // Put in its place the new file would have one of the names alone.
    code = old.names > 1 ? EMLINK : writeBeside(target, bytes, exists);
    if (exists && isAboutPlace(code)) code = writeOver(target, bytes);
    if (!exists) break;
  }
  if (code != 0) throwFileError(code, path);
}

std::string overwriteFile(std::string_view path, std::string_view bytes) {
  std::string tail;
  if (fileExists(path)) {
    const std::string old = readFile(path);
    if (old.size() > bytes.size()) tail = old.substr(bytes.size());
  }
  if (tail.empty()) {
    writeFile(path, bytes);
  } else {
    writeFile(path, std::string(bytes) + tail);
  }
  return tail;
}

void copyInPieces(std::string_view from, std::string_view to) {
  constexpr std::size_t kPiece = 1U << 18U;
  std::FILE* const source = disk::open(from, disk::Mode::Read);
  if (source == nullptr) throwFileError(errno, from);
  std::string piece(kPiece, '\0');
  TemporaryFile temporary(to);
  int code = temporary.write(
      [&] { return std::string_view(piece).substr(0, std::fread(piece.data(), 1, kPiece, source)); });
  const bool read = std::ferror(source) == 0;
  std::fclose(source);
  if (!read) throwFileError(EIO, from);
  if (code == 0) code = disk::rename(temporary.path(), to);
  if (code != 0) throwFileError(code, to);
}

}  // namespace base
