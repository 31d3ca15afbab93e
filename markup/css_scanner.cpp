#include "markup/css_scanner.h"

#include <algorithm>

namespace markup {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

bool isSpace(char c) {
  return c == ' ' || c == '\n' || c == '\t' || c == '\r' || c == '\f';
}

// Where the quote stands that ends the string at `at`, or the line or text if none does.
std::size_t stringEnd(std::string_view text, std::size_t at) {
  const char quote = text[at];
  for (++at; at < text.size() && text[at] != quote && text[at] != '\n'; ++at) {
    if (text[at] == '\\') ++at;
  }
  return std::min(at, text.size());
}

}  // namespace

std::size_t CssScanner::commentEnd(std::size_t at) const {
  const std::size_t end = text_.find("*/", at + 2);
  return end == kNowhere ? text_.size() : end + 2;
}

// The first of `stops` outside strings, comments and brackets; the end of the text when there is none.
std::size_t CssScanner::pieceEnd(std::size_t at, std::string_view stops) const {
  int depth = 0;
  while (at < text_.size()) {
    const char c = text_[at];
    if (c == '/' && this->at(at + 1) == '*') {
      at = commentEnd(at);
      continue;
    }
    if (c == '{' || c == '}') depth = 0;  // a bracket that was not closed
    if (depth == 0 && stops.find(c) != kNowhere) return at;
    if (c == '"' || c == '\'')
      at = stringEnd(text_, at);
    else if (c == '\\')
      ++at;
    else if (c == '(')
      ++depth;
    else if (c == ')' && depth > 0)
      --depth;
    ++at;
  }
  return text_.size();
}

Range CssScanner::trimmed(std::size_t begin, std::size_t end) const {
  while (begin < end && isSpace(text_[begin])) ++begin;
  while (end > begin && isSpace(text_[end - 1])) --end;
  return {begin, end};
}

bool CssScanner::next(CssPart& part) {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    if (isSpace(c) || c == ';') {
      ++at_;
    } else if (c == '/' && at(at_ + 1) == '*') {
      const std::size_t begin = at_;
      at_ = commentEnd(at_);
      part = {CssKind::Comment, {begin, at_}, {}, {}};
      return true;
    } else if (c == '}') {
      ++at_;
      inBlock_ = attribute_;
    } else if (inBlock_) {
      if (declaration(part)) return true;
    } else if (c == '@') {
      if (atRule(part)) return true;
    } else if (rule(part)) {
      return true;
    }
  }
  return false;
}

bool CssScanner::rule(CssPart& part) {
  const std::size_t begin = at_;
  const std::size_t end = pieceEnd(at_, "{};");
  at_ = std::min(end + 1, text_.size());
  if (at(end) != '{') return false;
  inBlock_ = true;
  part = {CssKind::Selector, trimmed(begin, end), {}, {}};
  return true;
}

bool CssScanner::atRule(CssPart& part) {
  const std::size_t begin = at_;
  std::size_t nameEnd = at_ + 1;
  while (nameEnd < text_.size() &&
         (text_[nameEnd] == '-' || ((text_[nameEnd] | 0x20) >= 'a' && (text_[nameEnd] | 0x20) <= 'z'))) {
    ++nameEnd;
  }
  const std::string_view name = text_.substr(at_ + 1, nameEnd - at_ - 1);
  const std::size_t end = pieceEnd(nameEnd, "{};");
  at_ = std::min(end + 1, text_.size());
  if (at(end) == '{') {
    inBlock_ = sameName(name, "font-face") || sameName(name, "page");
  } else if (sameName(name, "charset")) {
    const auto strings = cssStrings(text_, {nameEnd, end});
    if (!strings.empty()) {
      part = {CssKind::Charset, {begin, at_}, {}, strings.front()};
      return true;
    }
  }
  return false;
}

bool CssScanner::declaration(CssPart& part) {
  const std::size_t begin = at_;
  const std::size_t colon = pieceEnd(at_, ":;}");
  if (at(colon) != ':') {
    at_ = std::max(colon, begin + 1);
    return false;
  }
  const std::size_t end = pieceEnd(colon + 1, ";}");
  at_ = at(end) == ';' ? end + 1 : end;
  part = {CssKind::Declaration, {begin, at_}, trimmed(begin, colon), trimmed(colon + 1, end)};
  return true;
}

std::vector<Range> cssStrings(std::string_view text, Range value) {
  std::vector<Range> found;
  const std::string_view upTo = text.substr(0, value.end);
  for (std::size_t at = value.begin; at < value.end; ++at) {
    if (text[at] == '/' && at + 1 < value.end && text[at + 1] == '*') {
      at = std::min(upTo.find("*/", at + 2), value.end - 1) + (upTo.find("*/", at + 2) == kNowhere ? 0 : 1);
    } else if (text[at] == '"' || text[at] == '\'') {
      const std::size_t end = stringEnd(upTo, at);
      found.push_back({at + 1, end});
      at = end;
    } else if (text[at] == '\\') {
      ++at;
    }
  }
  return found;
}

}  // namespace markup
