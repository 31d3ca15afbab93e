// The system's disk where the rules and their tests run without Windows.
#include "base/disk.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include "base/text.h"
#include "platform/posix/disk_faults.h"

namespace base::disk {
namespace {

namespace fs = std::filesystem;

fs::path native(std::string_view path) {
  return {replaceAll(path, "\\", "/")};
}

// Access lists and what users have noted of a file.
bool copyAttributes(const fs::path& from, const fs::path& to) {
  std::string names(static_cast<std::size_t>(std::max<ssize_t>(listxattr(from.c_str(), nullptr, 0), 0)),
                    '\0');
  names.resize(
      static_cast<std::size_t>(std::max<ssize_t>(listxattr(from.c_str(), names.data(), names.size()), 0)));
  for (const std::string& name : split(names, std::string_view("\0", 1))) {
    if (name.empty()) continue;
    const ssize_t size = getxattr(from.c_str(), name.c_str(), nullptr, 0);
    if (size < 0) return false;
    std::string value(static_cast<std::size_t>(size), '\0');
    if (getxattr(from.c_str(), name.c_str(), value.data(), value.size()) != size ||
        setxattr(to.c_str(), name.c_str(), value.data(), value.size(), 0) != 0) {
      return false;
    }
  }
  return true;
}

}  // namespace

namespace faults {
namespace {

struct Plan {
  int left = 0;  // operations until it happens; 0: none is planned, or it has happened
  int code = 0;
  bool struck = false;
};
Plan plan;

}  // namespace

void planAt(int nth, int code) {
  plan = {nth, code, false};
}

bool happened() {
  plan.left = 0;
  return plan.struck;
}

int due() {
  return plan.left > 0 && --plan.left == 0 ? plan.code : 0;
}

int strike(int code) {
  if (code == kDie) _exit(0);
  plan.struck = true;
  return code;
}

}  // namespace faults

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
    struct stat known {};
    if (stat(native(path).c_str(), &known) == 0) {
      found.names = static_cast<unsigned>(known.st_nlink);
      found.changed = std::int64_t{known.st_mtim.tv_sec} * 1'000'000'000 + known.st_mtim.tv_nsec;
    }
  } else if (fs::exists(status)) {
    found.kind = Kind::Other;
  }
  return found;
}

std::string target(std::string_view path) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  fs::path at = native(path);
  for (int i = 0; i < kMostLinks && fs::is_symlink(at, error); ++i) {
    const fs::path next = fs::read_symlink(at, error);
    if (error) return std::string(path);
    at = at.parent_path() / next;
  }
  return at == native(path) ? std::string(path) : at.string();
}

std::FILE* open(std::string_view path, Mode mode) {
  if (mode != Mode::Read) {
    if (const int code = faults::due()) {
      errno = faults::strike(code);
      return nullptr;
    }
  }
  std::FILE* const file = std::fopen(native(path).c_str(), mode == Mode::Read     ? "rb"
                                                           : mode == Mode::Create ? "wbx"
                                                                                  : "r+b");
  if (file == nullptr || mode == Mode::Read) return file;
  std::setvbuf(file, nullptr, _IONBF, 0);
  if (mode == Mode::Create) flock(fileno(file), LOCK_EX | LOCK_NB);
  return file;
}

int write(std::FILE* file, std::string_view bytes) {
  if (const int code = faults::due()) {
    // As much as a full disk takes.
    std::fwrite(bytes.data(), 1, bytes.size() / 2, file);
    return faults::strike(code);
  }
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()) return 0;
  return errno != 0 ? errno : ENOSPC;
}

int resize(std::FILE* file, std::uintmax_t size) {
  if (const int code = faults::due()) return faults::strike(code);
  struct stat known {};
  if (fstat(fileno(file), &known) != 0) return errno;
  if (static_cast<std::uintmax_t>(known.st_size) < size) {
    return posix_fallocate(fileno(file), 0, static_cast<off_t>(size));
  }
  return ftruncate(fileno(file), static_cast<off_t>(size)) == 0 ? 0 : errno;
}

bool isFree(std::string_view path) {
  std::FILE* const file = std::fopen(native(path).c_str(), "rb");
  if (file == nullptr) return false;
  const bool free = flock(fileno(file), LOCK_EX | LOCK_NB) == 0;
  std::fclose(file);
  return free;
}

int flush(std::FILE* file) {
  if (const int code = faults::due()) return faults::strike(code);
  return std::fflush(file) == 0 && fsync(fileno(file)) == 0 ? 0 : errno;
}

