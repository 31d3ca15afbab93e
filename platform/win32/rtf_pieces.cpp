#include "platform/win32/rtf_pieces.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>

#include "platform/win32/code_text.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

constexpr int kLinesInPiece = 50;

struct Token {
  enum class Kind { Open, Close, Word, Symbol, Text } kind;
  std::string_view bytes;  // the whole token
  std::string_view name;   // of a word, without "\" and number
};

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

class Reader {
 public:
  explicit Reader(std::string_view rtf) : rtf_(rtf) {}
  bool atEnd() const { return at_ >= rtf_.size(); }
  std::size_t at() const { return at_; }
  void back(std::size_t to) { at_ = to; }

  Token next() {
    const std::size_t start = at_;
    const char c = rtf_[at_++];
    if (c == '{') return {Token::Kind::Open, rtf_.substr(start, 1), {}};
    if (c == '}') return {Token::Kind::Close, rtf_.substr(start, 1), {}};
    if (c != '\\') {
      at_ = std::min(rtf_.find_first_of("{}\\", at_), rtf_.size());
      return {Token::Kind::Text, rtf_.substr(start, at_ - start), {}};
    }
    if (atEnd() || !isLetter(rtf_[at_])) {
      const bool hex = !atEnd() && rtf_[at_] == '\'';
      at_ = std::min(rtf_.size(), at_ + (hex ? 3 : 1));
      return {Token::Kind::Symbol, rtf_.substr(start, at_ - start), {}};
    }
    while (!atEnd() && isLetter(rtf_[at_])) ++at_;
    const std::string_view name = rtf_.substr(start + 1, at_ - start - 1);
    if (!atEnd() && rtf_[at_] == '-') ++at_;
    while (!atEnd() && rtf_[at_] >= '0' && rtf_[at_] <= '9') ++at_;
    if (!atEnd() && rtf_[at_] == ' ') ++at_;  // belongs to the word
    return {Token::Kind::Word, rtf_.substr(start, at_ - start), name};
  }

 private:
  std::string_view rtf_;
  std::size_t at_ = 0;
};

bool among(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

// Moves the reader behind the header: document words and the tables.
void skipHeader(Reader& reader) {
  reader.next();  // "{"
  for (std::size_t before = reader.at(); !reader.atEnd(); before = reader.at()) {
    const Token token = reader.next();
    if (token.kind == Token::Kind::Open) {
      const Token first = reader.next();
      const bool table =
          first.bytes == "\\*" || among(first.name, {"fonttbl", "colortbl", "stylesheet", "info"});
      if (!table) {
        reader.back(before);
        return;
      }
      for (int depth = 1; depth > 0 && !reader.atEnd();) {
        const Token inside = reader.next();
        depth += inside.kind == Token::Kind::Open ? 1 : inside.kind == Token::Kind::Close ? -1 : 0;
      }
      continue;
    }
    const bool blank =
        token.kind == Token::Kind::Text && token.bytes.find_first_not_of("\r\n") == std::string_view::npos;
    const bool header = token.kind == Token::Kind::Word &&
                        among(token.name, {"rtf", "ansi", "ansicpg", "deff", "deflang", "uc", "viewkind"});
    if (!blank && !header) {
      reader.back(before);
      return;
    }
  }
}

// A byte that the control holds by a stand-in, "\'00", as that character.
std::string standIn(std::string_view symbol) {
  unsigned byte = 0;
  const char* const end = symbol.data() + symbol.size();
  if (symbol.size() == 4 && symbol[1] == '\'' &&
      std::from_chars(symbol.data() + 2, end, byte, 16).ptr == end) {
    const bool lineEnd = byte == '\n' || byte == '\r';
    const int c =
        lineEnd ? kNulStandIn + static_cast<int>(byte) : controlCharOf(static_cast<std::uint8_t>(byte));
    if (c >= kNulStandIn) return "\\u" + std::to_string(c - 0x10000) + "?";
  }
  return std::string(symbol);
}

}  // namespace

std::vector<std::string> rtfPieces(std::string_view rtf) {
  std::vector<std::string> pieces;
  if (rtf.empty()) return pieces;
  Reader reader(rtf);
  skipHeader(reader);
  const std::string header(rtf.substr(0, reader.at()));
  std::map<std::string_view, std::string_view> format;  // in force, by the word's name
  std::string piece = header;
  int lines = 0;
  int depth = 1;
  while (!reader.atEnd()) {
    const Token token = reader.next();
    if (token.kind == Token::Kind::Open) ++depth;
    if (token.kind == Token::Kind::Close && --depth == 0) break;
    piece += token.kind == Token::Kind::Symbol ? standIn(token.bytes) : std::string(token.bytes);
    if (depth != 1 || token.kind != Token::Kind::Word) continue;
    if (token.name == "plain") format.clear();
    if (among(token.name, {"f", "fs", "cf", "b", "i", "ul", "highlight"})) format[token.name] = token.bytes;
    if (token.name != "par" || ++lines < kLinesInPiece) continue;
    pieces.push_back(piece + "}");
    lines = 0;
    piece = header;
    for (const auto& [name, word] : format) piece += word;
    // A word without its closing blank would swallow the text's first letters.
    if (!format.empty() && piece.back() != ' ') piece += ' ';
  }
  pieces.push_back(piece + "}");
  return pieces;
}

}  // namespace win32
