// A document as RTF: every byte one character, the code font as font 2 at 10 points, a colour table of one.
#pragma once

#include <string>
#include <string_view>

namespace tests {

// The colour table of plain RTF; who colours the text puts a longer one in its place.
inline constexpr std::string_view kPlainColorTable = "{\\colortbl\\red0\\green0\\blue0;}";

// `lineEnd` is the document's own (CR LF, LF or CR); other CRs and LFs become \'0d and \'0a. `fontName` is
// UTF-8. Blanks, "<", ">", "=" and letters stand as they are, with two exceptions that keep the text whole
// when words are put in front of an attribute: no control word is ended by a blank, and a letter behind "="
// is written as its number.
std::string plainRtf(std::string_view bytes, std::string_view lineEnd, std::string_view fontName);

}  // namespace tests
