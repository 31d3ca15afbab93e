#include "markup/css_place.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>
#include <vector>

#include "base/file_kind.h"
#include "base/path.h"
#include "base/text.h"
#include "markup/css_tokens.h"
#include "markup/pieces.h"
#include "markup/tag_text.h"

namespace markup {
namespace {

using Kind = CssToken::Kind;
using Why = CssPlace::Why;

template <class Names>
bool isOneOf(std::string_view name, const Names& names) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view one) { return base::equalNoCase(name, one); });
}

// At-rules that hold rules; all others with braces hold declarations. A maker's name may stand before them:
// "-moz-keyframes".
constexpr std::array<std::string_view, 8> kContainers = {
    "media", "supports", "document", "layer", "container", "scope", "keyframes", "starting-style"};

// Tags that show nothing, so that a style of theirs would have no effect.
constexpr std::array<std::string_view, 11> kUnseen = {
    "HEAD", "TITLE", "META", "LINK", "BASE", "SCRIPT", "STYLE", "PARAM", "NOSCRIPT", "NOFRAMES", "FRAMESET"};

CssPlace nothing(Why why) {
  CssPlace place;
  place.why = why;
  return place;
}

// The rules of a sheet, one after the other, down to the innermost braces around the caret.
class SheetFinder {
 public:
  SheetFinder(std::string_view text, std::size_t caret)
      : text_(text), caret_(caret), tokens_(scanCss(text, CssSpelling::Sheet)), last_(tokens_.size()) {}

  CssPlace find() {
    for (const CssToken& token : tokens_) {
      if (token.kind == Kind::Comment && !token.whole && caret_ > token.start)
        return nothing(Why::UnclosedComment);
    }
    std::optional<CssPlace> before;  // a rule that ends at the caret
    for (std::size_t at = 0; at < last_;) {
      const CssToken& token = tokens_[at];
      if (token.filler() || token.is(';') || token.is('}')) {
        at = step(at);
        continue;
      }
      if (token.start > caret_ && modelEnd_ != 0) break;
      const std::size_t open = opening(at);
      if (open == last_ || !tokens_[open].is('{')) {  // a statement, or the end
        const std::size_t end = open == last_ ? endOf(open) : tokens_[open].end;
        if (open != last_ && inside(token.start, end)) newAt_ = end;
        at = open == last_ ? open : open + 1;
        continue;
      }
      const std::size_t close = tokens_[open].partner;
      const bool closed = close != CssToken::kAlone;
      const std::size_t end = closed ? tokens_[close].end : endOf(last_);
      if (isContainer(at)) {
        const bool around = caret_ >= tokens_[open].end && caret_ <= (closed ? tokens_[close].start : end);
        if (around || inside(token.start, tokens_[open].end)) {
          container_ = trimmedText(at, open);
          if (!around) newAt_ = tokens_[open].end;
          if (closed) last_ = close;
          at = open + 1;
          continue;
        }
      } else {
        const CssPlace rule = ruleOf(at, open, closed ? close : last_, closed);
        if (caret_ >= rule.start && caret_ < end) return closed ? innermost(rule, open) : checked(rule);
        if (caret_ == end) before = rule;
        if (rule.closed) {
          modelStart_ = rule.blockStart;
          modelEnd_ = rule.blockEnd;
        }
      }
      at = closed ? close + 1 : last_;
    }
    if (before) return checked(*before);
    CssPlace place;
    place.kind = CssPlace::Kind::NewRule;
    place.start = place.end = std::max(newAt_, caret_);
    place.modelStart = modelStart_;
    place.modelEnd = modelEnd_;
    place.tag = container_;
    return place;
  }

 private:
  bool inside(std::size_t start, std::size_t end) const { return start < caret_ && caret_ < end; }
  std::size_t endOf(std::size_t last) const {
    return last < tokens_.size() ? tokens_[last].start : text_.size();
  }

  std::size_t step(std::size_t at) {
    const CssToken& token = tokens_[at];
    if (token.kind == Kind::Comment && inside(token.start, token.end)) newAt_ = token.end;
    return at + 1;
  }

  // The "{" of the rule that begins at `at`, or the ";" of a statement; `last_` when there is neither.
  std::size_t opening(std::size_t at) const {
    const bool statement = tokens_[at].is('@');
    while (at < last_) {
      const CssToken& token = tokens_[at];
      if (token.is('{') || (statement && token.is(';'))) return at;
      at = nextCssToken(tokens_, at);
    }
    return last_;
  }

