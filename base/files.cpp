#include "base/files.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <thread>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "base/error.h"
#include "base/text.h"

namespace base {
namespace {

namespace fs = std::filesystem;

// Beyond this length Windows wants the "\\?\" form of an absolute path.
[[maybe_unused]] constexpr std::size_t kLongPath = 240;

fs::path native(std::string_view path) {
#ifdef _WIN32
  std::string text = replaceAll(path, "/", "\\");
  const bool absolute = text.size() > 2 && text[1] == ':' && text[2] == '\\';
  if (absolute && text.size() >= kLongPath) text.insert(0, "\\\\?\\");
#else
  std::string text = replaceAll(path, "\\", "/");
#endif
  return {std::u8string(text.begin(), text.end())};
}

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
#ifdef _WIN32
  File file(_wfopen(native(path).c_str(), write ? L"wb" : L"rb"));
#else
  File file(std::fopen(native(path).c_str(), write ? "wb" : "rb"));
#endif
  if (!file) fail(errno, path);
  return file;
}

int flushToDisk(std::FILE* file) {
  if (std::fflush(file) != 0) return errno;
#ifdef _WIN32
  return _commit(_fileno(file)) == 0 ? 0 : errno;
#else
  return fsync(fileno(file)) == 0 ? 0 : errno;
#endif
}

// A file that is gone again unless it is put in its place.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view target) : path_(std::string(target) + ".zervo-tmp") {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    std::error_code ignored;
    fs::remove(native(path_), ignored);
  }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

}  // namespace

bool fileExists(std::string_view path) {
  std::error_code error;
  return !path.empty() && fs::is_regular_file(native(path), error);
}

bool folderExists(std::string_view path) {
  std::error_code error;
  return !path.empty() && fs::is_directory(native(path), error);
}

std::vector<std::string> fileNames(std::string_view folder) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator at(native(folder), error), end; !error && at != end; at.increment(error)) {
    std::error_code unknown;
    if (!at->is_regular_file(unknown)) continue;
    const std::u8string name = at->path().filename().u8string();
    names.emplace_back(name.begin(), name.end());
  }
  return names;
}

std::string tempFolder() {
  const std::u8string path = fs::temp_directory_path().u8string();
  std::string folder(path.begin(), path.end());
  while (folder.size() > 1 && (folder.back() == '\\' || folder.back() == '/')) folder.pop_back();
  return folder;
}

std::uintmax_t fileSize(std::string_view path) {
  std::error_code error;
  const auto size = fs::file_size(native(path), error);
  return error ? 0 : size;
}

std::vector<std::string> filesIn(std::string_view folder) {
  std::vector<std::string> names;
  std::error_code error;
  fs::directory_iterator entry(native(folder), error);
  while (!error && entry != fs::directory_iterator()) {
    std::error_code unknown;
    if (entry->is_regular_file(unknown)) {
      try {
        const std::u8string name = entry->path().filename().u8string();
        names.emplace_back(name.begin(), name.end());
      } catch (const std::system_error&) {  // no Unicode: nobody could open it by that name
      }
    }
    entry.increment(error);
  }
  if (error) fail(error.default_error_condition().value(), folder);
  return names;
}

void makeFolder(std::string_view path) {
  if (fileExists(path)) fail(ENOTDIR, path);
  std::error_code error;
  fs::create_directory(native(path), error);
  if (error) fail(error.default_error_condition().value(), path);
}

constexpr std::size_t kReadAhead = 1U << 16U;

std::string readFile(std::string_view path) {
  if (folderExists(path)) fail(EISDIR, path);
  const File file = open(path, false);
  std::error_code error;
  const auto size = fs::file_size(native(path), error);
  std::string bytes;
  try {
    // Straight into the text. The file may have grown or shrunk since, so its size is no more than a guess.
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    std::size_t done = 0;
    for (std::size_t room = error ? 0 : size + 1;; room = done + kReadAhead) {
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

void writeFile(std::string_view path, std::string_view bytes) {
  if (folderExists(path)) fail(EISDIR, path);
  // Replacing by name would slip past a read-only mark that a plain write respects.
  std::error_code error;
  const auto permissions = fs::status(native(path), error).permissions();
  if (fileExists(path) && (permissions & fs::perms::owner_write) == fs::perms::none) fail(EACCES, path);

  const TemporaryFile temporary(path);
  int code = 0;
  {
    const File file = open(temporary.path(), true);
    errno = 0;
    if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
      code = errno != 0 ? errno : ENOSPC;
    }
    if (code == 0) code = flushToDisk(file.get());
  }
  if (code != 0) fail(code, path);
  renameFile(temporary.path(), path);
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
  std::error_code error;
  fs::rename(native(from), native(to), error);
  if (error) fail(error.default_error_condition().value(), to);
}

void removeFile(std::string_view path) {
  std::error_code error;
  fs::remove(native(path), error);
  if (error) fail(error.default_error_condition().value(), path);
}

FileLock::FileLock(std::string_view path) {
  using namespace std::chrono_literals;
  const std::string name = std::string(path) + ".lock";
  const auto until = std::chrono::steady_clock::now() + 1s;
  while (true) {
    std::error_code error;
    // Making a folder is atomic everywhere, and nobody's file can be harmed by it.
    if (fs::create_directory(native(name), error)) {
      lockFile_ = name;
      return;
    }
    if (error) return;
    if (std::chrono::steady_clock::now() > until) {
      fs::remove(native(name), error);  // left behind by a copy that died
      return;
    }
    std::this_thread::sleep_for(10ms);
  }
}

FileLock::~FileLock() {
  std::error_code ignored;
  if (!lockFile_.empty()) fs::remove(native(lockFile_), ignored);
}

bool sameFile(std::string_view a, std::string_view b) {
  std::error_code error;
  return fs::equivalent(native(a), native(b), error) && !error;
}

}  // namespace base
