#include "markup/css_edit.h"

#include "base/text.h"

namespace markup {
namespace {

using Kind = CssPlace::Kind;

bool isAttribute(Kind kind) {
  return kind == Kind::Attribute || kind == Kind::NewAttribute || kind == Kind::NewSpan;
}

// The document's own, as its first line end shows it.
std::string lineEndOf(const std::string& text) {
  const std::size_t at = text.find_first_of("\r\n");
  if (at == std::string::npos || text.compare(at, 2, base::kCrLf) == 0) return std::string(base::kCrLf);
  return text.substr(at, 1);
}

}  // namespace

CssEdit::CssEdit(const std::string& document, CssPlace place) : text_(document), place_(std::move(place)) {
  layout_.lineEnd = lineEndOf(text_);
  if (place_.modelEnd > place_.modelStart) {
    layout_ = layoutOf(std::string_view(text_).substr(place_.modelStart, place_.modelEnd - place_.modelStart),
                       CssSpelling::Sheet, layout_);
  }
  const std::string old = block();
  if (isAttribute(place_.kind)) {
    quote_ = place_.quote != 0 ? place_.quote : old.find('"') == std::string::npos ? '"' : '\'';
  }
  entries = entriesOf(readDeclarations(old, quote_ == 0 ? CssSpelling::Sheet : CssSpelling::Attribute));
  oldEntries_ = entries;
  if (place_.kind == Kind::Rule)
    selector = document.substr(place_.selectorStart, place_.selectorEnd - place_.selectorStart);
  oldSelector_ = selector;
}

bool CssEdit::hasSelector() const {
  return !isAttribute(place_.kind);
}

int CssEdit::find(std::string_view name) const {
  int found = -1;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!base::equalNoCase(entries[i].name, name)) continue;
    if (found < 0 || !entries[i].value.empty()) found = static_cast<int>(i);
  }
  return found;
}

bool CssEdit::changed() const {
  if (selectorChanged()) return true;
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (changed(i)) return true;
  }
  return false;
}

bool CssEdit::changed(std::size_t entry) const {
  const CssEntry& now = entries[entry];
  if (entry >= oldEntries_.size()) return !now.value.empty();
  return now.value != oldEntries_[entry].value || now.important != oldEntries_[entry].important;
}

std::string CssEdit::block() const {
  return document(place_.blockStart, place_.blockEnd);
}

std::string CssEdit::written() const {
  switch (place_.kind) {
    case Kind::Rule:
      return rule();
    case Kind::Attribute:
    case Kind::NewAttribute:
      return changed() ? attribute() : document(place_.start, place_.end);
    case Kind::NewSpan:
      return "<SPAN" + attribute() + ">" + document(place_.start, place_.end) + "</SPAN>";
    case Kind::NewRule:
      return ownLines(newRule(lineIndent()));
    case Kind::NewElement: {
      const std::string indent = lineIndent();
      return ownLines("<STYLE TYPE=\"text/css\">" + layout_.lineEnd + indent + newRule(indent) +
                      layout_.lineEnd + indent + "</STYLE>");
    }
    default:
      return {};
  }
}

std::string CssEdit::rule() const {
  const std::string edited = editedBlock(block(), 0, entries, layout_);
  std::string text = selector + document(place_.selectorEnd, place_.blockStart) + edited;
  if (place_.closed) return text + document(place_.blockEnd, place_.end);
  if (!changed()) return text;
  // The "}" that was missing goes behind the last word, so that what follows stays on lines of its own.
  const std::size_t last = text.find_last_not_of(" \t\r\n\f") + 1;
  const bool lines = edited.find_first_of("\r\n") != std::string::npos;
  return text.substr(0, last) + (lines ? layout_.lineEnd : " ") + "}" + text.substr(last);
}

std::string CssEdit::attribute() const {
  std::string old = block();
  if (place_.quote == 0 && old.find(quote_) != std::string::npos) {
    old = base::replaceAll(old, std::string(1, quote_), quote_ == '"' ? "&quot;" : "&#39;");
  }
  const std::string value = editedBlock(old, quote_, entries, layout_);
  if (value.find_first_not_of(" \t\r\n\f;") == std::string::npos) return {};  // nothing left to say
  const std::string quoted = quote_ + value + quote_;
  if (place_.kind != Kind::Attribute) {
    return (place_.lowerCase ? " style=" : " STYLE=") + quoted;
  }
  if (!place_.hasValue) return document(place_.start, place_.selectorEnd) + "=" + quoted;
  const std::size_t quoteBytes = place_.quote == 0 ? 0 : 1;
  return document(place_.start, place_.blockStart - quoteBytes) + quoted;
}

std::string CssEdit::newRule(const std::string& indent) const {
  // Its first line stands where the caret is.
  const std::string empty = layout_.oneLine ? (layout_.colon == ":" ? "" : " ") : layout_.lineEnd + indent;
  return selector + (layout_.colon == ":" ? "{" : " {") + editedBlock(empty, 0, entries, layout_) + "}";
}

// The blanks that the caret's line begins with, where nothing else stands before the caret.
std::string CssEdit::lineIndent() const {
  std::size_t start = place_.start;
  while (start > 0 && (text_[start - 1] == ' ' || text_[start - 1] == '\t')) --start;
  const bool first = start == 0 || text_[start - 1] == '\r' || text_[start - 1] == '\n';
  return first ? document(start, place_.start) : std::string();
}

// With line ends where other text stands in the same line.
std::string CssEdit::ownLines(const std::string& text) const {
  std::size_t before = place_.start;
  while (before > 0 && (text_[before - 1] == ' ' || text_[before - 1] == '\t')) --before;
  std::size_t behind = place_.end;
  while (behind < text_.size() && (text_[behind] == ' ' || text_[behind] == '\t')) ++behind;
  const auto lineEnds = [this](std::size_t at) { return text_[at] == '\r' || text_[at] == '\n'; };
  const bool first = before == 0 || lineEnds(before - 1);
  const bool last = behind == text_.size() || lineEnds(behind);
  return (first ? "" : layout_.lineEnd) + text + (last && behind < text_.size() ? "" : layout_.lineEnd);
}

std::size_t CssEdit::caret() const {
  const std::string text = written();
  switch (place_.kind) {
    case Kind::Rule:
    case Kind::NewRule:
    case Kind::NewElement: {
      const std::size_t brace = text.rfind('}');
      if (brace == std::string::npos) return text.size();
      // Directly behind a rule in this one the caret would stand at that one.
      return brace > 0 && text[brace - 1] == '}' ? text.find('{') + 1 : brace;
    }
    case Kind::NewSpan: {
      const std::size_t quote = text.find(quote_, text.find(quote_) + 1);
      return quote == std::string::npos ? 0 : quote;
    }
    default:
      return text.empty() ? 0 : text.size() - 1;
  }
}

}  // namespace markup
