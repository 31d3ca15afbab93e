#include "markup/css_block.h"

#include "base/text.h"

namespace markup {
namespace {

using Kind = CssToken::Kind;
using Tokens = std::vector<CssToken>;
constexpr std::size_t kNone = std::string_view::npos;

bool isLineEnd(char c) {
  return c == '\r' || c == '\n';
}

// From `first` to before `last`, without blanks and comments at both ends.
struct Range {
  std::size_t first;
  std::size_t last;
  bool empty() const { return first >= last; }
};

Range trimmed(const Tokens& tokens, Range range) {
  while (!range.empty() && tokens[range.first].filler()) ++range.first;
  while (!range.empty() && tokens[range.last - 1].filler()) --range.last;
  return range;
}

// "! important" at the end of a value: the index of its mark.
std::size_t importantAt(std::string_view block, const Tokens& tokens, Range value) {
  if (value.empty()) return kNone;
  const CssToken& word = tokens[value.last - 1];
  if (word.kind != Kind::Word) return kNone;
  if (!base::equalNoCase(block.substr(word.start, word.end - word.start), "important")) return kNone;
  const Range before = trimmed(tokens, {value.first, value.last - 1});
  return !before.empty() && tokens[before.last - 1].is('!') ? before.last - 1 : kNone;
}

class Reader {
 public:
  Reader(std::string_view block, CssSpelling spelling)
      : block_(block), spelling_(spelling), tokens_(scanCss(block, spelling)) {}

  std::vector<CssDeclaration> read() {
    for (std::size_t at = 0; at < tokens_.size();) {
      if (tokens_[at].filler() || tokens_[at].is(';')) {
        ++at;
        continue;
      }
      const CssPiece piece = cssPiece(block_, tokens_, at, tokens_.size());
      if (!piece.rule() && piece.colon != CssToken::kAlone) declaration(at, piece.colon, piece.last);
      at = piece.last;
    }
    return std::move(declarations_);
  }

 private:
  void declaration(std::size_t first, std::size_t colon, std::size_t last) {
    const Range name = trimmed(tokens_, {first, colon});
    if (name.empty() || tokens_[name.first].is('@')) return;
    Range value = trimmed(tokens_, {colon + 1, last});
    CssDeclaration found{};
    found.start = tokens_[name.first].start;
    found.nameEnd = tokens_[name.last - 1].end;
    found.end = value.empty() ? tokens_[colon].end : tokens_[value.last - 1].end;
    found.next = last < tokens_.size() ? tokens_[last].end : found.end;
    const std::size_t important = importantAt(block_, tokens_, value);
    found.important = important != kNone;
    if (found.important) value = trimmed(tokens_, {value.first, important});
    found.valueStart = value.empty() ? tokens_[colon].end : tokens_[value.first].start;
    found.valueEnd = value.empty() ? found.valueStart : tokens_[value.last - 1].end;
    found.name = text(found.start, found.nameEnd);
    found.value = text(found.valueStart, found.valueEnd);
    declarations_.push_back(std::move(found));
  }

  std::string text(std::size_t start, std::size_t end) const {
    const std::string_view raw = block_.substr(start, end - start);
    return spelling_ == CssSpelling::Attribute ? cssFromAttribute(raw) : std::string(raw);
  }

  std::string_view block_;
  CssSpelling spelling_;
  Tokens tokens_;
  std::vector<CssDeclaration> declarations_;
};

// The blanks between the line end before `at` and `at`; nothing when something else stands before it in its
// line, or when it is the block's first line.
struct LineStart {
  std::size_t lineEnd;  // where the line end before begins
  std::size_t start;    // behind it
};
bool lineStart(std::string_view text, std::size_t at, LineStart& found) {
  std::size_t start = at;
  while (start > 0 && isCssBlank(text[start - 1]) && !isLineEnd(text[start - 1])) --start;
  if (start == 0 || !isLineEnd(text[start - 1])) return false;
  found = {start - 1, start};
  if (text[start - 1] == '\n' && start > 1 && text[start - 2] == '\r') --found.lineEnd;
  return true;
}

std::size_t behindLineEnd(std::string_view text, std::size_t at) {
  return at + (text.substr(at, 2) == base::kCrLf ? 2 : 1);
}

class Writer {
 public:
  Writer(const std::string& block, char quote, const CssLayout& layout)
      : text_(block),
        quote_(quote),
        spelling_(quote == 0 ? CssSpelling::Sheet : CssSpelling::Attribute),
        layout_(layout) {}

