#include "recent/recent_list.h"

#include <algorithm>
#include <vector>

#include "base/cp1252.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace recent {
namespace {

constexpr std::size_t kMost = 45;

std::string fromLines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) {
    if (!line.empty()) text.append(line).append(base::kCrLf);
  }
  return text;
}

std::string listFile(const std::string& programFolder) {
  return base::joinPath(programFolder, "recentF.ini");
}

void stripLineEnds(std::string& text) {
  while (text.ends_with(base::kCrLf)) text.erase(text.size() - base::kCrLf.size());
}

}  // namespace

std::string withRecent(std::string_view text, const std::string& path,
                       const std::function<bool(const std::string&)>& exists) {
  std::string list;
  // Presence is a substring test: a path that is part of a longer listed one takes the first branch too and
  // comes to the top as a new line.
  if (base::upperAscii(text).find(base::upperAscii(path)) != std::string::npos) {
    std::vector<std::string> lines = base::split(text, base::kCrLf);
    if (lines.front() == path) return std::string(text);
    lines.emplace_back();
    for (std::size_t i = lines.size() - 1; i > 0; --i) {
      // Its old place stays empty and is dropped below.
      lines[i] = lines[i - 1] == path ? std::string() : lines[i - 1];
    }
    lines.front() = path;
    list = fromLines(lines);
  } else {
    list = path + std::string(base::kCrLf) + std::string(text);
  }
  stripLineEnds(list);
  std::vector<std::string> lines = base::split(list, base::kCrLf);
  if (lines.size() > kMost) {
    for (std::string& line : lines) {
      if (!exists(line)) line.clear();
    }
    lines.resize(kMost);
    list = fromLines(lines);
    stripLineEnds(list);
  }
  return list.append(base::kCrLf);
}

std::vector<std::string> recentPaths(const std::string& programFolder) {
  std::vector<std::string> paths;
  try {
    const std::string file = listFile(programFolder);
    if (!base::fileExists(file)) return paths;
    for (const std::string& line : base::split(base::readFile(file), base::kCrLf)) {
      if (!base::trimSpaces(line).empty()) paths.push_back(base::nameFromStored(line));
    }
  } catch (const base::Error&) {
    // As good as no list.
  }
  return paths;
}

void writeRecent(const std::string& programFolder, const std::vector<std::string>& paths) {
  const base::FileLock lock(listFile(programFolder));
  std::vector<std::string> stored;
  for (const std::string& path : paths) stored.push_back(base::storedName(path));
  base::writeFile(listFile(programFolder), fromLines(stored));
}

void addRecent(const std::string& programFolder, const std::string& path) {
  const std::string file = listFile(programFolder);
  try {
    const base::FileLock lock(file);  // a second copy of the program may add a file at the same moment
    const std::string old = base::fileExists(file) ? base::readFile(file) : "";
    const std::string list = withRecent(old, base::storedName(path), [](const std::string& stored) {
      return base::fileExists(base::nameFromStored(stored));
    });
    if (list != old) base::writeFile(file, list);
  } catch (const base::Error&) {
    // The list is a convenience; the user is opening a file.
  }
}

}  // namespace recent
