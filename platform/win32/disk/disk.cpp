// The disk of Windows.
#include "base/disk.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <utility>

#include "base/text.h"
#include "platform/win32/system/windows_api.h"

namespace base::disk {
namespace {

// Beyond this length Windows wants the "\\?\" form of a path, which it then takes as it is.
constexpr std::size_t kLongPath = 240;
constexpr std::wstring_view kAsItIs = L"\\\\?\\";

std::wstring native(std::string_view path) {
  const std::string text = replaceAll(path, "/", "\\");
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // UTF-16 is never longer than UTF-8
  wide.resize(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
  if (wide.size() < kLongPath || wide.starts_with(kAsItIs)) return wide;
  std::wstring whole(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  return whole.starts_with(L"\\\\") ? std::wstring(kAsItIs).append(L"UNC").append(whole, 1)
                                    : std::wstring(kAsItIs).append(whole);
}

// Empty where it is no Unicode: nobody could open a file by that name.
std::string utf8(std::wstring_view wide) {
  const int length = static_cast<int>(wide.size());
  std::string text(wide.size() * 3, '\0');
  text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(),
                                                           static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

int lastError() {
  switch (GetLastError()) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_BAD_PATHNAME:
      return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_CURRENT_DIRECTORY:
    case ERROR_CANNOT_MAKE:
      return EACCES;
    case ERROR_WRITE_PROTECT:
      return EROFS;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      return EEXIST;
    case ERROR_DIRECTORY:
      return ENOTDIR;
    case ERROR_DIR_NOT_EMPTY:
      return ENOTEMPTY;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      return ENOSPC;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
      return ENOMEM;
    case ERROR_FILENAME_EXCED_RANGE:
      return ENAMETOOLONG;
    default:
      return EIO;
  }
}

int result(BOOL done) {
  return done != FALSE ? 0 : lastError();
}

bool isFile(DWORD attributes) {
  return (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) == 0;
}

// Symbolic links and junctions; other reparse points are files of some storage.
bool leadsElsewhere(const WIN32_FIND_DATAW& entry) {
  return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK || entry.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

// Of the system's time: since 1601, in steps of 100 ns.
constexpr std::int64_t kTicksASecond = 10000000;
constexpr std::int64_t kSecondsTo1970 = 11644473600;
constexpr std::uint32_t kNanosecondsATick = 100;
// What SetFileAttributes can give back.
constexpr DWORD kMarksToKeep = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                               FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

// For what a file is and where, not for what it holds.
HANDLE openToAsk(std::string_view path) {
  return CreateFileW(native(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// Volume and number of a file, which name it whatever its path; none when it is not there.
struct Identity {
  explicit Identity(std::string_view path) {
    const HANDLE file = openToAsk(path);
    if (file == INVALID_HANDLE_VALUE) return;
    found = GetFileInformationByHandle(file, &information) != FALSE;
    CloseHandle(file);
  }
  bool operator==(const Identity& other) const {
    const auto& mine = information;
    const auto& theirs = other.information;
    return found && other.found && mine.dwVolumeSerialNumber == theirs.dwVolumeSerialNumber &&
           mine.nFileIndexHigh == theirs.nFileIndexHigh && mine.nFileIndexLow == theirs.nFileIndexLow;
  }

  bool found = false;
  BY_HANDLE_FILE_INFORMATION information{};
};

// The list of rights as it is stored; empty where the file system has none.
std::string rightsOf(const std::wstring& path) {
  DWORD size = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::string rights(size, '\0');
  if (GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size) == FALSE)
    return {};
  return rights;
}

}  // namespace

Look look(std::string_view path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(native(path).c_str(), GetFileExInfoStandard, &data) == FALSE) return {};
  Look found;
  found.readOnly = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    found.kind = Kind::Folder;
  } else if (isFile(data.dwFileAttributes)) {
    found.kind = Kind::File;
    found.size = (static_cast<std::uintmax_t>(data.nFileSizeHigh) << 32U) | data.nFileSizeLow;
    found.changed =
        static_cast<std::int64_t>((static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32U) |
                                  data.ftLastWriteTime.dwLowDateTime);
    const Identity known(path);
    if (known.found) found.names = std::max<unsigned>(1, known.information.nNumberOfLinks);
  } else {
    found.kind = Kind::Other;
  }
  return found;
}

std::string target(std::string_view path) {
  const HANDLE file = openToAsk(path);
  if (file == INVALID_HANDLE_VALUE) return std::string(path);
  std::wstring name(GetFinalPathNameByHandleW(file, nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
  name.resize(
      GetFinalPathNameByHandleW(file, name.data(), static_cast<DWORD>(name.size()), FILE_NAME_NORMALIZED));
  CloseHandle(file);
  std::string found = utf8(name);
  return found.empty() ? std::string(path) : found;
}

std::FILE* open(std::string_view path, Mode mode) {
  if (mode == Mode::Read) return _wfopen(native(path).c_str(), L"rb");
  int file = -1;
  const bool make = mode == Mode::Create;
  const errno_t code = _wsopen_s(&file, native(path).c_str(),
                                 _O_RDWR | _O_BINARY | _O_NOINHERIT | (make ? _O_CREAT | _O_EXCL : 0),
                                 make ? _SH_DENYRW : _SH_DENYNO, _S_IREAD | _S_IWRITE);
  if (code != 0) {
    errno = code;
    return nullptr;
  }
  std::FILE* const stream = _fdopen(file, make ? "wb" : "r+b");
  if (stream == nullptr) {
    _close(file);
  } else {
    std::setvbuf(stream, nullptr, _IONBF, 0);
  }
  return stream;
}

int write(std::FILE* file, std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()) return 0;
  return errno != 0 ? errno : ENOSPC;
}

int resize(std::FILE* file, std::uintmax_t size) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(size);
  return result(SetFileInformationByHandle(handle, FileEndOfFileInfo, &end, sizeof end));
}

bool isFree(std::string_view path) {
  const HANDLE file = CreateFileW(native(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
  return file != INVALID_HANDLE_VALUE;
}

int flush(std::FILE* file) {
  return std::fflush(file) == 0 && _commit(_fileno(file)) == 0 ? 0 : errno;
}

int flushAll(std::FILE* written, const std::vector<std::string>& files) {
  // A whole volume may be flushed by administrators alone.
  for (const std::string& path : files) {
    std::FILE* const file = open(path, Mode::Change);
    if (file == nullptr) return errno;
    const int code = flush(file);
    std::fclose(file);
    if (code != 0) return code;
  }
  return flush(written);
}

int rename(std::string_view from, std::string_view to) {
  // A virus scanner or an indexer may have the file open just now.
  constexpr int kTries = 20;
  constexpr int kPause = 25;  // milliseconds
  for (int tried = 1;; ++tried) {
    const int code = result(MoveFileExW(native(from).c_str(), native(to).c_str(),
                                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_COPY_ALLOWED));
    if (code != EACCES || tried == kTries || look(from).kind != Kind::File) return code;
    pause(kPause);
  }
}

int replace(std::string_view from, std::string_view to) {
  const std::wstring source = native(from);
  const std::wstring kept = native(to);
  // The system's own replacing keeps what a file system has beside; times, marks and rights are not kept by
  // it everywhere.
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(kept.c_str(), GetFileExInfoStandard, &data) == FALSE) return lastError();
  // Asked first: replacing that fails on the way may leave a file of the system's own behind.
  const HANDLE free =
      CreateFileW(kept.c_str(), GENERIC_READ | DELETE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, 0, nullptr);
  if (free == INVALID_HANDLE_VALUE) return lastError();
  CloseHandle(free);
  const HANDLE file =
      CreateFileW(source.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return lastError();
  SetFileTime(file, &data.ftCreationTime, nullptr, nullptr);
  CloseHandle(file);
  SetFileAttributesW(source.c_str(), data.dwFileAttributes);
  // New files of a folder mostly have the rights of its old ones. Copied ones are not everywhere the same.
  if (rightsOf(kept) != rightsOf(source)) return EPERM;
  // Under a name that is known: without one the system makes one up, and who dies meanwhile leaves the old
  // file under it.
  const std::wstring aside = native(asideOf(from));
  const int code = result(ReplaceFileW(kept.c_str(), source.c_str(), aside.c_str(),
                                       REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr));
  if (code == 0) {
    DeleteFileW(aside.c_str());
  } else if (look(to).kind == Kind::Nothing) {
    MoveFileExW(aside.c_str(), kept.c_str(), 0);
  }
  return code;
}

int remove(std::string_view path) {
  const std::wstring name = native(path);
  return result(look(path).kind == Kind::Folder ? RemoveDirectoryW(name.c_str()) : DeleteFileW(name.c_str()));
}

int makeFolder(std::string_view path) {
  return result(CreateDirectoryW(native(path).c_str(), nullptr));
}

namespace {

// Every entry of a folder; an error of <cerrno>, or 0.
template <class Visit>
int visitEntries(std::string_view folder, Visit visit) {
  if (folder.empty()) return ENOENT;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(native(std::string(folder) + "\\*").c_str(), &entry);
  // A drive's root without any file has not even the entries "." and "..".
  if (search == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : lastError();
  do {
    std::string name = utf8(entry.cFileName);
    if (!name.empty()) visit(entry, std::move(name));
  } while (FindNextFileW(search, &entry) != FALSE);
  const int code = GetLastError() == ERROR_NO_MORE_FILES ? 0 : lastError();
  FindClose(search);
  return code;
}

}  // namespace

int fileNames(std::string_view folder, std::vector<std::string>& names) {
  return visitEntries(folder, [&](const WIN32_FIND_DATAW& entry, std::string name) {
    if (isFile(entry.dwFileAttributes)) names.push_back(std::move(name));
  });
}

int entries(std::string_view folder, std::vector<Entry>& found) {
  return visitEntries(folder, [&](const WIN32_FIND_DATAW& entry, std::string name) {
    if (name == "." || name == "..") return;
    const DWORD attributes = entry.dwFileAttributes;
    found.push_back({std::move(name),
                     (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Kind::Folder
                     : isFile(attributes)                         ? Kind::File
                                                                  : Kind::Other,
                     leadsElsewhere(entry)});
  });
}

bool isLink(std::string_view path) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(native(path).c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return leadsElsewhere(entry);
}

int stamp(std::string_view path, Stamp& found) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  if (GetFileAttributesExW(native(path).c_str(), GetFileExInfoStandard, &data) == FALSE) return lastError();
  const std::int64_t ticks =
      static_cast<std::int64_t>((static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32U) |
                                data.ftLastWriteTime.dwLowDateTime);
  found.seconds = ticks / kTicksASecond - kSecondsTo1970;
  found.nanoseconds = static_cast<std::uint32_t>(ticks % kTicksASecond) * kNanosecondsATick;
  found.marks = data.dwFileAttributes & kMarksToKeep;
  return 0;
}

int setStamp(std::string_view path, const Stamp& stamp) {
  const std::wstring name = native(path);
  const HANDLE file =
      CreateFileW(name.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return lastError();
  const auto ticks = static_cast<std::uint64_t>((stamp.seconds + kSecondsTo1970) * kTicksASecond +
                                                stamp.nanoseconds / kNanosecondsATick);
  const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32U)};
  const int code = result(SetFileTime(file, nullptr, nullptr, &time));
  CloseHandle(file);
  if (code != 0) return code;
  return result(SetFileAttributesW(name.c_str(), stamp.marks != 0 ? stamp.marks : FILE_ATTRIBUTE_NORMAL));
}

int flushFolder(std::string_view) {
  return 0;  // the file system notes changes of names by itself, in their order
}

std::string realPath(std::string_view path) {
  // Of what is there the system knows the true name; the rest is added as it stands.
  std::string known = fullPath(path);
  std::wstring whole(GetFullPathNameW(native(known).c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(
      GetFullPathNameW(native(known).c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  if (!whole.empty()) known = utf8(whole);
  std::string rest;
  while (look(known).kind == Kind::Nothing) {
    const std::size_t at = known.find_last_of('\\');
    if (at == std::string::npos || at < 3) break;
    rest = known.substr(at) + rest;
    known.resize(at);
  }
  return target(known) + rest;
}

bool same(std::string_view a, std::string_view b) {
  return Identity(a) == Identity(b);
}

std::string identity(std::string_view path) {
  const Identity known(path);
  const auto& information = known.information;
  if (!known.found) return {};
  return std::to_string(information.dwVolumeSerialNumber) + ":" + std::to_string(information.nFileIndexHigh) +
         ":" + std::to_string(information.nFileIndexLow);
}

std::string tempFolder() {
  wchar_t folder[MAX_PATH + 1];
  return utf8({folder, GetTempPathW(MAX_PATH + 1, folder)});
}

std::string fullPath(std::string_view path) {
  const bool onDrive = path.size() > 2 && path[1] == ':' && (path[2] == '\\' || path[2] == '/');
  if (path.empty() || onDrive || path.starts_with("\\\\")) return std::string(path);
  const std::wstring relative = native(path);
  std::wstring full(GetFullPathNameW(relative.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(relative.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full.empty() ? std::string(path) : utf8(full);
}

std::string ownFolder(std::string_view part) {
  std::wstring folder(GetEnvironmentVariableW(L"LOCALAPPDATA", nullptr, 0), L'\0');
  folder.resize(GetEnvironmentVariableW(L"LOCALAPPDATA", folder.data(), static_cast<DWORD>(folder.size())));
  std::string path = folder.empty() ? tempFolder() : utf8(folder);
  for (const std::string_view name : {std::string_view("Zervo"), part}) {
    path.append("\\").append(name);
    makeFolder(path);
  }
  return path;
}

std::string newName() {
  static std::atomic<unsigned> number = 0;
  return std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++number);
}

void pause(int milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
}

}  // namespace base::disk
