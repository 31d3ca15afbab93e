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

// How its text is written, where that is known.
enum class Content {
  Html,
  ServerPage,  // HTML with code that a server runs
  Archive,     // pages and pictures in one file (RFC 2557): HTML that must not be rewritten
  Xml,
  Css,
  Script,
  Plain,
  Unknown
};

// Both by the extension in upper case, without its dot, as `extensionOf` gives it.
FileKind fileKindOf(std::string_view extension);
Content contentOf(std::string_view extension);

}  // namespace base
