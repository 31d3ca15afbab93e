#include "publish/local_files.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/path.h"
#include "base/text.h"

namespace publish {
namespace {

bool isLeftOut(const std::string& name, bool folder) {
  if (name.starts_with(".zervo-")) return true;
  const auto is = [&](std::string_view other) { return base::equalNoCase(name, other); };
  if (folder) return is(".git") || is(".svn") || is(".hg") || is("CVS") || is("__MACOSX");
  return is("Thumbs.db") || is("desktop.ini") || is(".DS_Store");
}

void walk(const std::string& folder, const std::string& path, std::vector<LocalFile>& found) {
  std::vector<base::disk::Entry> entries;
  if (const int code = base::disk::entries(folder, entries)) base::throwFileError(code, folder);
  for (const base::disk::Entry& entry : entries) {
    const bool below = entry.kind == base::disk::Kind::Folder;
    if (isLeftOut(entry.name, below) || (below && entry.link)) continue;
    const std::string whole = path.empty() ? entry.name : path + "/" + entry.name;
    const std::string source = base::joinPath(folder, entry.name);
    if (below) {
      walk(source, whole, found);
    } else if (entry.kind == base::disk::Kind::File) {
      const base::disk::Look look = base::disk::look(source);
      found.push_back({whole, source, static_cast<std::int64_t>(look.size), look.changed});
    }
  }
}

}  // namespace

std::vector<LocalFile> localFiles(std::string_view folder) {
  std::vector<LocalFile> found;
  walk(std::string(folder), {}, found);
  std::sort(found.begin(), found.end(),
            [](const LocalFile& a, const LocalFile& b) { return a.path < b.path; });
  return found;
}

bool isLocalPath(std::string_view path) {
  const auto isName = [](std::string_view name) {
    static constexpr std::string_view kDevices[] = {"CON", "PRN", "AUX", "NUL"};
    if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
    for (const char c : name) {
      if (static_cast<unsigned char>(c) < ' ' || std::strchr("<>:\"|?*\\", c) != nullptr) return false;
    }
    const std::string stem = base::upperAscii(name.substr(0, name.find('.')));
    const bool numbered = stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
                          stem.back() >= '1' && stem.back() <= '9';
    return !numbered && std::ranges::find(kDevices, stem) == std::end(kDevices);
  };
  for (std::size_t begin = 0; begin <= path.size();) {
    const std::size_t end = std::min(path.find('/', begin), path.size());
    if (!isName(path.substr(begin, end - begin))) return false;
    begin = end + 1;
  }
  return true;
}

}  // namespace publish
