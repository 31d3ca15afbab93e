// The property list of the style builder, as its resource `CSSKODS` has it: the form follows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace markup {

struct CssProperty {
  std::string name;
  std::string label;  // UTF-8
  bool length = false;
  bool color = false;
  bool url = false;
  bool font = false;
  bool several = false;  // more than one value, with blanks between
  std::vector<std::vector<std::string>>
      choices;  // keywords; of `several`, those of one part exclude each other
};

struct CssGroup {
  std::string label;  // UTF-8
  std::vector<CssProperty> properties;
};

struct CssProperties {
  std::vector<CssGroup> groups;
  std::vector<std::string> units;                        // of lengths
  std::vector<std::string> fonts;                        // generic names
  std::vector<std::string> common;                       // keywords of every property
  const CssProperty* find(std::string_view name) const;  // ASCII case does not count
};

// The format is told at the head of the resource. Throws base::Error with the line's number.
CssProperties parseCssProperties(std::string_view resource);

}  // namespace markup
