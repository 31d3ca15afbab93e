#include "generators/page_library.h"

#include <algorithm>
#include <cctype>

#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "base/utf8.h"

namespace generators {
namespace {

// What a crash while writing may leave behind.
constexpr std::string_view kUnfinished = ".zervo-";
constexpr std::size_t kPreviewBytes = 4000;
constexpr int kPreviewLines = 60;

}  // namespace

std::string PageLibrary::path(const std::string& name) const {
  return base::joinPath(folder_, name);
}

std::vector<std::string> PageLibrary::names() const {
  if (!base::folderExists(folder_)) return {};
  std::vector<std::string> all = base::filesIn(folder_);
  std::erase_if(all, [](const std::string& name) { return name.starts_with(kUnfinished); });
  std::sort(all.begin(), all.end(), [](const std::string& a, const std::string& b) {
    const int order = base::compareNoCase(a, b);
    return order != 0 ? order < 0 : a < b;
  });
  return all;
}

bool PageLibrary::has(const std::string& name) const {
  return base::fileExists(path(name));
}

std::string PageLibrary::read(const std::string& name) const {
  return base::readFile(path(name));
}

void PageLibrary::write(const std::string& name, std::string_view bytes) const {
  if (!base::folderExists(folder_)) base::makeFolder(folder_);
  base::writeFile(path(name), bytes);
}

void PageLibrary::rename(const std::string& from, const std::string& to) const {
  if (!has(from)) base::readFile(path(from));  // says why
  if (has(to) && !base::sameFile(path(from), path(to))) {
    throw base::Error(base::ErrorNumber::PermissionDenied, "ამ სახელის გვერდი უკვე არსებობს:\r\n" + to);
  }
  base::renameFile(path(from), path(to));
}

void PageLibrary::remove(const std::string& name) const {
  base::removeFile(path(name));
}

std::string_view extensionIn(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  const bool letter = dot != std::string_view::npos && dot + 1 < name.size() &&
                      std::isalpha(static_cast<unsigned char>(name[dot + 1])) != 0;
  return letter ? name.substr(dot) : std::string_view();
}

std::string documentExtension(std::string_view name) {
  const std::string extension = base::upperAscii(extensionIn(name));
  return extension.empty() || extension == ".HTM" ? ".HTML" : extension;
}

std::string completedName(std::string_view typed, std::string_view extension) {
  std::string name(typed);
  if (extensionIn(typed).empty() && !typed.ends_with('.')) name += extension;
  return name;
}

bool isReservedName(std::string_view name) {
  if (name.empty() || name.ends_with('.') || name.ends_with(' ') || name.starts_with(kUnfinished))
    return true;
  if (std::any_of(name.begin(), name.end(), [](unsigned char c) { return c < ' '; })) return true;
  const std::string stem = base::upperAscii(base::trimSpaces(name.substr(0, name.find('.'))));
  if (stem == "CON" || stem == "PRN" || stem == "AUX" || stem == "NUL") return true;
  return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) && stem[3] >= '1' &&
         stem[3] <= '9';
}

std::string pagePreview(std::string_view bytes) {
  std::string shown;
  int lines = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (shown.size() >= kPreviewBytes || lines >= kPreviewLines) {
      // Of UTF-8 no letter is cut.
      for (int cut = 0; cut < 3 && !base::isUtf8(shown) && base::isUtf8(bytes); ++cut) shown.pop_back();
      return shown + "...";
    }
    const char c = bytes[i];
    if (c == '\r' || c == '\n') {
      if (c == '\r' && bytes.substr(i + 1).starts_with('\n')) ++i;
      shown += base::kCrLf;
      ++lines;
    } else {
      shown += c == '\0' ? ' ' : c;
    }
  }
  return shown;
}

}  // namespace generators
