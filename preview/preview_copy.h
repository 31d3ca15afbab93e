// The temporary copies of a page that a browser shows, and of pages that it names.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace preview {

// Copies of one page and its companions at a time; they go with the object.
class PreviewCopy {
 public:
  PreviewCopy() = default;
  PreviewCopy(const PreviewCopy&) = delete;
  PreviewCopy& operator=(const PreviewCopy&) = delete;
  ~PreviewCopy() { remove(); }

  // Writes the copy beside the document, so that its links lead where they should, in place of the last one.
  // Where nothing can be written, and for a document without a file (empty `document`), it stands in the
  // folder for temporary files. What earlier runs have left there is removed. `page` gives the text for the
  // copy of that path, whose links start from the folder of that URL (empty: its own). Returns the path;
  // throws base::Error.
  using Page = std::function<std::string(const std::string& path, const std::string& folderUrl)>;
  const std::string& write(const std::string& document, const std::string& title, const Page& page);
  // Where the copy of a page stands that the one at `path` names; `number` tells pages of one title apart.
  static std::string companion(const std::string& path, int number, const std::string& title);
  void writeCompanion(const std::string& path, const std::string& text);  // throws base::Error
  void remove();                                                          // none: nothing happens
  const std::string& path() const { return path_; }                       // of the page; empty: there is none

 private:
  void put(const std::string& folder, const std::string& name, const std::string& document,
           const std::function<std::string(const std::string& path)>& page);
  std::string path_;
  std::vector<std::string> companions_;
};

}  // namespace preview
