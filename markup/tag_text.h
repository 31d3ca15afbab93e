// A tag taken apart into its attributes and put together again; what was not changed keeps its spelling.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace markup {

struct TagText {
  struct Attribute {
    std::string name;
    std::string value;  // without quotes
    bool hasValue;      // a "=" was there
    std::string raw;    // as it stood, with the blanks in front; empty: write it anew
  };
  std::string name;  // with its "/" or "!"
  std::vector<Attribute> attributes;
  std::string tail;  // blanks and "/" in front of the ">"
};

TagText parseTag(std::string_view tag);  // from "<" to ">"
std::string formatTag(const TagText& tag);

}  // namespace markup