  std::string write(const std::vector<CssEntry>& entries) {
    // From the last to the first: the places of those before stay right.
    const std::vector<CssDeclaration> old = readDeclarations(text_, spelling_);
    for (std::size_t i = old.size(); i-- > 0;) {
      const CssEntry& entry = entries[i];
      if (entry.value.empty() && !old[i].value.empty()) {
        remove(old[i]);
      } else {
        change(old[i], entry);
      }
    }
    for (std::size_t i = old.size(); i < entries.size(); ++i) {
      if (!entries[i].value.empty()) append(entries[i]);
    }
    return std::move(text_);
  }

 private:
  std::string written(const std::string& value) const {
    return quote_ == 0 ? value : cssForAttribute(value, quote_);
  }

  void change(const CssDeclaration& old, const CssEntry& entry) {
    if (old.important && !entry.important) {
      text_.erase(old.valueEnd, old.end - old.valueEnd);
    } else if (!old.important && entry.important) {
      text_.insert(old.valueEnd, " !important");
    }
    if (entry.value != old.value) {
      text_.replace(old.valueStart, old.valueEnd - old.valueStart, written(entry.value));
    }
  }

  void remove(const CssDeclaration& old) {
    std::size_t behind = old.next;
    while (behind < text_.size() && isCssBlank(text_[behind]) && !isLineEnd(text_[behind])) ++behind;
    LineStart line{};
    if (lineStart(text_, old.start, line) && (behind == text_.size() || isLineEnd(text_[behind]))) {
      // Alone in its line: the line goes.
      const std::size_t end = behind == text_.size() ? behind : behindLineEnd(text_, behind);
      text_.erase(line.start, end - line.start);
      return;
    }
    while (behind < text_.size() && isCssBlank(text_[behind])) ++behind;
    std::size_t start = old.start;
    if (behind == text_.size()) {
      while (start > 0 && isCssBlank(text_[start - 1])) --start;
      // The blanks before the closing brace stay, and those behind the opening one when nothing is left.
      behind = start == 0 ? behind : old.next;
      if (start == 0) start = old.start;
    }
    text_.erase(start, behind - start);
  }

  std::string declaration(const CssEntry& entry, const std::string& colon) const {
    return entry.name + colon + written(entry.value) + (entry.important ? " !important" : "");
  }

  void append(const CssEntry& entry) {
    const std::vector<CssDeclaration> all = readDeclarations(text_, spelling_);
    if (all.empty()) {
      appendFirst(entry);
      return;
    }
    const CssDeclaration& last = all.back();
    const bool ended = last.next != last.end;
    LineStart line{};
    std::string between;
    std::size_t at = last.next;
    if (lineStart(text_, last.start, line)) {
      between = text_.substr(line.lineEnd, last.start - line.lineEnd);
      at = behindComments(at);
    } else if (all.size() > 1) {
      between = text_.substr(all[all.size() - 2].next, last.start - all[all.size() - 2].next);
      if (between.find_first_not_of(" \t\r\n\f") != std::string::npos) between = " ";
    } else {
      const bool tight = text_[last.valueStart - 1] == ':' && last.start == 0 && quote_ == 0;
      between = tight ? "" : " ";
    }
    const std::string colon = layoutOf(text_, spelling_, layout_).colon;
    std::string added = between + declaration(entry, colon) + (ended ? ";" : "");
    if (!ended && at != last.end) {
      // A comment stands behind it: the ";" goes before.
      text_.insert(at, added);
      text_.insert(last.end, ";");
    } else {
      text_.insert(at, (ended ? "" : ";") + added);
    }
  }

  // Behind the comments in the rest of the line.
  std::size_t behindComments(std::size_t at) const {
    std::size_t end = at;
    for (const CssToken& token : scanCss(std::string_view(text_).substr(at), spelling_)) {
      if (token.kind == Kind::Comment && token.whole) {
        end = at + token.end;
      } else if (token.kind != Kind::Blank ||
                 text_.substr(at + token.start, token.end - token.start).find_first_of("\r\n") != kNone) {
        break;
      }
    }
    return end;
  }

