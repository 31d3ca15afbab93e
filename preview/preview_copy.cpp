#include "preview/preview_copy.h"

#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "preview/preview_page.h"

namespace preview {
namespace {

constexpr std::string_view kPrefix = "~zervo-preview-";
constexpr std::string_view kExtension = ".html";

// A copy that is being read elsewhere stays for the next time.
void removeQuietly(const std::string& path) {
  try {
    base::removeFile(path);
  } catch (const base::Error&) {
  }
}

std::string copyName(const std::string& title) {
  return std::string(kPrefix) + title.substr(0, title.rfind('.')) + std::string(kExtension);
}

}  // namespace

void PreviewCopy::put(const std::string& folder, const std::string& name, const std::string& document,
                      const std::function<std::string(const std::string& path)>& page) {
  const std::string path = base::joinPath(folder, name);
  base::writeFile(path, page(path));
  if (path_ != path) remove();
  path_ = path;
  companions_.clear();  // gone with the leftovers, or written anew
  for (const std::string& other : base::fileNames(folder)) {
    const std::string leftover = base::joinPath(folder, other);
    if (other.starts_with(kPrefix) && other.ends_with(kExtension) && other != name &&
        !base::samePath(leftover, document)) {
      removeQuietly(leftover);
    }
  }
}

const std::string& PreviewCopy::write(const std::string& document, const std::string& title,
                                      const Page& page) {
  const auto from = [&page](const std::string& url) {
    return [&page, url](const std::string& path) { return page(path, url); };
  };
  const std::string name = copyName(title.empty() ? "page" : title);
  if (document.empty()) {
    put(base::tempFolder(), name, document, from(""));
    return path_;
  }
  const std::string folder = base::folderOf(document);
  try {
    put(folder, name, document, from(""));
  } catch (const base::Error&) {
    put(base::tempFolder(), name, document, from(fileUrl(folder + "\\")));
  }
  return path_;
}

std::string PreviewCopy::companion(const std::string& path, int number, const std::string& title) {
  return base::joinPath(base::folderOf(path), copyName(std::to_string(number) + "-" + title));
}

void PreviewCopy::writeCompanion(const std::string& path, const std::string& text) {
  base::writeFile(path, text);
  companions_.push_back(path);
}

void PreviewCopy::remove() {
  for (const std::string& path : companions_) removeQuietly(path);
  companions_.clear();
  if (!path_.empty()) removeQuietly(path_);
  path_.clear();
}

}  // namespace preview
