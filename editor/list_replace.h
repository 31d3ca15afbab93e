// Replacing by a list of pairs, and the file such a list is kept in.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/line_ends.h"

namespace editor {

struct ReplacePair {
  std::string find;  // byte text; an empty one finds nothing
  std::string replace;
  bool operator==(const ReplacePair&) const = default;
};

struct ReplaceOptions {
  bool matchCase = true;   // else ASCII letters of both cases are the same
  bool wholeWord = false;  // no letter, digit, "_" or byte above 7F on either side
};

// All pairs at once: what one of them has put in is not looked at again, so that two texts can be exchanged.
// Of several that are found at one place the first of the list is taken. Line ends in pairs are those of the
// text, `lineEnd`. Adds each pair's replacements to its place in `counts`, which has as many places as there
// are pairs.
std::string replaceByList(std::string_view text, const std::vector<ReplacePair>& pairs, base::LineEnd lineEnd,
                          ReplaceOptions options, std::vector<int>& counts);

// One line a pair: find, tab, replace; "\t", "\r", "\n" and "\\" in them for a tab, the line ends and "\".
std::string formatPairs(const std::vector<ReplacePair>& pairs);
// Lines end with CR LF or LF; empty ones count nothing. Throws base::Error(BadFileFormat) on any other line.
std::vector<ReplacePair> parsePairs(std::string_view file);

}  // namespace editor
