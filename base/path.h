// Paths as text: UTF-8, "\" between folder and name.
#pragma once

#include <string>
#include <string_view>

namespace base {

// folder & "\" & name; the "\" only when the folder does not already end in one. An empty folder gives name.
std::string joinPath(std::string_view folder, std::string_view name);
// The part after the last "\" (also "/", which users type); the whole path when there is none.
std::string fileName(std::string_view path);
// The part before the last "\", without it; empty when there is none.
std::string folderOf(std::string_view path);
// The part after the last "." in upper case; a title without "." gives the whole title.
std::string extensionOf(std::string_view title);
// The last three characters in upper case: how open commands recognise project and picture files.
std::string lastThree(std::string_view path);
// The same file by name: ASCII letters without case, "/" like "\".
bool samePath(std::string_view a, std::string_view b);

}  // namespace base
