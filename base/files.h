// Whole files by UTF-8 path. Every failure is a base::Error with a sentence for the user; a failed write
// leaves the old file as it was.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace base {

bool fileExists(std::string_view path);          // an ordinary file
std::uintmax_t fileSize(std::string_view path);  // bytes; 0 when it cannot be told
bool folderExists(std::string_view path);        // a directory
std::vector<std::string> fileNames(
    std::string_view folder);  // of its ordinary files; none when it cannot be read
std::string tempFolder();      // the user's own, for what need not last; without a "\\" at its end

// Names of the ordinary files of a folder, in no order.
std::vector<std::string> filesIn(std::string_view folder);
// Makes one folder in an existing one; does nothing when it is there.
void makeFolder(std::string_view path);

std::string readFile(std::string_view path);

// The file holds exactly `bytes` afterwards; symbolic links are followed, and hard links, attributes, rights
// and creation time stay. Written beside the target, flushed, then put in its place, so that at every moment
// the file is whole old or whole new. Where that cannot be, it is written over in its place, with a note by
// which finishInterruptedWrites() makes it whole if the program dies meanwhile. Missing folders are not made.
void writeFile(std::string_view path, std::string_view bytes);

// Like writing over the file from its first byte without truncating it: a longer old file keeps its tail,
// which is returned.
std::string overwriteFile(std::string_view path, std::string_view bytes);

// Replaces an existing target; copying a file onto itself does nothing.
void copyFile(std::string_view from, std::string_view to);
// The same for a file of any size, with little memory. `to` is whole or not there at every moment.
void copyInPieces(std::string_view from, std::string_view to);
void renameFile(std::string_view from, std::string_view to);  // replaces an existing target
void removeFile(std::string_view path);                       // a missing file is no error

class WriteNote;

// While it lives no other copy of the program holds the lock of the same file. Waits a second at most; then,
// or where no lock file can be made, goes on without: a lock left behind must not stop anybody. That of a run
// that died goes at the next start.
class FileLock {
 public:
  explicit FileLock(std::string_view path);
  FileLock(const FileLock&) = delete;
  FileLock& operator=(const FileLock&) = delete;
  ~FileLock();

 private:
  std::string lockFile_;  // empty: not ours
  std::unique_ptr<WriteNote> note_;
};

// Both name one existing file, whatever the spelling.
bool sameFile(std::string_view a, std::string_view b);

// A relative path with its folder, which is the working folder of this moment; a full one as it is.
std::string fullPath(std::string_view path);

}  // namespace base
