#include "markup/scanner.h"

#include <algorithm>

namespace markup {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;
constexpr std::size_t kLongestRegex = 1000;

bool isSpace(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f';
}
char lowerOf(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}
bool isLetter(char c) {
  const char lower = lowerOf(c);
  return lower >= 'a' && lower <= 'z';
}

bool holds(std::string_view text, std::string_view lower) {
  return std::search(text.begin(), text.end(), lower.begin(), lower.end(),
                     [](char a, char b) { return lowerOf(a) == b; }) != text.end();
}

}  // namespace

bool sameName(std::string_view name, std::string_view lower) {
  return name.size() == lower.size() &&
         std::equal(name.begin(), name.end(), lower.begin(), [](char a, char b) { return lowerOf(a) == b; });
}

Scanner::Scanner(std::string_view page, StartsIn startsIn) : page_(page) {
  if (startsIn != StartsIn::Script) return;
  inside_ = Inside::Script;
  elementEnd_ = page.size();
  textElement_ = "script";
}

bool Scanner::next(Run& run) {
  while (at_ < page_.size()) {
    const std::size_t begin = at_;
    switch (inside_) {
      case Inside::Markup:
        textElement_ = {};
        readMarkup(run);
        break;
      case Inside::Content:
        inside_ = Inside::Markup;
        if (elementEnd_ > at_) finish(run, content_, elementEnd_);
        break;
      case Inside::Script:
        if (at_ >= elementEnd_)
          inside_ = Inside::Markup;
        else
          readCode(run);
        break;
      case Inside::String:
        readString(run);
        break;
    }
    if (at_ > begin) return true;
  }
  return false;
}

void Scanner::finish(Run& run, RunKind kind, std::size_t end) {
  run = {kind, {at_, end}};
  at_ = end;
}

void Scanner::readMarkup(Run& run) {
  // Text goes on over every "<" that begins nothing.
  for (std::size_t from = at_;;) {
    const std::size_t less = page_.find('<', from);
    if (less == kNowhere) return finish(run, RunKind::Text, page_.size());
    const char second = at(less + 1);
    const bool begins = isLetter(second) || second == '!' || second == '?' ||
                        (second == '/' && less + 2 < page_.size()) ||
                        (second == '%' && serverEnd(less) != less);
    if (begins) {
      if (less > at_) return finish(run, RunKind::Text, less);
      return readLessThan(run);
    }
    from = less + 1;
  }
}

void Scanner::readLessThan(Run& run) {
  const char second = at(at_ + 1);
  if (second == '?' || second == '%') {
    const bool xml = sameName(page_.substr(at_ + 2, 3), "xml") && isSpace(at(at_ + 5));
    return finish(run, xml ? RunKind::Instruction : RunKind::Server, serverEnd(at_));
  }
  if (second == '!' && at(at_ + 2) == '-' && at(at_ + 3) == '-') {
    // "<!-->" and "<!--->" are whole comments.
    return finish(run, RunKind::Comment, find(comment_, at_ + 2));
  }
  if (second == '!' || (second == '/' && !isLetter(at(at_ + 2)))) {
    return finish(run, RunKind::Declaration, find(greater_, at_ + 2));
  }
  const std::size_t begin = at_;
  readTag();
  run = {RunKind::Tag, {begin, at_}};
  if (!tag_.closing) enter();
}

void Scanner::readTag() {
  tag_.attributes.clear();
  tag_.closing = at(at_ + 1) == '/';
  std::size_t at = at_ + (tag_.closing ? 2 : 1);
  tag_.name.begin = at;
  while (at < page_.size() && !isSpace(page_[at]) && page_[at] != '>' && page_[at] != '/') ++at;
  tag_.name.end = at;
  while (at < page_.size() && page_[at] != '>') at = readAttribute(at);
  at_ = std::min(at + 1, page_.size());
}

