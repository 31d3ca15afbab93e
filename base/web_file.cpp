#include "base/web_file.h"

#include "base/cp1252.h"
#include "base/text.h"

namespace base {
namespace {

constexpr std::string_view kStartPage = "STOPF=";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

WebFile parseWebFile(std::string_view text) {
  WebFile file;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const bool crLf = text.find(kCrLf) != std::string_view::npos;
  for (const std::string& line : split(text, crLf ? kCrLf : "\n")) {
    if (trimSpaces(line).empty()) continue;
    if (line.starts_with(kStartPage)) {
      file.startPage = nameFromStored(std::string_view(line).substr(kStartPage.size()));
      break;
    }
    file.names.push_back(nameFromStored(line));
  }
  return file;
}

bool leavesFolder(std::string_view name) {
  int depth = 0;
  for (const std::string& part : split(replaceAll(name, "/", "\\"), "\\")) {
    // Blanks at the end of a name count for nothing on Windows.
    const std::string_view folder = trimSpaces(part);
    if (folder.empty() || folder == ".") continue;
    depth += folder == ".." ? -1 : 1;
    if (depth < 0) return true;
  }
  return false;
}

}  // namespace base
