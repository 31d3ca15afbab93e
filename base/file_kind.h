// What a file is, by its name.
#pragma once

#include <string_view>

namespace base {

enum class FileKind {
  Page,
  Style,
  ActivePage,  // ASP
  Script,
  Xml,
  Php,
  Picture,
  Media,
  WebProject,
  Settings,
  Text,
  Other
};

// By the extension in upper case, without its dot, as `extensionOf` gives it.
FileKind fileKindOf(std::string_view extension);

}  // namespace base
