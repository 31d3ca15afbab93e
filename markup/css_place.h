// What of CSS stands at the caret of a style sheet or a page. Positions are bytes of the document.
#pragma once

#include <string>
#include <string_view>

namespace markup {

struct CssPlace {
  enum class Kind {
    Rule,          // selector { ... }, the innermost one
    Attribute,     // the STYLE attribute of a tag
    NewRule,       // none yet: at `start`, in a sheet or a STYLE element
    NewAttribute,  // a tag without it: at `start`
    NewElement,    // a STYLE element with a rule, at `start`
    NewSpan,       // a SPAN element around the selection
    Nothing,       // see `why`
  };
  enum class Why { None, UnclosedRule, UnclosedComment, UnclosedQuote, EndTag, TagWithoutStyle, OtherCode };

  Kind kind = Kind::Nothing;
  Why why = Why::None;
  std::size_t start = 0;  // what is put in place of it: the rule; the attribute with the blanks before it
  std::size_t end = 0;
  // Rule: its selector (or "@font-face") and what stands between the braces.
  std::size_t selectorStart = 0;
  std::size_t selectorEnd = 0;
  std::size_t blockStart = 0;  // Attribute: its value, without the quotes
  std::size_t blockEnd = 0;
  bool closed = true;     // the rule has its "}"
  char quote = 0;         // Attribute: 0 without quotes
  bool hasValue = false;  // Attribute: a "=" stands there
  // A rule near by, as a model for a new one: what stands between its braces.
  std::size_t modelStart = 0;
  std::size_t modelEnd = 0;
  std::string
      tag;  // upper-case name of the tag, or what stands before the braces around: "@media print", "a"
  bool lowerCase = false;  // the tag's name is written so
  bool inPage = false;     // in the STYLE element of a page
};

CssPlace cssPlace(std::string_view document, std::size_t selStart, std::size_t selLength, bool sheet);

// A document is a style sheet by its name, or where it has no telling one by what it holds.
bool isStyleSheet(std::string_view fileName, std::string_view text);

}  // namespace markup