// From the end of what stands before it; gives its end, or that of a stray byte or of server code.
std::size_t Scanner::readAttribute(std::size_t at) {
  const std::size_t before = at;
  while (at < page_.size() && isSpace(page_[at])) ++at;
  if (at == page_.size() || page_[at] == '>') return at;
  if (page_[at] == '/') return at + 1;
  if (serverAt(at)) {
    const std::size_t end = serverEnd(at);
    if (end > at) return end;
  }
  Attribute attribute;
  attribute.name.begin = at++;  // even a "=" may begin a name
  while (at < page_.size() && !isSpace(page_[at]) && page_[at] != '>' && page_[at] != '/' &&
         page_[at] != '=' && !serverAt(at)) {
    ++at;
  }
  attribute.name.end = at;
  attribute.value = {at, at};
  std::size_t end = at;
  std::size_t equals = at;
  while (equals < page_.size() && isSpace(page_[equals])) ++equals;
  if (this->at(equals) == '=') {
    at = equals + 1;
    while (at < page_.size() && isSpace(page_[at])) ++at;
    const char quote = this->at(at);
    if (quote == '"' || quote == '\'') {
      attribute.quote = quote;
      const std::size_t close = quotedEnd(at + 1, quote, attribute.server);
      attribute.value = {at + 1, close};
      end = std::min(close + 1, page_.size());
    } else {
      const std::size_t begin = at;
      while (at < page_.size() && !isSpace(page_[at]) && page_[at] != '>') {
        const std::size_t behind = serverAt(at) ? serverEnd(at) : at;
        attribute.server = attribute.server || behind > at;
        at = std::max(behind, at + 1);
      }
      at = std::min(at, page_.size());
      attribute.value = {begin, at};
      end = at;
    }
  }
  attribute.whole = {before, end};
  if (tag_.attributes.size() < kMostAttributes) tag_.attributes.push_back(attribute);
  return end;
}

// Where the quote stands that ends the value at `at`; server code in the value may hold quotes of its own.
std::size_t Scanner::quotedEnd(std::size_t at, char quote, bool& server) {
  Ending& ending = quote == '"' ? double_ : single_;
  const auto close = [&](std::size_t from) {
    const std::size_t behind = find(ending, from);
    return ending.missing ? page_.size() : behind - 1;
  };
  std::size_t end = close(at);
  for (;;) {
    const auto less = page_.substr(0, end).find('<', at);
    if (less == kNowhere) return end;
    at = less + 1;
    if (!serverAt(less)) continue;
    const std::size_t behind = serverEnd(less);
    if (behind == less) continue;
    server = true;
    at = behind;
    if (end < behind) end = close(behind);
  }
}

// After the tag that begins an element whose content is no ordinary markup.
void Scanner::enter() {
  const std::string_view name = tag_.name.of(page_);
  const char first = lowerOf(name[0]);
  if (first != 's' && first != 't' && first != 'x' && first != 'p') return;
  if (sameName(name, "script")) {
    basic_ = std::ranges::any_of(tag_.attributes, [&](const Attribute& attribute) {
      const std::string_view attributeName = attribute.name.of(page_);
      return (sameName(attributeName, "language") || sameName(attributeName, "type")) &&
             holds(attribute.value.of(page_), "vb");
    });
    enterUpTo(script_, Inside::Script, RunKind::Script);
  } else if (sameName(name, "style")) {
    enterUpTo(style_, Inside::Content, RunKind::Style);
  } else if (sameName(name, "title")) {
    enterUpTo(title_, Inside::Content, RunKind::Text);
  } else if (sameName(name, "textarea")) {
    enterUpTo(textarea_, Inside::Content, RunKind::Text);
  } else if (sameName(name, "xmp")) {
    enterUpTo(xmp_, Inside::Content, RunKind::RawText);
  } else if (sameName(name, "plaintext")) {
    inside_ = Inside::Content;
    content_ = RunKind::RawText;
    elementEnd_ = page_.size();
    textElement_ = "plaintext";
  }
}

void Scanner::enterUpTo(Ending& name, Inside inside, RunKind kind) {
  elementEnd_ = findEndTag(name, at_);
  // A title that nothing ends would swallow the page: then its content is read as markup.
  if (name.missing && kind == RunKind::Text) return;
  inside_ = inside;
  content_ = kind;
  textElement_ = name.text;
  quote_ = lastCode_ = 0;
  closingQuote_ = false;
}

// Code up to a string, a comment or server code, or one of the latter two.
void Scanner::readCode(Run& run) {
  if (!closingQuote_) {
    const char first = page_[at_];
    const char second = at_ + 1 < elementEnd_ ? page_[at_ + 1] : '\0';
    if (serverAt(at_) && serverEnd(at_) != at_) {
      const std::size_t end = serverEnd(at_);
      if (end > elementEnd_) elementEnd_ = findEndTag(script_, end);
      return finish(run, RunKind::Server, end);
    }
    const bool line =
        basic_ ? first == '\'' : (first == '/' && second == '/') || page_.substr(at_, 4) == "<!--";
    if (line) {
      const std::size_t end = page_.substr(0, elementEnd_).find_first_of("\r\n", at_);
      return finish(run, RunKind::ScriptComment, std::min(end, elementEnd_));
    }
    if (!basic_ && first == '/' && second == '*') {
      const std::size_t end = page_.substr(0, elementEnd_).find("*/", at_ + 2);
      return finish(run, RunKind::ScriptComment, end == kNowhere ? elementEnd_ : end + 2);
    }
  }
  finish(run, RunKind::Script, codeEnd());
}

