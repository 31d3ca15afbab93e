#include "site/file_list.h"

#include <algorithm>
#include <array>
#include <cerrno>

#include "base/disk.h"
#include "base/file_errors.h"
#include "base/file_kind.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "base/utf8.h"
#include "base/web_file.h"

namespace site {
namespace {

// What programs that keep versions have of their own.
bool isVersionFolder(std::string_view name) {
  constexpr std::array<std::string_view, 5> kNames = {".git", ".svn", ".hg", ".bzr", "CVS"};
  return std::ranges::find(kNames, name) != kNames.end();
}

bool fitsLower(std::string_view glob, std::string_view path);

// The rest of `glob` behind a "*" or "**", anywhere in `path`.
bool fitsBehind(std::string_view glob, std::string_view path, bool folders) {
  for (std::size_t at = 0;; ++at) {
    if (fitsLower(glob, path.substr(at))) return true;
    if (at == path.size() || (!folders && path[at] == '/')) return false;
  }
}

bool fitsLower(std::string_view glob, std::string_view path) {
  while (!glob.empty()) {
    if (glob.starts_with("**/")) {
      // No folder at all, or any.
      return fitsLower(glob.substr(3), path) || fitsBehind(glob.substr(2), path, true);
    }
    if (glob.starts_with("**")) return fitsBehind(glob.substr(2), path, true);
    if (glob[0] == '*') return fitsBehind(glob.substr(1), path, false);
    if (path.empty()) return false;
    if (glob[0] == '?' && path[0] != '/') {
      std::size_t at = 0;
      const bool letter = base::nextUtf8(path, at).has_value();
      path.remove_prefix(letter ? at : 1);
    } else if (glob[0] == path[0]) {
      path.remove_prefix(1);
    } else {
      return false;
    }
    glob.remove_prefix(1);
  }
  return path.empty();
}

bool fitsAny(const std::vector<std::string>& globs, std::string_view path) {
  return std::ranges::any_of(globs, [&](const std::string& glob) { return fits(glob, path); });
}

class Lister {
 public:
  explicit Lister(const Options& options) : options_(options) {}

  FileList run() {
    const bool project = base::lastThree(options_.folder) == "WEB" && base::fileExists(options_.folder);
    const std::string folder = project ? base::folderOf(base::fullPath(options_.folder)) : options_.folder;
    if (!base::folderExists(folder)) base::throwFileError(ENOTDIR, options_.folder);
    list_.folder = base::disk::realPath(folder);
    if (options_.list) {
      for (const std::string& name : *options_.list) addNamed(name);
    } else if (project) {
      for (const std::string& name : base::parseWebFile(base::readFile(options_.folder)).names)
        addNamed(name);
    } else {
      walk("");
    }
    const auto isLinked = [](const ListedFile& file) {
      return file.kind == FileKind::StyleSheet || file.kind == FileKind::Script;
    };
    std::ranges::sort(list_.files, [&](const ListedFile& a, const ListedFile& b) {
      return isLinked(a) != isLinked(b) ? isLinked(b) : a.file < b.file;
    });
    list_.files.erase(std::unique(list_.files.begin(), list_.files.end(),
                                  [](const ListedFile& a, const ListedFile& b) { return a.file == b.file; }),
                      list_.files.end());
    return std::move(list_);
  }

 private:
  void add(std::string file, Note note) {
    const bool wanted = options_.include.empty() || fitsAny(options_.include, file);
    const FileKind kind = wanted ? kindOf(file) : FileKind::Other;
    list_.files.push_back({std::move(file), kind, note});
  }

