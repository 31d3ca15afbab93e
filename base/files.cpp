#include "base/files.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>
#include <stdexcept>
#include <utility>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/write_notes.h"

namespace base {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File open(std::string_view path) {
  File file(disk::open(path, disk::Mode::Read));
  if (!file) throwFileError(errno, path);
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
  if (const int code = disk::fileNames(folder, names)) throwFileError(code, folder);
  return names;
}

std::string tempFolder() {
  std::string folder = disk::tempFolder();
  while (folder.size() > 1 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
  return folder;
}

void makeFolder(std::string_view path) {
  if (fileExists(path)) throwFileError(ENOTDIR, path);
  const int code = disk::makeFolder(path);
  if (code != 0 && !folderExists(path)) throwFileError(code, path);
}

constexpr std::size_t kReadAhead = 1U << 16U;

std::string readFile(std::string_view path) {
  if (folderExists(path)) throwFileError(EISDIR, path);
  const File file = open(path);
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
    throwFileError(ENOMEM, path);
  } catch (const std::length_error&) {
    throwFileError(ENOMEM, path);
  }
  if (std::ferror(file.get()) != 0) throwFileError(errno, path);
  return bytes;
}

void copyFile(std::string_view from, std::string_view to) {
  if (sameFile(from, to)) return;
  writeFile(to, readFile(from));
}

void renameFile(std::string_view from, std::string_view to) {
  if (const int code = disk::rename(from, to)) throwFileError(code, to);
}

void removeFile(std::string_view path) {
  const int code = disk::remove(path);
  if (code != 0 && code != ENOENT) throwFileError(code, path);
}

FileLock::FileLock(std::string_view path) {
  constexpr int kTries = 60;
  constexpr int kPause = 10;  // milliseconds; Windows makes up to 16 of them
  const std::string name = std::string(path) + ".lock";
  note_ = std::make_unique<WriteNote>();
  note_->temporary(name, name, {});
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

std::string fullPath(std::string_view path) {
  return disk::fullPath(path);
}

bool sameFile(std::string_view a, std::string_view b) {
  return disk::same(a, b);
}

}  // namespace base