// Where the code from at_ on ends: behind the quote that begins a string, or before something else.
std::size_t Scanner::codeEnd() {
  std::size_t at = at_;
  if (closingQuote_) {
    ++at;
    lastCode_ = '"';
    closingQuote_ = false;
  }
  for (; at < elementEnd_; ++at) {
    const char c = page_[at];
    if (c == '"' || (!basic_ && (c == '\'' || c == '`'))) {
      quote_ = c;
      inside_ = Inside::String;
      return at + 1;
    }
    const bool first = at == at_;
    if (c == '\'' && !first) return at;
    if (c == '<' && !first && (serverAt(at) || page_.substr(at, 4) == "<!--")) return at;
    if (c == '/' && !basic_) {
      const char second = this->at(at + 1);
      if (second == '/' || second == '*') {
        if (!first) return at;
      } else if (slashBeginsRegex()) {
        at = regexEnd(at);
        lastCode_ = '/';
        continue;
      }
    }
    if (!isSpace(c)) lastCode_ = c;
  }
  return elementEnd_;
}

bool Scanner::slashBeginsRegex() const {
  return lastCode_ == 0 || std::string_view("(,=:[!&|?{};+-*%~^<>").find(lastCode_) != kNowhere;
}

// The slash that ends the regular expression at `at`; `at` itself when it is none.
std::size_t Scanner::regexEnd(std::size_t at) const {
  const std::size_t stop = std::min(elementEnd_, at + kLongestRegex);
  bool inClass = false;
  for (std::size_t i = at + 1; i < stop && page_[i] != '\n' && page_[i] != '\r'; ++i) {
    if (page_[i] == '\\')
      ++i;
    else if (page_[i] == '[')
      inClass = true;
    else if (page_[i] == ']')
      inClass = false;
    else if (page_[i] == '/' && !inClass)
      return i;
  }
  return at;
}

// What stands between the quotes, or a piece of it before server code, or that code.
void Scanner::readString(Run& run) {
  if (at_ < elementEnd_ && serverAt(at_) && serverEnd(at_) != at_) {
    const std::size_t end = serverEnd(at_);
    if (end > elementEnd_) elementEnd_ = findEndTag(script_, end);
    return finish(run, RunKind::Server, end);
  }
  std::size_t at = at_;
  for (; at < elementEnd_; ++at) {
    const char c = page_[at];
    if (c == quote_) break;
    if ((c == '\n' || c == '\r') && quote_ != '`') break;
    if (c == '\\' && !basic_) at += at + 1 < elementEnd_ ? 1 : 0;
    if (serverAt(at) && at > at_) return finish(run, RunKind::ScriptString, at);
  }
  at = std::min(at, elementEnd_);
  inside_ = Inside::Script;
  closingQuote_ = at < elementEnd_ && page_[at] == quote_;
  finish(run, RunKind::ScriptString, at);
}

std::size_t Scanner::find(Ending& ending, std::size_t from) {
  if (!ending.missing) {
    const std::size_t found = page_.find(ending.text, from);
    if (found != kNowhere) return found + ending.text.size();
    ending.missing = true;
  }
  return page_.size();
}

std::size_t Scanner::findEndTag(Ending& name, std::size_t from) {
  for (std::size_t at = from; !name.missing; ++at) {
    at = page_.find("</", at);
    if (at == kNowhere) break;
    const std::size_t end = at + 2 + name.text.size();
    if (end < page_.size() && sameName(page_.substr(at + 2, name.text.size()), name.text) &&
        (isSpace(page_[end]) || page_[end] == '>' || page_[end] == '/')) {
      return at;
    }
  }
  name.missing = true;
  return page_.size();
}

std::size_t Scanner::serverEnd(std::size_t at) {
  if (page_[at + 1] == '?') return find(question_, at + 2);
  const std::size_t end = find(percent_, at + 2);
  return percent_.missing ? at : end;
}

}  // namespace markup
