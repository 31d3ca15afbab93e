// What base/files asks of the system, by UTF-8 path. Every int is an error of <cerrno>, or 0. Windows is
// asked directly: C++'s own library for this would make the program half as large again.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace base::disk {

enum class Kind { Nothing, File, Folder, Other };

struct Look {
  Kind kind = Kind::Nothing;
  bool readOnly = false;
  std::uintmax_t size = 0;   // of a file
  unsigned names = 1;        // of one file, by hard links
  std::int64_t changed = 0;  // when it was last written, in the system's own units
};
Look look(std::string_view path);

// Where the path leads through symbolic links; the path itself where it is none or the system cannot tell.
std::string target(std::string_view path);

// Create makes a file that is not there yet, which nobody else may open meanwhile; Change is for reading and
// writing an existing one.
enum class Mode { Read, Create, Change };
// Of bytes; without a buffer, but for reading. Null and errno where it fails.
std::FILE* open(std::string_view path, Mode mode);
int write(std::FILE* file, std::string_view bytes);  // all of them, or an error
int resize(std::FILE* file, std::uintmax_t size);
int flush(std::FILE* file);  // down to the disk
// `written` and all these files, with their names, are on the disk afterwards: in one go where the system
// can, which takes little longer than one of them.
int flushAll(std::FILE* written, const std::vector<std::string>& files);
bool isFree(std::string_view path);  // an existing file that nobody has made with Create and still holds

int rename(std::string_view from, std::string_view to);  // replaces an existing file
// Puts `from` in the place of the existing file `to`, whose attributes, rights, owner and creation time it
// takes over. Where it cannot have all of them nothing is done. The system may need more than one step: then
// the old file lies as asideOf(from) meanwhile.
int replace(std::string_view from, std::string_view to);
inline std::string asideOf(std::string_view from) {
  return std::string(from) + ".old";
}
int remove(std::string_view path);  // a file or an empty folder
int makeFolder(std::string_view path);
int fileNames(std::string_view folder, std::vector<std::string>& names);  // adds those of its ordinary files

struct Entry {
  std::string name;
  Kind kind = Kind::Other;  // of a link: what it leads to
  bool link = false;        // symbolic links, junctions
};
int entries(std::string_view folder, std::vector<Entry>& found);  // adds all but "." and "..", in no order
bool isLink(std::string_view path);

// When the bytes of a file were last changed, and its marks: the rights of its mode, or the attributes of
// Windows. Of a link those of what it leads to.
struct Stamp {
  std::int64_t seconds = 0;  // since 1970, UTC
  std::uint32_t nanoseconds = 0;
  std::uint32_t marks = 0;
  bool operator==(const Stamp&) const = default;
};
int stamp(std::string_view path, Stamp& found);
int setStamp(std::string_view path, const Stamp& stamp);
// Names that were made, changed or removed in the folder are on the disk afterwards.
int flushFolder(std::string_view path);

bool same(std::string_view a, std::string_view b);  // one existing file, whatever the spelling
// What names an existing file among all, whatever the path; empty where it is not there or cannot be told.
std::string identity(std::string_view path);
// The full path without links, "." and ".."; what of its end is not there yet stays as it is spelt.
std::string realPath(std::string_view path);
std::string tempFolder();
std::string fullPath(std::string_view path);   // a relative one begins at the working folder
std::string ownFolder(std::string_view part);  // of the program, for this user; made when it is missing
std::string newName();                         // no other run of the program makes the same
void pause(int milliseconds);

}  // namespace base::disk