  void walk(const std::string& under) {
    std::vector<base::disk::Entry> entries;
    const std::string path = under.empty() ? list_.folder : base::joinPath(list_.folder, under);
    if (const int code = base::disk::entries(path, entries)) {
      if (under.empty()) base::throwFileError(code, list_.folder);
      list_.files.push_back({under, FileKind::Other, Note::Denied});
      return;
    }
    for (const base::disk::Entry& entry : entries) {
      const std::string file = under.empty() ? entry.name : under + "/" + entry.name;
      if (fitsAny(options_.exclude, file)) continue;
      if (!base::isUtf8(entry.name) || entry.name.find('\\') != std::string::npos) {
        list_.files.push_back({file, FileKind::Other, Note::BadName});
      } else if (entry.kind == base::disk::Kind::Folder && !entry.link) {
        if (!isVersionFolder(entry.name)) walk(file);
      } else if (entry.link) {
        add(file, Note::Link);
      } else {
        add(file, entry.kind == base::disk::Kind::File ? Note::None : Note::Special);
      }
    }
  }

  // Of a list or a project: as the user has it.
  void addNamed(const std::string& given) {
    std::string name = base::replaceAll(given, "\\", "/");
    while (name.starts_with("./")) name.erase(0, 2);
    const auto isThere = [&](std::string_view file) {
      return base::fileExists(base::joinPath(list_.folder, file));
    };
    const bool full = base::disk::fullPath(name) == name;
    if (full || !isThere(name)) {
      // From where the folder was named, as find and ls have it.
      std::string folder = base::replaceAll(options_.folder, "\\", "/");
      while (folder.starts_with("./")) folder.erase(0, 2);
      while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
      if (name.starts_with(folder + "/")) name.erase(0, folder.size() + 1);
    }
    const bool leads = base::leavesFolder(name) || base::disk::fullPath(name) == name;
    if (!leads && fitsAny(options_.exclude, name)) return;
    const std::string path = base::joinPath(list_.folder, name);
    if (!base::isUtf8(name))
      list_.files.push_back({name, FileKind::Other, Note::BadName});
    else if (leads || !isInside(path, list_.folder))
      list_.files.push_back({name, FileKind::Other, Note::Outside});
    else if (base::disk::isLink(path))
      add(name, Note::Link);
    else
      add(name, base::folderExists(path) ? Note::Special
                : base::fileExists(path) ? Note::None
                                         : Note::NotFound);
  }

  const Options& options_;
  FileList list_;
};

}  // namespace

FileList filesOf(const Options& options) {
  return Lister(options).run();
}

bool fits(std::string_view glob, std::string_view path) {
  const bool everywhere = glob.find('/') == std::string_view::npos;
  const std::string lower = base::upperAscii(everywhere ? base::fileName(path) : std::string(path));
  std::string pattern = base::upperAscii(base::replaceAll(glob, "\\", "/"));
  if (pattern.starts_with("./")) pattern.erase(0, 2);
  return fitsLower(pattern, lower);
}

std::string_view nameOf(FileKind kind) {
  constexpr std::array<std::string_view, 5> kNames = {"html", "text", "css", "script", "other"};
  return kNames[static_cast<std::size_t>(kind)];
}

FileKind kindOf(std::string_view file) {
  const std::string name = base::fileName(file);
  if (name.find('.') == std::string::npos) return FileKind::Other;
  switch (base::contentOf(base::extensionOf(name))) {
    case base::Content::Html:
    case base::Content::ServerPage:
    case base::Content::Xml:
      return FileKind::Html;
    case base::Content::Css:
      return FileKind::StyleSheet;
    case base::Content::Script:
      return FileKind::Script;
    case base::Content::Plain:
      return FileKind::PlainText;
    case base::Content::Archive:
    case base::Content::Unknown:
      break;
  }
  return FileKind::Other;
}

bool isInside(std::string_view path, std::string_view folder) {
  const std::string whole = base::replaceAll(base::disk::realPath(path), "/", "\\");
  std::string top = base::replaceAll(base::disk::realPath(folder), "/", "\\");
  if (whole == top) return true;
  if (!top.ends_with('\\')) top += '\\';
  return whole.starts_with(top);
}

}  // namespace site
