#include "desktop/preview_copy.h"

#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "desktop/preview_page.h"

namespace desktop {
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
                      const std::string& text) {
  const std::string path = base::joinPath(folder, name);
  base::writeFile(path, text);
  if (path_ != path) remove();
  path_ = path;
  for (const std::string& other : base::fileNames(folder)) {
    const std::string leftover = base::joinPath(folder, other);
    if (other.starts_with(kPrefix) && other.ends_with(kExtension) && other != name &&
        !base::samePath(leftover, document)) {
      removeQuietly(leftover);
    }
  }
}

const std::string& PreviewCopy::write(const std::string& document, const std::string& title,
                                      const std::function<std::string(const std::string& folderUrl)>& page) {
  const std::string name = copyName(title.empty() ? "page" : title);
  if (document.empty()) {
    put(base::tempFolder(), name, document, page(""));
    return path_;
  }
  const std::string folder = base::folderOf(document);
  try {
    put(folder, name, document, page(""));
  } catch (const base::Error&) {
    put(base::tempFolder(), name, document, page(fileUrl(folder + "\\")));
  }
  return path_;
}

void PreviewCopy::remove() {
  if (!path_.empty()) removeQuietly(path_);
  path_.clear();
}

}  // namespace desktop