  void appendFirst(const CssEntry& entry) {
    std::size_t at = 0;
    bool separate = false;  // something that is no declaration stands there without an end
    const Tokens tokens = scanCss(text_, spelling_);
    for (const CssToken& token : tokens) {
      if (token.kind == Kind::Blank) continue;
      at = token.end;
      if (!token.filler()) separate = !token.is(';') && !token.is('}');
    }
    const std::string rest = text_.substr(at);
    std::string added = separate ? ";" : "";
    if (quote_ != 0) {
      added += (at == 0 ? "" : " ") + declaration(entry, layout_.colon);
    } else if (rest.find_first_of("\r\n") != std::string::npos) {
      const std::size_t last = rest.find_last_of("\r\n");
      added +=
          layout_.lineEnd + rest.substr(last + 1) + layout_.indent + declaration(entry, layout_.colon) + ";";
    } else {
      const bool tight = layout_.colon == ":";
      added +=
          (tight ? "" : " ") + declaration(entry, layout_.colon) + ";" + (tight || !rest.empty() ? "" : " ");
    }
    text_.insert(at, added);
  }

  std::string text_;
  char quote_;
  CssSpelling spelling_;
  CssLayout layout_;
};

}  // namespace

std::vector<CssDeclaration> readDeclarations(std::string_view block, CssSpelling spelling) {
  return Reader(block, spelling).read();
}

std::vector<CssEntry> entriesOf(const std::vector<CssDeclaration>& declarations) {
  std::vector<CssEntry> entries;
  for (const CssDeclaration& declaration : declarations) {
    entries.push_back(
        {declaration.name, declaration.value, declaration.important, static_cast<int>(entries.size())});
  }
  return entries;
}

CssLayout layoutOf(std::string_view block, CssSpelling spelling, CssLayout otherwise) {
  const std::vector<CssDeclaration> all = readDeclarations(block, spelling);
  if (all.empty()) return otherwise;
  const CssDeclaration& last = all.back();
  LineStart line{};
  otherwise.oneLine = !lineStart(block, last.start, line);
  if (!otherwise.oneLine) {
    otherwise.lineEnd = block.substr(line.lineEnd, line.start - line.lineEnd);
    otherwise.indent = block.substr(line.start, last.start - line.start);
    const std::string_view closing = block.substr(block.find_last_of("\r\n") + 1);
    const bool blank = closing.find_first_not_of(" \t") == std::string_view::npos;
    if (blank && otherwise.indent.starts_with(closing)) otherwise.indent.erase(0, closing.size());
  }
  const std::string_view colon = block.substr(last.nameEnd, last.valueStart - last.nameEnd);
  const bool plain = colon.find_first_not_of(": \t") == std::string_view::npos;
  if (plain && !last.value.empty()) otherwise.colon = colon;
  return otherwise;
}

std::string editedBlock(const std::string& block, char quote, const std::vector<CssEntry>& entries,
                        const CssLayout& layout) {
  return Writer(block, quote, layout).write(entries);
}

bool fitsDeclaration(std::string_view value, std::string_view property) {
  const Tokens tokens = scanCss(value, CssSpelling::Sheet);
  for (std::size_t at = 0; at < tokens.size(); at = nextCssToken(tokens, at)) {
    const CssToken& token = tokens[at];
    const bool bracket = token.kind == Kind::Open || token.kind == Kind::Close;
    if (!token.whole || token.is(';') || token.is('!')) return false;
    if (token.is('{') && !isCustomProperty(property)) return false;
    if (bracket && token.partner == CssToken::kAlone) return false;
  }
  // Inside a round bracket too: it ends the braces around.
  for (const CssToken& token : tokens) {
    if (!token.whole || (token.kind == Kind::Close && token.partner == CssToken::kAlone)) return false;
  }
  return !value.ends_with('\\');
}

bool fitsSelector(std::string_view selector) {
  bool content = false;
  for (const CssToken& token : scanCss(selector, CssSpelling::Sheet)) {
    const bool bracket = token.kind == Kind::Open || token.kind == Kind::Close;
    if (!token.whole || token.is('{') || token.is('}') || token.is(';')) return false;
    if (bracket && token.partner == CssToken::kAlone) return false;
    content = content || !token.filler();
  }
  return content && !selector.ends_with('\\');
}

}  // namespace markup