  bool isContainer(std::size_t at) const {
    if (!tokens_[at].is('@') || at + 1 >= tokens_.size()) return false;
    std::string_view name = text_.substr(tokens_[at + 1].start, tokens_[at + 1].end - tokens_[at + 1].start);
    const std::size_t dash = name.find('-', 1);
    if (name.starts_with('-') && dash != std::string_view::npos) name.remove_prefix(dash + 1);
    return isOneOf(name, kContainers);
  }

  // The rule in the rule's braces that holds the caret or ends there, and in that one, and so on; else the
  // rule itself. In a rule all braces hold declarations, those of "@media" too.
  CssPlace innermost(CssPlace rule, std::size_t open) const {
    for (std::size_t at = open + 1, end = tokens_[open].partner; at < end && tokens_[at].start <= caret_;) {
      if (tokens_[at].filler() || tokens_[at].is(';')) {
        ++at;
        continue;
      }
      const CssPiece piece = cssPiece(text_, tokens_, at, end);
      const std::size_t behind = tokens_[piece.last - 1].end;
      const bool touches = behind == caret_ && (piece.last == end || tokens_[piece.last].filler());
      if (!piece.rule() || (caret_ >= behind && !touches)) {
        at = piece.last;
        continue;
      }
      const CssPlace outer = std::exchange(rule, ruleOf(at, piece.open, piece.last - 1, true));
      rule.tag = text_.substr(outer.selectorStart, outer.selectorEnd - outer.selectorStart);
      rule.modelStart = outer.blockStart;
      rule.modelEnd = outer.blockEnd;
      at = piece.open + 1;
      end = piece.last - 1;
    }
    return rule;
  }

  std::string trimmedText(std::size_t first, std::size_t last) const {
    while (last > first && tokens_[last - 1].filler()) --last;
    return std::string(text_.substr(tokens_[first].start, tokens_[last - 1].end - tokens_[first].start));
  }

  CssPlace ruleOf(std::size_t first, std::size_t open, std::size_t close, bool closed) const {
    std::size_t last = open;
    while (last > first && tokens_[last - 1].filler()) --last;
    CssPlace rule;
    rule.kind = CssPlace::Kind::Rule;
    rule.start = rule.selectorStart = tokens_[first].start;
    rule.selectorEnd = last > first ? tokens_[last - 1].end : rule.selectorStart;
    rule.blockStart = tokens_[open].end;
    rule.blockEnd = endOf(close);
    rule.end = closed ? tokens_[close].end : rule.blockEnd;
    rule.closed = closed;
    rule.tag = container_;
    return rule;
  }

  // Without its "}" a rule goes to the end; with others behind it nobody knows where it was meant to end.
  CssPlace checked(const CssPlace& rule) const {
    if (rule.closed) return rule;
    bool comment = false;
    for (const CssToken& token : tokens_) {
      if (token.start < rule.blockStart) continue;
      if (token.is('{')) return nothing(Why::UnclosedRule);
      comment = comment || (token.kind == Kind::Comment && !token.whole);
    }
    return comment ? nothing(Why::UnclosedComment) : rule;
  }

  std::string_view text_;
  std::size_t caret_;
  std::vector<CssToken> tokens_;
  std::size_t last_;  // index behind the last token of the braces around
  std::size_t newAt_ = 0;
  std::size_t modelStart_ = 0;
  std::size_t modelEnd_ = 0;
  std::string container_;
};

CssPlace inStyleElement(std::string_view page, std::size_t start, std::size_t end, std::size_t caret) {
  CssPlace place = SheetFinder(page.substr(start, end - start), caret - start).find();
  for (std::size_t* position : {&place.start, &place.end, &place.selectorStart, &place.selectorEnd,
                                &place.blockStart, &place.blockEnd}) {
    *position += start;
  }
  if (place.modelEnd != 0) {
    place.modelStart += start;
    place.modelEnd += start;
  }
  place.inPage = true;
  return place;
}

CssPlace inTag(std::string_view page, const Piece& piece) {
  const std::string text(page.substr(piece.start, piece.end - piece.start));
  const TagText tag = parseTag(text);
  CssPlace place;
  place.tag = base::upperAscii(tag.name);
  place.lowerCase = tag.name != place.tag;
  std::size_t at = piece.start + 1 + tag.name.size();
  for (const auto& attribute : tag.attributes) {
    const std::string_view raw = attribute.raw;
    const std::size_t end = at + raw.size();
    if (!base::equalNoCase(attribute.name, "style")) {
      at = end;
      continue;
    }
    place.kind = CssPlace::Kind::Attribute;
    place.start = at;
    place.end = place.blockStart = place.blockEnd = end;
    place.selectorStart = at + raw.find_first_not_of(" \t\r\n");
    place.selectorEnd = place.selectorStart + attribute.name.size();
    place.hasValue = attribute.hasValue;
    if (!attribute.hasValue) return place;
    const std::size_t equals = raw.find('=');
    const std::size_t value = std::min(raw.find_first_not_of(" \t\r\n", equals + 1), raw.size());
    const char first = value < raw.size() ? raw[value] : ' ';
    place.blockStart = at + value;
    if (first != '"' && first != '\'') return place;
    if (raw.size() < value + 2 || raw.back() != first) return nothing(Why::UnclosedQuote);
    place.quote = first;
    ++place.blockStart;
    --place.blockEnd;
    return place;
  }
  place.kind = CssPlace::Kind::NewAttribute;
  place.start = place.end = place.blockStart = place.blockEnd = piece.end - 1 - tag.tail.size();
  return place;
}

