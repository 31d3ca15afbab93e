#include "markup/pieces.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "markup/server_blocks.h"

namespace markup {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isVerbatim(std::string_view name) {
  constexpr std::array<std::string_view, 6> kNames = {"PRE", "SCRIPT", "STYLE", "TEXTAREA", "XMP", "LISTING"};
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text), servers_(text) {}

  std::vector<Piece> scan() {
    for (std::size_t at = 0; (at = text_.find('<', at)) != kNone;) {
      const std::string_view rest = text_.substr(at);
      if (rest.starts_with("<!--")) {
        at = block(at, at + 4, "-->");
      } else if (rest.starts_with("<?")) {
        at = block(at, at + 2, "?>");
      } else if (rest.starts_with("<%")) {
        at = block(at, at + 2, "%>");
      } else {
        at = tag(at);
      }
    }
    add(Piece::Kind::Text, text_.size());
    return std::move(pieces_);
  }

 private:
  // From where the last piece ended.
  void add(Piece::Kind kind, std::size_t end) {
    if (end > done_) pieces_.push_back({kind, done_, end});
    done_ = end;
  }

  std::size_t block(std::size_t start, std::size_t inside, std::string_view close) {
    const std::size_t found = text_.find(close, inside);
    add(Piece::Kind::Text, start);
    add(Piece::Kind::Comment, found == kNone ? text_.size() : found + close.size());
    return done_;
  }

  std::size_t tag(std::size_t start) {
    const bool opens = start + 1 < text_.size() &&
                       (isLetter(text_[start + 1]) || text_[start + 1] == '/' || text_[start + 1] == '!');
    const std::size_t end = opens ? tagEnd(start) : kNone;
    if (end == kNone) return start + 1;
    add(Piece::Kind::Text, start);
    add(Piece::Kind::Tag, end);
    const std::string name = tagName(text_.substr(start, end - start));
    if (isVerbatim(name)) add(Piece::Kind::Verbatim, closing(name, end));
    return done_;
  }

  // Behind the ">" that ends the tag; quoted values may hold others. Where quotes do not match up to the end
  // of the text, the first ">" ends this tag and all that follow.
  std::size_t tagEnd(std::size_t start) {
    const std::size_t first = next('>', start);
    if (first == kNone) return kNone;
    bool value = false;  // a "=" was the last that counts
    for (std::size_t at = start + 1; at < text_.size() && !quotesFail_; ++at) {
      const char c = text_[at];
      if (c == '>') return at + 1;
      const std::size_t behind = servers_.behind(at);
      if (behind != at) at = behind - 1;
      if (value && (c == '"' || c == '\'')) at = closingQuote(c, at + 1);
      if (!isBlank(c)) value = c == '=';
    }
    quotesFail_ = true;
    return first + 1;
  }

  // The place of the quote that ends a value; the text's end when there is none.
  std::size_t closingQuote(char quote, std::size_t at) {
    while (at < text_.size() && text_[at] != quote) {
      const std::size_t behind = servers_.behind(at);
      at = behind != at ? behind : at + 1;
    }
    return at;
  }

  // Like find(), but remembers when there are none left, so that a broken page is not searched to its end
  // again for each of its tags.
  std::size_t next(char c, std::size_t from) {
    bool& none = none_[static_cast<unsigned char>(c)];
    if (none) return kNone;
    const std::size_t found = text_.find(c, from);
    none = found == kNone;
    return found;
  }

  std::size_t closing(const std::string& name, std::size_t from) {
    for (std::size_t at = from; (at = text_.find("</", at)) != kNone; ++at) {
      if (base::equalNoCase(text_.substr(at + 2, name.size()), name)) return at;
    }
    return text_.size();
  }

  std::string_view text_;
  std::size_t done_ = 0;
  std::vector<Piece> pieces_;
  std::array<bool, 256> none_{};
  ServerBlocks servers_;
  bool quotesFail_ = false;
};

std::optional<Piece> tagAmong(const std::vector<Piece>& pieces, std::size_t position) {
  std::optional<Piece> before;
  for (const Piece& piece : pieces) {
    if (piece.kind != Piece::Kind::Tag) continue;
    if (piece.start <= position && position < piece.end) return piece;
    if (piece.end == position) before = piece;
  }
  return before;
}

}  // namespace

std::vector<Piece> scanMarkup(std::string_view text) {
  return Scanner(text).scan();
}

std::string tagName(std::string_view tag) {
  std::size_t end = 1;
  while (end < tag.size() && !isBlank(tag[end]) && tag[end] != '>' && (tag[end] != '/' || end == 1)) ++end;
  return base::upperAscii(tag.substr(1, end - 1));
}

std::optional<Piece> tagAt(std::string_view text, std::size_t position) {
  const std::vector<Piece> pieces = scanMarkup(text);
  if (const auto found = tagAmong(pieces, position)) return found;
  for (const Piece& piece : pieces) {
    if (piece.kind != Piece::Kind::Verbatim || position < piece.start || position > piece.end) continue;
    auto inside =
        tagAmong(scanMarkup(text.substr(piece.start, piece.end - piece.start)), position - piece.start);
    if (!inside) continue;
    inside->start += piece.start;
    inside->end += piece.start;
    return inside;
  }
  return std::nullopt;
}

}  // namespace markup
