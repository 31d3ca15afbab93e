// The parts of a page that hold letters, with the fonts around them, and where the page declares its
// character set.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "convert/font_table.h"
#include "convert/forms.h"
#include "markup/scanner.h"

namespace convert {

enum class PageKind : std::uint8_t {
  Html,
  PlainText,   // no markup, no references
  StyleSheet,  //
  Script,
};

PageKind pageKindOf(std::string_view path);  // by its extension; Html where that does not tell

enum class Place : std::uint8_t { Text, Title, Attribute, ScriptString, CssString, Comment };
std::string_view nameOf(Place place);

// Strings of code: a backslash begins an escape.
constexpr bool hasEscapes(Place place) {
  return place == Place::ScriptString || place == Place::CssString;
}

// Offsets are 32-bit: a page is smaller than 4 GB, and there are many of these.
struct PagePiece {
  std::uint32_t begin = 0;
  std::uint32_t end = 0;
  std::uint32_t font = 0;  // of PageParts::fonts; 0: none known
  Place place = Place::Text;
  bool references = true;  // "&" begins references
};

// A place where the page names a font for a text.
struct FontUse {
  std::uint32_t wholeBegin = 0;  // of the attribute or declaration
  std::uint32_t wholeEnd = 0;
  std::uint32_t valueBegin = 0;  // of the names
  std::uint32_t valueEnd = 0;
  Form form = Form::Unknown;    // what its texts are, by the font table
  bool declaration = false;     // of a style, not a FACE
  Form around = Form::Unknown;  // of the font in force around it
  // Filled by whoever plans a conversion: letters that needed the font, and those that still do.
  std::uint32_t converted = 0;
  std::uint32_t left = 0;
};
// The first entries of PageParts::fonts stand for no font known, and for fonts that tell what a text is not.
inline constexpr std::uint32_t kNoFont = 0, kWesternFont = 1, kUnicodeFont = 2, kFirstFontUse = 3;

struct PageParts {
  std::deque<PagePiece> pieces;  // in their order, none empty
  std::deque<FontUse> fonts;
  std::vector<markup::Range> charsets;  // names of character sets as declared, in their order
  // Where a declaration would be added: behind this place. Nothing where the page has no head, BODY or TITLE.
  std::optional<std::size_t> headAt;
  bool upperCase = false;  // its tags are
  std::string_view declared(std::string_view page) const {
    return charsets.empty() ? std::string_view() : charsets.front().of(page);
  }
};

struct PartsWanted {
  PageKind kind = PageKind::Html;
  bool comments = false;
  bool scriptStrings = true;
  const FontTable* fonts = nullptr;  // none: the built-in table
};

PageParts partsOf(std::string_view page, const PartsWanted& wanted);

}  // namespace convert
