#include "base/write_notes.h"

#include <algorithm>
#include <atomic>
#include <cerrno>

#include "base/binary.h"
#include "base/disk.h"
#include "base/error.h"
#include "base/file_trace.h"
#include "base/files.h"
#include "base/path.h"

namespace base {
namespace {

constexpr std::uint32_t kTemporary = 0x325A5654;  // the first bytes of the two kinds of note
constexpr std::uint32_t kRewriting = 0x315A5652;
constexpr const char* kNoteEnd = ".note";

// Whether a run that wrote `after` over `before` can have died with `now` in the file.
bool isBetween(std::string_view now, std::string_view before, std::string_view after) {
  if (now.size() < std::min(before.size(), after.size()) ||
      now.size() > std::max(before.size(), after.size())) {
    return false;
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    // Room that was taken and not written yet is zero.
    const char old = i < before.size() ? before[i] : '\0';
    if (now[i] != old && (i >= after.size() || now[i] != after[i])) return false;
  }
  return true;
}

void finish(std::string_view note) {
  BinaryReader reader(note);
  const std::uint32_t kind = reader.u32();
  const std::string path = reader.text();
  if (kind == kTemporary) {
    const std::string target = reader.text();
    const std::uint64_t low = reader.u32();
    const std::uint64_t sum = low | (static_cast<std::uint64_t>(reader.u32()) << 32U);
    finishReplacing(path, target, [sum](std::string_view bytes) { return sumOf(bytes) == sum; });
  } else if (kind == kRewriting) {
    const std::string before = reader.text();
    const std::string after = reader.text();
    const std::size_t length = note.size() - reader.left();
    // What dies before its note is whole has not touched the file.
    if (reader.u32() != crc32(note.substr(0, length)) || !fileExists(path)) return;
    const std::string now = readFile(path);
    if (now != after && isBetween(now, before, after)) rewriteInPlace(path, now, after);
  }
}

}  // namespace

WriteNote::~WriteNote() {
  if (file_ == nullptr) return;
  std::fclose(file_);
  disk::remove(path_);
}

int WriteNote::temporary(std::string_view path, std::string_view target, std::string_view bytes) {
  BinaryWriter note;
  note.u32(kTemporary);
  note.text(path);
  note.text(target);
  const std::uint64_t sum = sumOf(bytes);
  note.u32(static_cast<std::uint32_t>(sum));
  note.u32(static_cast<std::uint32_t>(sum >> 32U));
  return keep(note.bytes(), false);
}

int WriteNote::rewriting(std::string_view path, std::string_view before, std::string_view after) {
  BinaryWriter note;
  note.u32(kRewriting);
  note.text(path);
  note.text(before);
  note.text(after);
  note.u32(crc32(note.bytes()));
  return keep(note.bytes(), true);
}

int WriteNote::keep(std::string_view bytes, bool flush) {
  for (int code = EEXIST; code == EEXIST;) {
    path_ = joinPath(disk::ownFolder("Writing"), disk::newName() + kNoteEnd);
    file_ = disk::open(path_, disk::Mode::Create);
    code = file_ == nullptr ? errno : 0;
    if (code != 0 && code != EEXIST) return code;
  }
  const int code = disk::write(file_, bytes);
  if (code != 0) return code;
  return flush ? disk::flush(file_) : std::fflush(file_) == 0 ? 0 : EIO;
}

int rewriteInPlace(std::string_view path, std::string_view before, std::string_view after) {
  std::FILE* const file = disk::open(path, disk::Mode::Change);
  if (file == nullptr) return errno;
  // Room first: a disk that has none leaves the file as it was.
  int code = after.size() > before.size() ? disk::resize(file, after.size()) : 0;
  if (code == 0) code = disk::write(file, after);
  if (code == 0) code = disk::flush(file);
  if (code == 0 && after.size() < before.size()) code = disk::resize(file, after.size());
  if (code != 0) {
    std::rewind(file);
    if (disk::write(file, before) == 0) disk::flush(file);
    disk::resize(file, before.size());
  }
  std::fclose(file);
  return code;
}

void finishReplacing(std::string_view path, std::string_view target,
                     const std::function<bool(std::string_view bytes)>& isWhole) {
  const std::string aside = disk::asideOf(path);
  // The system takes the old file away before it puts the new one there, and a run can die in between.
  if (disk::look(target).kind == disk::Kind::Nothing) {
    if (fileExists(path) && isWhole(readFile(path))) {
      renameFile(path, target);
    } else if (fileExists(aside)) {
      renameFile(aside, target);
    }
  }
  disk::remove(path);
  disk::remove(aside);
}

void finishInterruptedWrites() {
  const std::string folder = disk::ownFolder("Writing");
  for (const std::string& name : fileNames(folder)) {
    if (!name.ends_with(kNoteEnd)) continue;
    const std::string path = joinPath(folder, name);
    // One that is held belongs to a run that lives.
    if (!disk::isFree(path)) continue;
    try {
      finish(readFile(path));
      disk::remove(path);
    } catch (const Error& error) {
      // Not whole: the run had not begun with the file itself. Where the file cannot be read now the note
      // waits.
      if (error.number() == ErrorNumber::BadFileFormat) disk::remove(path);
    }
  }
}

}  // namespace base
