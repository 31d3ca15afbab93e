#include "app/web_file.h"

#include <algorithm>

#include "base/cp1252.h"
#include "base/text.h"

namespace app {
namespace {

constexpr std::string_view kStartPage = "STOPF=";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

WebFile parseWebFile(std::string_view text) {
  WebFile file;
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  const bool crLf = text.find(base::kCrLf) != std::string_view::npos;
  for (const std::string& line : base::split(text, crLf ? base::kCrLf : "\n")) {
    if (base::trimSpaces(line).empty()) continue;
    if (line.starts_with(kStartPage)) {
      file.startPage = base::nameFromStored(std::string_view(line).substr(kStartPage.size()));
      break;
    }
    file.names.push_back(base::nameFromStored(line));
  }
  return file;
}

bool leavesFolder(std::string_view name) {
  int depth = 0;
  for (const std::string& part : base::split(base::replaceAll(name, "/", "\\"), "\\")) {
    // Blanks at the end of a name count for nothing on Windows.
    const std::string_view folder = base::trimSpaces(part);
    if (folder.empty() || folder == ".") continue;
    depth += folder == ".." ? -1 : 1;
    if (depth < 0) return true;
  }
  return false;
}

std::string webFileText(std::vector<std::string> names, std::string_view startPage) {
  siasorti(names);
  std::string text;
  for (const std::string& name : names) text.append(base::storedName(name)).append(base::kCrLf);
  text.append(kStartPage).append(base::storedName(startPage));
  return text.append(base::kCrLf);
}

void siasorti(std::vector<std::string>& names) {
  std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return b.empty() && !a.empty();
    return base::compareNoCase(a, b) < 0;
  });
}

}  // namespace app
