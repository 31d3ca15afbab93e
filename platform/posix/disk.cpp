// The system's disk where the rules and their tests run without Windows.
#include "base/disk.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <system_error>
#include <thread>

#include "base/text.h"

namespace base::disk {
namespace {

namespace fs = std::filesystem;

fs::path native(std::string_view path) {
  return {replaceAll(path, "\\", "/")};
}

}  // namespace

Look look(std::string_view path) {
  std::error_code error;
  const fs::file_status status = fs::status(native(path), error);
  Look found;
  found.readOnly = (status.permissions() & fs::perms::owner_write) == fs::perms::none;
  if (fs::is_directory(status)) {
    found.kind = Kind::Folder;
  } else if (fs::is_regular_file(status)) {
    found.kind = Kind::File;
    const auto size = fs::file_size(native(path), error);
    if (!error) found.size = size;
  } else if (fs::exists(status)) {
    found.kind = Kind::Other;
  }
  return found;
}

std::FILE* open(std::string_view path, bool write) {
  return std::fopen(native(path).c_str(), write ? "wb" : "rb");
}

int flush(std::FILE* file) {
  return std::fflush(file) == 0 && fsync(fileno(file)) == 0 ? 0 : errno;
}

int rename(std::string_view from, std::string_view to) {
  std::error_code error;
  fs::rename(native(from), native(to), error);
  return error.value();
}

int remove(std::string_view path) {
  std::error_code error;
  const bool removed = fs::remove(native(path), error);
  return error || removed ? error.value() : ENOENT;
}

int makeFolder(std::string_view path) {
  std::error_code error;
  const bool made = fs::create_directory(native(path), error);
  return error || made ? error.value() : EEXIST;
}

int fileNames(std::string_view folder, std::vector<std::string>& names) {
  std::error_code error;
  for (fs::directory_iterator at(native(folder), error), end; !error && at != end; at.increment(error)) {
    std::error_code unknown;
    if (at->is_regular_file(unknown)) names.push_back(at->path().filename().string());
  }
  return error.value();
}

bool same(std::string_view a, std::string_view b) {
  std::error_code error;
  return fs::equivalent(native(a), native(b), error) && !error;
}

std::string tempFolder() {
  return fs::temp_directory_path().string();
}

std::string fullPath(std::string_view path) {
  if (path.empty() || path.front() == '/') return std::string(path);
  return fs::absolute(native(path)).string();
}

void pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace base::disk