class PageFinder {
 public:
  PageFinder(std::string_view page, std::size_t caret, std::size_t length)
      : page_(page), caret_(caret), length_(length) {}

  CssPlace find() { return among(scanMarkup(page_), 0, true); }

 private:
  // `offset`: where the scanned text begins in the page.
  CssPlace among(const std::vector<Piece>& pieces, std::size_t offset, bool whole) {
    const std::size_t caret = caret_ - offset;
    std::optional<Piece> before;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      const Piece& piece = pieces[i];
      const bool inside = piece.start < caret && caret < piece.end;
      const std::string name = piece.kind == Piece::Kind::Tag ? nameOf(piece, offset) : std::string();
      if (name == "STYLE") {
        const bool filled = i + 1 < pieces.size() && pieces[i + 1].kind == Piece::Kind::Verbatim;
        const std::size_t end = filled ? pieces[i + 1].end : piece.end;
        if (piece.end <= caret && caret <= end) {
          return inStyleElement(page_, piece.end + offset, end + offset, caret_);
        }
      }
      if (piece.kind == Piece::Kind::Verbatim && piece.start <= caret && caret <= piece.end && !before) {
        // Only PRE holds tags; its text is scanned alone.
        if (!whole || nameOf(pieces[i - 1], offset) != "PRE") return nothing(Why::OtherCode);
        const std::size_t start = piece.start + offset;
        return among(scanMarkup(page_.substr(start, piece.end - piece.start)), start, false);
      }
      if (piece.kind == Piece::Kind::Comment && inside) return nothing(Why::OtherCode);
      if (piece.kind != Piece::Kind::Tag || caret < piece.start || caret > piece.end) continue;
      const bool opens = name.front() != '/' && name.front() != '!';
      const bool seen = opens && !isOneOf(name, kUnseen);
      if (inside && !opens) return nothing(name.front() == '/' ? Why::EndTag : Why::OtherCode);
      if (inside && !seen) return nothing(Why::TagWithoutStyle);
      if (opens && caret == piece.end && name == "SCRIPT") return nothing(Why::OtherCode);
      if (!seen) continue;
      const Piece found{piece.kind, piece.start + offset, piece.end + offset};
      if (caret < piece.end) return inTag(page_, found);
      before = found;
    }
    CssPlace place;
    place.start = place.end = caret_;
    if (length_ > 0) {
      place.kind = CssPlace::Kind::NewSpan;
      place.end = caret_ + length_;
      place.tag = "SPAN";
      return place;
    }
    if (before) return inTag(page_, *before);
    place.kind = CssPlace::Kind::NewElement;
    place.inPage = true;
    return place;
  }

  std::string nameOf(const Piece& piece, std::size_t offset) const {
    return tagName(page_.substr(piece.start + offset, piece.end - piece.start));
  }

  std::string_view page_;
  std::size_t caret_;
  std::size_t length_;
};

}  // namespace

CssPlace cssPlace(std::string_view document, std::size_t selStart, std::size_t selLength, bool sheet) {
  const std::size_t caret = std::min(selStart, document.size());
  const std::size_t length = std::min(selLength, document.size() - caret);
  return sheet ? SheetFinder(document, caret).find() : PageFinder(document, caret, length).find();
}

bool isStyleSheet(std::string_view fileName, std::string_view text) {
  const bool named = fileName.find('.') != std::string_view::npos;
  switch (named ? base::contentOf(base::extensionOf(fileName)) : base::Content::Unknown) {
    case base::Content::Css:
      return true;
    case base::Content::Html:
    case base::Content::ServerPage:
    case base::Content::Archive:
    case base::Content::Xml:
      return false;
    case base::Content::Script:
    case base::Content::Plain:
    case base::Content::Unknown:
      break;
  }
  const std::vector<Piece> pieces = scanMarkup(text);
  const bool tags = std::any_of(pieces.begin(), pieces.end(),
                                [](const Piece& piece) { return piece.kind == Piece::Kind::Tag; });
  return !tags && text.find('{') != std::string_view::npos;
}

}  // namespace markup
