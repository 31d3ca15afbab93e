#include "base/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "base/disk.h"
#include "base/error.h"

namespace base {
namespace {

// The system's reason as a sentence; `path` is named since the user may have many files open.
[[noreturn]] void fail(int code, std::string_view path) {
  const std::string name(path);
  switch (code) {
    case ENOENT:
      throw Error(ErrorNumber::FileNotFound, "ფაილი ვერ მოიძებნა:\r\n" + name);
    case ENOTDIR:
      throw Error(ErrorNumber::PathNotFound, "საქაღალდე ვერ მოიძებნა:\r\n" + name);
    case EACCES:
    case EPERM:
    case EROFS:
      throw Error(ErrorNumber::PermissionDenied, "ფაილზე წვდომა აკრძალულია:\r\n" + name);
    case EISDIR:
      throw Error(ErrorNumber::PathAccess, "ეს საქაღალდეა და არა ფაილი:\r\n" + name);
    case ENOSPC:
      throw Error(ErrorNumber::DiskFull, "დისკზე ადგილი აღარ არის, ფაილი არ ჩაწერილა:\r\n" + name);
    case ENOMEM:
    case EFBIG:
      throw Error(ErrorNumber::OutOfMemory, "ფაილი მეტისმეტად დიდია:\r\n" + name);
    default:
      throw Error(ErrorNumber::DeviceError,
                  "ფაილთან მუშაობა ვერ მოხერხდა (" + std::string(std::strerror(code)) + "):\r\n" + name);
  }
}

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File open(std::string_view path, bool write) {
  File file(disk::open(path, write));
  if (!file) fail(errno, path);
  return file;
}

}  // namespace

bool fileExists(std::string_view path) {
  return disk::look(path).kind == disk::Kind::File;
}

bool folderExists(std::string_view path) {
  return disk::look(path).kind == disk::Kind::Folder;
}

std::uintmax_t fileSize(std::string_view path) {
  return disk::look(path).size;
}

std::vector<std::string> fileNames(std::string_view folder) {
  std::vector<std::string> names;
  disk::fileNames(folder, names);
  return names;
}

std::vector<std::string> filesIn(std::string_view folder) {
  std::vector<std::string> names;
  if (const int code = disk::fileNames(folder, names)) fail(code, folder);
  return names;
}

std::string tempFolder() {
  std::string folder = disk::tempFolder();
  while (folder.size() > 1 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
  return folder;
}

void makeFolder(std::string_view path) {
  if (fileExists(path)) fail(ENOTDIR, path);
  const int code = disk::makeFolder(path);
  if (code != 0 && !folderExists(path)) fail(code, path);
}

constexpr std::size_t kReadAhead = 1U << 16U;

std::string readFile(std::string_view path) {
  if (folderExists(path)) fail(EISDIR, path);
  const File file = open(path, false);
  std::string bytes;
  try {
    // Straight into the text. The file may have grown or shrunk since, so its size is no more than a guess.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    std::size_t done = 0;
    for (std::size_t room = fileSize(path) + 1;; room = done + kReadAhead) {
      bytes.resize(room);
      done += std::fread(bytes.data() + done, 1, room - done, file.get());
      if (done < room) break;
    }
    bytes.resize(done);
  } catch (const std::bad_alloc&) {
    fail(ENOMEM, path);
  } catch (const std::length_error&) {
    fail(ENOMEM, path);
  }
  if (std::ferror(file.get()) != 0) fail(errno, path);
  return bytes;
}

NewFile::NewFile(std::string_view path) : path_(path), temporary_(path_ + ".zervo-tmp") {
  const disk::Look old = disk::look(path);
  if (old.kind == disk::Kind::Folder) fail(EISDIR, path);
  // Replacing by name would slip past a read-only mark that a plain write respects.
  if (old.kind == disk::Kind::File && old.readOnly) fail(EACCES, path);
  file_ = open(temporary_, true).release();
}

NewFile::~NewFile() {
  if (file_ != nullptr) std::fclose(file_);
  disk::remove(temporary_);
}

void NewFile::write(std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size())
    fail(errno != 0 ? errno : ENOSPC, path_);
}

void NewFile::commit() {
  const int code = disk::flush(file_);
  std::fclose(std::exchange(file_, nullptr));
  if (code != 0) fail(code, path_);
  renameFile(temporary_, path_);
}

void writeFile(std::string_view path, std::string_view bytes) {
  NewFile file(path);
  file.write(bytes);
  file.commit();
}

void overwriteFile(std::string_view path, std::string_view bytes) {
  if (!fileExists(path)) return writeFile(path, bytes);
  const std::string old = readFile(path);
  if (old.size() <= bytes.size()) return writeFile(path, bytes);
  std::string whole(bytes);
  writeFile(path, whole.append(old, bytes.size()));
}

void copyFile(std::string_view from, std::string_view to) {
  if (sameFile(from, to)) return;
  writeFile(to, readFile(from));
}

void renameFile(std::string_view from, std::string_view to) {
  if (const int code = disk::rename(from, to)) fail(code, to);
}

void removeFile(std::string_view path) {
  const int code = disk::remove(path);
  if (code != 0 && code != ENOENT) fail(code, path);
}

FileLock::FileLock(std::string_view path) {
  constexpr int kTries = 60;
  constexpr int kPause = 10;  // milliseconds; Windows makes up to 16 of them
  const std::string name = std::string(path) + ".lock";
  for (int i = 0; i < kTries; ++i) {
    // Making a folder is atomic everywhere, and nobody's file can be harmed by it.
    const int code = disk::makeFolder(name);
    if (code == 0) lockFile_ = name;
    if (code != EEXIST) return;
    disk::pause(kPause);
  }
  disk::remove(name);  // left behind by a copy that died
}

FileLock::~FileLock() {
  if (!lockFile_.empty()) disk::remove(lockFile_);
}

bool sameFile(std::string_view a, std::string_view b) {
  return disk::same(a, b);
}

}  // namespace base
