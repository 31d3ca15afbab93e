#include "markup/css_tokens.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "markup/server_blocks.h"

namespace markup {
namespace {

using Kind = CssToken::Kind;
constexpr std::size_t kNone = std::string_view::npos;

// One character of the CSS and the bytes it takes.
struct Unit {
  char character;
  std::size_t length;
  bool known = true;  // false: a reference that stands for no ASCII character
};

constexpr std::array<std::pair<std::string_view, char>, 5> kNamed = {
    {{"quot", '"'}, {"apos", '\''}, {"amp", '&'}, {"lt", '<'}, {"gt", '>'}}};

int digitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return 99;
}

// What stands between "&" and ";".
Unit reference(std::string_view name, std::size_t length) {
  for (const auto& [known, character] : kNamed) {
    if (base::equalNoCase(name, known)) return {character, length};
  }
  if (!name.starts_with('#')) return {'x', length, false};
  const bool hexadecimal = name.size() > 1 && (name[1] == 'x' || name[1] == 'X');
  const int radix = hexadecimal ? 16 : 10;
  int number = 0;
  for (const char c : name.substr(hexadecimal ? 2 : 1)) {
    if (digitOf(c) >= radix || number > 127) return {'x', length, false};
    number = number * radix + digitOf(c);
  }
  return number > 0 && number < 128 ? Unit{static_cast<char>(number), length} : Unit{'x', length, false};
}

Unit unitAt(std::string_view text, std::size_t at, CssSpelling spelling) {
  if (spelling == CssSpelling::Sheet || text[at] != '&') return {text[at], 1};
  constexpr std::size_t kLongest = 10;
  const std::size_t end = text.substr(at, kLongest).find(';');
  if (end == kNone || end < 2) return {'&', 1};
  const std::string_view name = text.substr(at + 1, end - 1);
  const bool plain = std::all_of(name.begin(), name.end(), [](char c) {
    return c == '#' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
  return plain ? reference(name, end + 1) : Unit{'&', 1};
}

class Scanner {
 public:
  Scanner(std::string_view text, CssSpelling spelling) : text_(text), spelling_(spelling), servers_(text) {}

  std::vector<CssToken> scan() {
    while (at_ < text_.size()) token();
    match();
    return std::move(tokens_);
  }

 private:
  Unit unit(std::size_t at) const { return unitAt(text_, at, spelling_); }
  bool have(std::string_view what) const { return text_.substr(at_, what.size()) == what; }
  bool have(std::size_t at, char character) const {
    return at < text_.size() && unit(at).character == character;
  }

  CssToken& add(Kind kind, std::size_t end) {
    tokens_.push_back({kind, at_, end});
    at_ = end;
    return tokens_.back();
  }

  void token() {
    const Unit first = unit(at_);
    const char c = first.character;
    if (isCssBlank(c)) {
      std::size_t end = at_;
      while (end < text_.size() && isCssBlank(unit(end).character)) end += unit(end).length;
      add(Kind::Blank, end);
    } else if (c == '/' && have(at_ + first.length, '*')) {
      const std::size_t end = text_.find("*/", at_ + first.length + 1);
      add(Kind::Comment, end == kNone ? text_.size() : end + 2).whole = end != kNone;
    } else if (have("<!--") || have("-->")) {
      add(Kind::Comment, at_ + (c == '<' ? 4 : 3));
    } else if (c == '"' || c == '\'') {
      string(first);
    } else if (std::string_view("([{").find(c) != kNone) {
      add(Kind::Open, at_ + first.length).mark = c;
    } else if (std::string_view(")]}").find(c) != kNone) {
      add(Kind::Close, at_ + first.length).mark = c;
    } else if (std::string_view(":;!,@").find(c) != kNone) {
      add(Kind::Mark, at_ + first.length).mark = c;
    } else {
      word();
    }
  }

  // A line end ends a string that was not closed, as browsers have it.
  void string(const Unit& quote) {
    std::size_t end = at_ + quote.length;
    bool closed = false;
    while (end < text_.size() && !closed) {
      if (const std::size_t server = servers_.behind(end); server != end) {
        end = server;
        continue;
      }
      const Unit now = unit(end);
      if (now.character == '\n' || now.character == '\r') break;
      closed = now.character == quote.character;
      end += now.length;
      if (now.character == '\\' && end < text_.size()) {
        const bool crLf = text_.substr(end, 2) == base::kCrLf;
        end += crLf ? 2 : unit(end).length;
      }
    }
    add(Kind::String, end).whole = closed;
  }

  bool inWord(std::size_t at) const {
    const char c = unit(at).character;
    return !isCssBlank(c) && std::string_view("\"'()[]{}:;!,@").find(c) == kNone &&
           !(c == '/' && have(at + unit(at).length, '*')) && text_.substr(at, 4) != "<!--";
  }

  // The block of a server is one character of a word.
  void word() {
    std::size_t end = at_;
    while (end < text_.size() && inWord(end)) {
      if (const std::size_t server = servers_.behind(end); server != end) {
        end = server;
        continue;
      }
      const Unit now = unit(end);
      end += now.length;
      if (now.character == '\\' && end < text_.size()) end += unit(end).length;
    }
    if (base::equalNoCase(text_.substr(at_, end - at_), "url") && have(end, '(')) end = urlEnd(end);
    add(Kind::Word, end);
  }

  // Behind the ")" of an address without quotes; with quotes, or without an end in its line, the bracket is
  // one like others.
  std::size_t urlEnd(std::size_t open) {
    if (open < noUrlUntil_) return open;
    std::size_t at = open + unit(open).length;
    while (at < text_.size() && (text_[at] == ' ' || text_[at] == '\t')) ++at;
    if (have(at, '"') || have(at, '\'')) return open;
    while (at < text_.size() && text_[at] != '\n' && text_[at] != '\r') {
      if (const std::size_t server = servers_.behind(at); server != at) {
        at = server;
        continue;
      }
      const Unit now = unit(at);
      at += now.length;
      if (now.character == ')') return at;
      if (now.character == '\\' && at < text_.size()) at += unit(at).length;
    }
    noUrlUntil_ = at;
    return open;
  }

  // A "}" closes its "{" whatever brackets are still open in between; those stay alone, and so does a ")"
  // that would have to reach over a "{". One pass: `level` counts the open ones since the last "{".
  void match() {
    struct Level {
      std::size_t round = 0;
      std::size_t square = 0;
    };
    std::vector<std::size_t> open;
    std::vector<Level> levels(1);
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      const CssToken& token = tokens_[i];
      const auto count = [&levels](char mark) -> std::size_t& {
        return mark == '(' || mark == ')' ? levels.back().round : levels.back().square;
      };
      if (token.kind == Kind::Open) {
        open.push_back(i);
        if (token.is('{')) {
          levels.emplace_back();
        } else {
          ++count(token.mark);
        }
      } else if (token.kind == Kind::Close) {
        const char wanted = token.is('}') ? '{' : token.is(')') ? '(' : '[';
        if (token.is('}') ? levels.size() == 1 : count(token.mark) == 0) continue;
        while (!tokens_[open.back()].is(wanted)) {
          if (!token.is('}')) --count(tokens_[open.back()].mark);
          open.pop_back();
        }
        tokens_[open.back()].partner = i;
        tokens_[i].partner = open.back();
        open.pop_back();
        if (token.is('}')) {
          levels.pop_back();
        } else {
          --count(token.mark);
        }
      }
    }
  }

  std::string_view text_;
  CssSpelling spelling_;
  std::size_t at_ = 0;
  std::size_t noUrlUntil_ = 0;  // a broken text is not searched again for each end that is not there
  ServerBlocks servers_;
  std::vector<CssToken> tokens_;
};

}  // namespace

bool isCssBlank(char character) {
  return character == ' ' || character == '\t' || character == '\r' || character == '\n' || character == '\f';
}

std::vector<CssToken> scanCss(std::string_view text, CssSpelling spelling) {
  return Scanner(text, spelling).scan();
}

CssPiece cssPiece(std::string_view text, const std::vector<CssToken>& tokens, std::size_t first,
                  std::size_t end) {
  CssPiece piece;
  const bool dashes = isCustomProperty(text.substr(tokens[first].start));
  std::size_t behindName = first + 1;
  while (behindName < end && tokens[behindName].filler()) ++behindName;
  const bool custom = dashes && behindName < end && tokens[behindName].is(':');
  std::size_t at = first;
  for (; at < end && !tokens[at].is(';'); at = nextCssToken(tokens, at)) {
    if (tokens[at].is(':') && piece.colon == CssToken::kAlone) piece.colon = at;
    if (custom || !tokens[at].is('{') || tokens[at].partner == CssToken::kAlone) continue;
    piece.open = at;
    at = nextCssToken(tokens, at);
    break;
  }
  piece.last = at;
  return piece;
}

std::string cssFromAttribute(std::string_view raw) {
  std::string css;
  ServerBlocks servers(raw);
  for (std::size_t at = 0; at < raw.size();) {
    if (const std::size_t server = servers.behind(at); server != at) {
      css += raw.substr(at, server - at);
      at = server;
      continue;
    }
    const Unit unit = unitAt(raw, at, CssSpelling::Attribute);
    if (unit.known) {
      css += unit.character;
    } else {
      css += raw.substr(at, unit.length);
    }
    at += unit.length;
  }
  return css;
}

std::string cssForAttribute(const std::string& css, char quote) {
  const char other = quote == '"' ? '\'' : '"';
  const bool swaps = css.find(other) == std::string::npos && css.find('\\') == std::string::npos;
  std::string raw;
  ServerBlocks servers(css);
  for (std::size_t at = 0; at < css.size(); ++at) {
    const char c = css[at];
    if (const std::size_t server = servers.behind(at); server != at) {
      raw += css.substr(at, server - at);
      at = server - 1;
    } else if (c == quote) {
      raw += swaps ? std::string(1, other) : quote == '"' ? "&quot;" : "&#39;";
    } else if (c == '&' && unitAt(css, at, CssSpelling::Attribute).known) {
      raw += "&amp;";
    } else {
      raw += c;
    }
  }
  return raw;
}

}  // namespace markup
