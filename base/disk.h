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
  std::uintmax_t size = 0;  // of a file
};
Look look(std::string_view path);

std::FILE* open(std::string_view path, bool write);  // of bytes; null and errno where it fails
int flush(std::FILE* file);                          // down to the disk

int rename(std::string_view from, std::string_view to);  // replaces an existing file
int remove(std::string_view path);                       // a file or an empty folder
int makeFolder(std::string_view path);
int fileNames(std::string_view folder, std::vector<std::string>& names);  // adds those of its ordinary files

bool same(std::string_view a, std::string_view b);  // one existing file, whatever the spelling
std::string tempFolder();
std::string fullPath(std::string_view path);  // a relative one begins at the working folder
void pause(int milliseconds);

}  // namespace base::disk
