#include "editor/reflow.h"

#include <algorithm>
#include <array>
#include <vector>

#include "base/line_ends.h"
#include "markup/pieces.h"

namespace editor {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// Tags that stand inside a line of text; all others end the line they are in.
bool isInline(std::string_view name) {
  constexpr std::array<std::string_view, 32> kNames = {
      "A",     "ABBR", "ACRONYM", "B",      "BASEFONT", "BDO", "BIG", "CITE",  "CODE", "DEL", "DFN",
      "EM",    "FONT", "I",       "IMG",    "INPUT",    "INS", "KBD", "LABEL", "Q",    "S",   "SAMP",
      "SMALL", "SPAN", "STRIKE",  "STRONG", "SUB",      "SUP", "TT",  "U",     "VAR",  "NOBR"};
  if (name.starts_with('/')) name.remove_prefix(1);
  return std::find(kNames.begin(), kNames.end(), name) != kNames.end();
}

// Bytes without a place to break, and the blanks in front of them.
struct Word {
  std::size_t gap;    // where the blanks begin
  std::size_t start;  // where they end
  std::size_t end;
  bool beginsApart = false;  // with a block tag or something untouchable
  bool endsApart = false;
  bool untouchable = false;  // begins with a comment or a script
};

std::vector<Word> wordsOf(std::string_view text) {
  std::vector<Word> words;
  std::size_t gap = 0;
  bool open = false;  // the last word may go on
  const auto extend = [&](std::size_t start, std::size_t end, bool apart, bool untouchable) {
    if (!open) words.push_back({gap, start, end, apart, apart, untouchable});
    words.back().end = end;
    words.back().endsApart = apart;
    open = true;
    gap = end;
  };
  for (const markup::Piece& piece : markup::scanMarkup(text)) {
    if (piece.kind != markup::Piece::Kind::Text) {
      const bool tag = piece.kind == markup::Piece::Kind::Tag;
      const bool apart =
          !tag || !isInline(markup::tagName(text.substr(piece.start, piece.end - piece.start)));
      extend(piece.start, piece.end, apart, !tag);
      continue;
    }
    for (std::size_t at = piece.start; at < piece.end;) {
      if (isBlank(text[at])) {
        open = false;
        ++at;
        continue;
      }
      std::size_t end = at;
      while (end < piece.end && !isBlank(text[end])) ++end;
      extend(at, end, false, false);
      at = end;
    }
  }
  return words;
}

int lineEndsIn(std::string_view blanks) {
  int count = 0;
  for (std::size_t i = 0; i < blanks.size(); ++i) {
    if (blanks[i] == '\n' || (blanks[i] == '\r' && (i + 1 == blanks.size() || blanks[i + 1] != '\n')))
      ++count;
  }
  return count;
}

// What stands behind the last line end.
std::string_view lastLine(std::string_view text) {
  const std::size_t at = text.find_last_of("\r\n");
  return at == std::string_view::npos ? text : text.substr(at + 1);
}

class Rewrapper {
 public:
  Rewrapper(std::string_view text, LineRange range, int length)
      : text_(text),
        range_(range),
        length_(static_cast<std::size_t>(length)),
        lineEnd_(base::bytesOf(base::lineEndOf(text))),
        words_(wordsOf(text)) {}

  std::string run() {
    out_.reserve(text_.size() + text_.size() / 32);
    for (std::size_t i = 0; i < words_.size(); ++i) put(i);
    out_ += text_.substr(words_.empty() ? 0 : words_.back().end);
    return std::move(out_);
  }

 private:
  std::string_view gapOf(std::size_t i) const {
    return text_.substr(words_[i].gap, words_[i].start - words_[i].gap);
  }

  bool mayChange(std::size_t i) const {
    return i > 0 && words_[i].gap >= range_.start && words_[i].start <= range_.end &&
           words_[i].gap < words_[i].start;
  }

  // The line end in the gap parts two paragraphs.
  bool parts(std::size_t i) const {
    return !mayChange(i) || lineEndsIn(gapOf(i)) > 1 || words_[i - 1].endsApart || words_[i].beginsApart;
  }

  void put(std::size_t i) {
    const std::string_view gap = gapOf(i);
    const std::string_view word = text_.substr(words_[i].start, words_[i].end - words_[i].start);
    const bool lineEnd = lineEndsIn(gap) > 0;
    if (i == 0 || (lineEnd && parts(i))) {
      write(gap);
      indent_ = hangingIndent(i);
    } else if (!mayChange(i)) {
      write(gap);
    } else {
      const std::string_view between = lineEnd ? " " : gap;
      if (column_ + between.size() + std::min(word.size(), word.find_first_of("\r\n")) > length_) {
        out_ += lineEnd_;
        column_ = 0;
        write(indent_);
      } else {
        write(between);
      }
    }
    write(word);
  }

  void write(std::string_view part) {
    out_ += part;
    const std::string_view last = lastLine(part);
    column_ = last.size() == part.size() ? column_ + part.size() : last.size();
  }

  // The paragraph that begins with the word: further lines stand where its second one stood, or like the
  // first.
  std::string_view hangingIndent(std::size_t first) const {
    for (std::size_t i = first + 1; i < words_.size(); ++i) {
      if (lineEndsIn(gapOf(i)) == 0) continue;
      if (!parts(i)) return lastLine(gapOf(i));
      break;
    }
    return lastLine(gapOf(first));
  }

  std::string_view text_;
  LineRange range_;
  std::size_t length_;
  std::string_view lineEnd_;
  std::vector<Word> words_;
  std::string out_;
  std::size_t column_ = 0;
  std::string_view indent_;
};

}  // namespace

LineRange linesOf(std::string_view text, std::size_t selectionStart, std::size_t selectionLength) {
  if (selectionLength == 0) return {0, text.size()};
  const std::size_t before =
      selectionStart == 0 ? std::string_view::npos : text.find_last_of("\r\n", selectionStart - 1);
  const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
  std::size_t end = selectionStart + selectionLength;
  // A selection that ends at a line's begin does not touch that line.
  if (end > start && text[end - 1] != '\n' && text[end - 1] != '\r')
    end = std::min(text.size(), text.find_first_of("\r\n", end));
  return {start, end};
}

std::string rewrap(std::string_view text, LineRange range, int length) {
  return Rewrapper(text, range, length).run();
}

std::string indentParagraphs(std::string_view text, LineRange range, int spaces) {
  const std::string blanks(static_cast<std::size_t>(spaces), ' ');
  std::string out;
  std::size_t done = 0;
  bool first = true;
  for (const Word& word : wordsOf(text)) {
    if (word.start < range.start || word.start >= range.end) continue;
    const std::string_view gap = text.substr(word.gap, word.start - word.gap);
    const bool begins = (first && (word.gap == 0 || lineEndsIn(gap) > 0)) || lineEndsIn(gap) > 1;
    first = false;
    if (!begins || word.untouchable) continue;
    out += text.substr(done, word.start - lastLine(gap).size() - done);
    out += blanks;
    done = word.start;
  }
  out += text.substr(done);
  return out;
}

std::size_t samePlace(std::string_view before, std::size_t position, std::string_view after) {
  auto letters = std::count_if(
      before.begin(), before.begin() + static_cast<std::ptrdiff_t>(std::min(position, before.size())),
      [](char c) { return !isBlank(c); });
  std::size_t at = 0;
  for (; at < after.size() && letters > 0; ++at) letters -= isBlank(after[at]) ? 0 : 1;
  return at;
}

}  // namespace editor
