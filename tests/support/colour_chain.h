// The rule of the colouring, word for word: the yardstick for the one-pass version, in tests and bench.
#pragma once

#include <sstream>
#include <string>
#include <string_view>

#include "tests/support/entry_by_entry.h"

namespace tests {

inline std::string colourByChain(std::string_view rtf) {
  constexpr const char* kList =
      "NAME CONTENT NORESIZE SCROLLING WIDTH HEIGHT BGCOLOR LINK ALINK VLINK FACE SIZE BORDER CELLSPACING "
      "COLSPAN "
      "NOSHADE ALIGN ROWSPAN HREF CODE ROWS COLS SHAPE COORDS ALT SRC CLASS name content noresize scrolling "
      "width "
      "height bgcolor link alink vlink face size border cellspacing colspan noshade align rowspan href code "
      "rows "
      "cols shape coords alt src class COLOR color TEXT TEXTAREA TITLE STYLE TYPE onclick ONCLICK LANGUAGE "
      "language "
      "type REL rel BACKGROUND BGPROPERTIES background bgproperties";
  const std::string black = "\\plain\\f2\\fs20\\cf0 ";
  static const auto entries = [&] {
    std::pair<std::vector<std::string>, std::vector<std::string>> made;
    const auto add = [&](const std::string& from, const std::string& to) {
      made.first.push_back(from);
      made.second.push_back(to);
    };
    add("{\\colortbl\\red0\\green0\\blue0;}",
        "{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green0\\blue0;"
        "\\red0\\green150\\blue50;}");
    std::istringstream list(kList);
    for (std::string name; list >> name;) add(" " + name + "=", "\\f2\\fs20\\cf2  " + name + "=" + black);
    add("<", "\\f2\\fs20\\cf1 <");
    add(">", "\\f2\\fs20\\cf1 >" + black);
    add("<--", "\\f2\\fs20\\cf3 <--");
    add("-->", "\\f2\\fs20\\cf0 -->");
    add("<!--", "\\f2\\fs20\\cf3 <!--");
    return made;
  }();
  return entryByEntry(rtf, entries.first, entries.second);
}

}  // namespace tests
