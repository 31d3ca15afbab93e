// The disk of Windows.
#include "base/disk.h"

#include <io.h>

#include <cerrno>
#include <utility>

#include "base/text.h"
#include "platform/win32/windows_api.h"

namespace base::disk {
namespace {

// Beyond this length Windows wants the "\\?\" form of an absolute path.
constexpr std::size_t kLongPath = 240;

std::wstring native(std::string_view path) {
  std::string text = replaceAll(path, "/", "\\");
  const bool absolute = text.size() > 2 && text[1] == ':' && text[2] == '\\';
  if (absolute && text.size() >= kLongPath) text.insert(0, "\\\\?\\");
  const int length = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');  // UTF-16 is never longer than UTF-8
  wide.resize(
      static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
  return wide;
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

// Volume and number of a file, which name it whatever its path; none when it is not there.
struct Identity {
  explicit Identity(std::string_view path) {
    const HANDLE file =
        CreateFileW(native(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
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
  } else {
    found.kind = Kind::Other;
  }
  return found;
}

std::FILE* open(std::string_view path, bool write) {
  return _wfopen(native(path).c_str(), write ? L"wb" : L"rb");
}

int flush(std::FILE* file) {
  return std::fflush(file) == 0 && _commit(_fileno(file)) == 0 ? 0 : errno;
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

int remove(std::string_view path) {
  const std::wstring name = native(path);
  return result(look(path).kind == Kind::Folder ? RemoveDirectoryW(name.c_str()) : DeleteFileW(name.c_str()));
}

int makeFolder(std::string_view path) {
  return result(CreateDirectoryW(native(path).c_str(), nullptr));
}

int fileNames(std::string_view folder, std::vector<std::string>& names) {
  if (folder.empty()) return ENOENT;
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(native(std::string(folder) + "\\*").c_str(), &entry);
  // A drive's root without any file has not even the entries "." and "..".
  if (search == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : lastError();
  do {
    std::string name = isFile(entry.dwFileAttributes) ? utf8(entry.cFileName) : std::string();
    if (!name.empty()) names.push_back(std::move(name));
  } while (FindNextFileW(search, &entry) != FALSE);
  const int code = GetLastError() == ERROR_NO_MORE_FILES ? 0 : lastError();
  FindClose(search);
  return code;
}

bool same(std::string_view a, std::string_view b) {
  return Identity(a) == Identity(b);
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

void pause(int milliseconds) {
  Sleep(static_cast<DWORD>(milliseconds));
}

}  // namespace base::disk
