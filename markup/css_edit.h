// One editing of a rule or a STYLE attribute: what stood there, what is wished, and the text that comes of
// it.
#pragma once

#include <string>
#include <vector>

#include "markup/css_block.h"
#include "markup/css_place.h"

namespace markup {

class CssEdit {
 public:
  // The place was found in the document, which must outlive this; its kind is not Nothing.
  CssEdit(const std::string& document, CssPlace place);

  const CssPlace& place() const { return place_; }
  bool hasSelector() const;
  bool selectorChanged() const { return selector != oldSelector_; }
  std::string selector;
  std::vector<CssEntry> entries;  // those that stood there, then new ones

  // The last one of that name that says something, else the last one; -1: none. ASCII case does not count.
  int find(std::string_view name) const;

  bool changed() const;
  bool changed(std::size_t entry) const;
  std::string text() const { return document(place_.start, place_.end); }  // as it stands there now
  // What stands in the document in place of the bytes from place().start to place().end.
  std::string written() const;
  // Where the caret goes in written(): in the rule or attribute, at its end.
  std::size_t caret() const;

 private:
  std::string block() const;
  std::string rule() const;
  std::string attribute() const;
  std::string newRule(const std::string& indent) const;
  std::string ownLines(const std::string& text) const;
  std::string lineIndent() const;
  std::string document(std::size_t start, std::size_t end) const { return text_.substr(start, end - start); }

  const std::string& text_;
  CssPlace place_;
  CssLayout layout_;
  char quote_ = 0;  // of the attribute, as it will be
  std::string oldSelector_;
  std::vector<CssEntry> oldEntries_;
};

}  // namespace markup
