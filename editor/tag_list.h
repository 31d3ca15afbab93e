// The tag code list: names of tags and the codes they insert.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace editor {

struct TagEntry {
  std::string name;
  std::string
      code;  // its lines, each followed by CR LF; the last entry's ends with the resource's zero bytes
};

// A line "#T=name" opens an entry, the lines up to the next one are its code. Lines before the first are
// nobody's.
std::vector<TagEntry> parseTagList(std::string_view resource);

// What picking the entry inserts: the code without one CR LF at its end.
std::string pickedCode(const TagEntry& entry);

}  // namespace editor
