// Saved pages: files of a folder, each the skeleton of new documents. Their bytes are nobody's business.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace generators {

class PageLibrary {
 public:
  // The folder is made when the first page is written. All failures are base::Error.
  explicit PageLibrary(std::string folder) : folder_(std::move(folder)) {}

  std::vector<std::string> names() const;  // sorted without case; none while there is no folder
  bool has(const std::string& name) const;
  std::string read(const std::string& name) const;
  void write(const std::string& name, std::string_view bytes) const;  // replaces: ask first
  // Throws when another page has the new name.
  void rename(const std::string& from, const std::string& to) const;
  void remove(const std::string& name) const;

 private:
  std::string path(const std::string& name) const;

  std::string folder_;
};

// The typed name, with `extension` (".html") behind it when it has none of its own; the "01" of "HTML 4.01"
// is none, for extensions begin with a letter.
std::string completedName(std::string_view typed, std::string_view extension);
// The extension of a name with its "."; empty when it has none.
std::string_view extensionIn(std::string_view name);
// That of new documents from the page: in upper case, ".HTML" for pages by any of their names.
std::string documentExtension(std::string_view name);

// What no file can be called besides the names of app::IsBadFileName: devices, names that end in "." or
// blank.
bool isReservedName(std::string_view name);

// The first lines for a small window: CR LF line ends whatever they were, and nothing that ends a text early.
std::string pagePreview(std::string_view bytes);

}  // namespace generators