int flushAll(std::FILE* written, const std::vector<std::string>& files) {
  if (const int code = faults::due()) return faults::strike(code);
  struct stat known {};
  if (std::fflush(written) != 0 || fstat(fileno(written), &known) != 0 || syncfs(fileno(written)) != 0)
    return errno;
  std::vector<dev_t> done = {known.st_dev};
  for (const std::string& path : files) {
    const fs::path name = native(path);
    if (stat(name.c_str(), &known) != 0) return errno;
    if (std::ranges::find(done, known.st_dev) != done.end()) continue;
    const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    const int code = file >= 0 && syncfs(file) == 0 ? 0 : errno;
    if (file >= 0) close(file);
    if (code != 0) return code;
    done.push_back(known.st_dev);
  }
  return 0;
}

int rename(std::string_view from, std::string_view to) {
  if (const int code = faults::due()) return faults::strike(code);
  std::error_code error;
  fs::rename(native(from), native(to), error);
  return error.value();
}

int replace(std::string_view from, std::string_view to) {
  const fs::path source = native(from);
  const fs::path kept = native(to);
  struct stat known {};
  if (stat(kept.c_str(), &known) != 0 || chown(source.c_str(), known.st_uid, known.st_gid) != 0 ||
      chmod(source.c_str(), known.st_mode & 07777) != 0 || !copyAttributes(kept, source)) {
    return errno;
  }
  return rename(from, to);
}

int remove(std::string_view path) {
  std::error_code error;
  const bool removed = fs::remove(native(path), error);
  return error || removed ? error.value() : ENOENT;
}

int makeFolder(std::string_view path) {
  if (const int code = faults::due()) return faults::strike(code);
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

int entries(std::string_view folder, std::vector<Entry>& found) {
  const fs::path path = native(folder);
  DIR* const opened = opendir(path.c_str());
  if (opened == nullptr) return errno;
  errno = 0;
  while (const dirent* const entry = readdir(opened)) {
    const std::string_view name = entry->d_name;
    if (name == "." || name == "..") continue;
    Entry one{std::string(name)};
    unsigned char type = entry->d_type;
    struct stat known {};
    if (type == DT_UNKNOWN && lstat((path / name).c_str(), &known) == 0)
      type = static_cast<unsigned char>(IFTODT(known.st_mode));
    one.link = type == DT_LNK;
    if (one.link) {
      one.kind = look((path / name).string()).kind;
    } else if (type == DT_REG) {
      one.kind = Kind::File;
    } else if (type == DT_DIR) {
      one.kind = Kind::Folder;
    }
    found.push_back(std::move(one));
    errno = 0;
  }
  const int code = errno;
  closedir(opened);
  return code;
}

bool isLink(std::string_view path) {
  struct stat known {};
  return lstat(native(path).c_str(), &known) == 0 && S_ISLNK(known.st_mode);
}

int stamp(std::string_view path, Stamp& found) {
  struct stat known {};
  if (stat(native(path).c_str(), &known) != 0) return errno;
  found = {known.st_mtim.tv_sec, static_cast<std::uint32_t>(known.st_mtim.tv_nsec), known.st_mode & 07777};
  return 0;
}

int setStamp(std::string_view path, const Stamp& stamp) {
  const fs::path file = native(path);
  const timespec times[2] = {{0, UTIME_OMIT}, {stamp.seconds, static_cast<long>(stamp.nanoseconds)}};
  if (utimensat(AT_FDCWD, file.c_str(), times, 0) != 0 || chmod(file.c_str(), stamp.marks) != 0) return errno;
  return 0;
}

int flushFolder(std::string_view path) {
  const int folder = ::open(native(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return errno;
  const int code = fsync(folder) == 0 ? 0 : errno;
  close(folder);
  return code;
}

std::string realPath(std::string_view path) {
  std::error_code error;
  const fs::path found = fs::weakly_canonical(fs::absolute(native(path)), error);
  return error ? fullPath(path) : found.string();
}

bool same(std::string_view a, std::string_view b) {
  std::error_code error;
  return fs::equivalent(native(a), native(b), error) && !error;
}

std::string identity(std::string_view path) {
  struct stat known {};
  if (stat(native(path).c_str(), &known) != 0) return {};
  return std::to_string(known.st_dev) + ":" + std::to_string(known.st_ino);
}

std::string tempFolder() {
  return fs::temp_directory_path().string();
}

std::string fullPath(std::string_view path) {
  if (path.empty() || path.front() == '/') return std::string(path);
  return fs::absolute(native(path)).string();
}

std::string ownFolder(std::string_view part) {
  const char* const state = std::getenv("XDG_STATE_HOME");
  const char* const home = std::getenv("HOME");
  fs::path folder = state != nullptr && *state != '\0' ? fs::path(state)
                    : home != nullptr                  ? fs::path(home) / ".local/state"
                                                       : fs::temp_directory_path();
  folder /= fs::path("zervo") / part;
  std::error_code error;
  fs::create_directories(folder, error);
  return folder.string();
}

std::string newName() {
  static std::atomic<unsigned> number = 0;
  return std::to_string(getpid()) + "-" + std::to_string(++number);
}

void pause(int milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace base::disk
