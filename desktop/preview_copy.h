// The temporary copy of a page that a browser shows.
#pragma once

#include <functional>
#include <string>

namespace desktop {

// At most one copy at a time; it goes with the object.
class PreviewCopy {
 public:
  PreviewCopy() = default;
  PreviewCopy(const PreviewCopy&) = delete;
  PreviewCopy& operator=(const PreviewCopy&) = delete;
  ~PreviewCopy() { remove(); }

  // Writes the copy beside the document, so that its links lead where they should, in place of the last one.
  // Where nothing can be written, and for a document without a file (empty `document`), it stands in the
  // folder for temporary files. What earlier runs have left there is removed. `page` gives the text for a
  // copy whose links start from the folder of that URL (empty: its own). Returns the path; throws
  // base::Error.
  const std::string& write(const std::string& document, const std::string& title,
                           const std::function<std::string(const std::string& folderUrl)>& page);
  void remove();                                     // none: nothing happens
  const std::string& path() const { return path_; }  // empty: there is none

 private:
  void put(const std::string& folder, const std::string& name, const std::string& document,
           const std::string& text);
  std::string path_;
};

}  // namespace desktop
