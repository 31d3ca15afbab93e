// Takes a style sheet apart as far as its letters and fonts need it: comments, selectors, declarations.
//
// Any bytes are a sheet; the cost is linear. Positions count from the beginning of the text given.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "markup/scanner.h"

namespace markup {

enum class CssKind : std::uint8_t {
  Comment,      // `whole`, with its delimiters
  Selector,     // `whole`: what stands before the "{"; of "@media" and its like nothing is given
  Declaration,  // `name`: of the property, `value`: without the ";", `whole`: with it
  Charset,      // `value`: the name in `@charset "name"`, `whole`: the rule
};

struct CssPart {
  CssKind kind = CssKind::Comment;
  Range whole, name, value;
};

class CssScanner {
 public:
  // `text` must outlive the scanner. A STYLE attribute holds declarations alone.
  explicit CssScanner(std::string_view text, bool declarationsAlone = false)
      : text_(text), inBlock_(declarationsAlone), attribute_(declarationsAlone) {}

  bool next(CssPart& part);  // false at the end

 private:
  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
  std::size_t commentEnd(std::size_t at) const;
  std::size_t pieceEnd(std::size_t at, std::string_view stops) const;
  bool rule(CssPart& part);
  bool atRule(CssPart& part);
  bool declaration(CssPart& part);
  Range trimmed(std::size_t begin, std::size_t end) const;

  std::string_view text_;
  std::size_t at_ = 0;
  bool inBlock_;
  bool attribute_;
};

// The strings in the value of a declaration, without their quotes.
std::vector<Range> cssStrings(std::string_view text, Range value);

}  // namespace markup
