// CSS text in tokens. Every byte belongs to one token, in order: what nobody changes can be written back as
// it was. No text is too broken.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace markup {

// How the CSS is written down: as it is, or in an attribute of a tag, where &quot; is a quote.
enum class CssSpelling { Sheet, Attribute };

struct CssToken {
  enum class Kind {
    Blank,
    Comment,  // also "<!--" and "-->" around the text of a STYLE element
    String,
    Word,   // names, numbers, escapes, url(...) without quotes, references, blocks of servers
    Mark,   // one of : ; ! , @
    Open,   // one of ( [ {
    Close,  // one of ) ] }
  };
  static constexpr std::size_t kAlone = static_cast<std::size_t>(-1);

  Kind kind;
  std::size_t start;
  std::size_t end;
  char mark = 0;                 // of Mark, Open and Close
  bool whole = true;             // a comment or string that has its end
  std::size_t partner = kAlone;  // of Open and Close: index of the other one

  bool filler() const { return kind == Kind::Blank || kind == Kind::Comment; }
  bool is(char character) const { return mark == character; }
};

std::vector<CssToken> scanCss(std::string_view text, CssSpelling spelling);

// One piece of what stands between braces or in an attribute: a declaration, or a rule with its own braces.
struct CssPiece {
  std::size_t colon = CssToken::kAlone;  // index of the first ":" outside of brackets
  std::size_t open = CssToken::kAlone;   // index of a rule's "{"
  std::size_t last = 0;                  // index of the ";", or behind the last token of the piece
  bool rule() const { return open != CssToken::kAlone; }
};
// The piece that begins at `first`, which is no filler; it ends before the token `end` at the latest. The
// value of a custom property ("--name:") may hold braces.
CssPiece cssPiece(std::string_view text, const std::vector<CssToken>& tokens, std::size_t first,
                  std::size_t end);
inline bool isCustomProperty(std::string_view name) {
  return name.starts_with("--");
}

// Behind the brackets that open at `index`; they count as one token when they do not close.
inline std::size_t nextCssToken(const std::vector<CssToken>& tokens, std::size_t index) {
  const CssToken& token = tokens[index];
  const bool jumps = token.kind == CssToken::Kind::Open && token.partner != CssToken::kAlone;
  return (jumps ? token.partner : index) + 1;
}

// The text of a value between the two spellings. In an attribute the quotes that would end it are exchanged
// for the other kind where that means the same, else written as references; `quote` is the attribute's.
std::string cssFromAttribute(std::string_view raw);
std::string cssForAttribute(const std::string& css, char quote);

bool isCssBlank(char character);

}  // namespace markup
