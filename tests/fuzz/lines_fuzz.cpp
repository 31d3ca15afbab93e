// Any bytes as a page whose lines are made anew, grouped, and replaced in by a list.
#include "base/error.h"
#include "base/line_ends.h"
#include "editor/line_group.h"
#include "editor/list_replace.h"
#include "editor/reflow.h"
#include "markup/pieces.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/random_html.h"

namespace {

std::string withoutBlanks(std::string_view text) {
  std::string rest(text);
  std::erase_if(rest, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  return rest;
}

// The pieces that must not change, in order.
std::vector<std::string> untouchable(const std::string& text) {
  std::vector<std::string> all;
  for (const markup::Piece& piece : markup::scanMarkup(text)) {
    if (piece.kind != markup::Piece::Kind::Text)
      all.push_back(text.substr(piece.start, piece.end - piece.start));
  }
  return all;
}

// Byte by byte, the first pair of the list that fits.
std::string plainlyReplaced(std::string_view text, const std::vector<editor::ReplacePair>& pairs,
                            base::LineEnd end) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    bool found = false;
    for (const editor::ReplacePair& pair : pairs) {
      const std::string find = base::withLineEnds(pair.find, end);
      if (find.empty() || !text.substr(at).starts_with(find)) continue;
      out += base::withLineEnds(pair.replace, end);
      at += find.size();
      found = true;
      break;
    }
    if (!found) out += text[at++];
  }
  return out;
}

}  // namespace

FUZZ(Lines, tests::htmlParts()) {
  const int length = editor::kShortestLine + static_cast<int>(fuzz::choose(bytes, 200));
  const std::size_t from = fuzz::choose(bytes, 60000), size = fuzz::choose(bytes, 60000);
  const std::string text(bytes);
  const std::size_t start = from % (text.size() + 1), selected = size % (text.size() - start + 1);
  const editor::LineRange range = editor::linesOf(text, start, selected);
  MUST(range.start <= (selected == 0 ? 0 : start) && range.end >= start + selected &&
       range.end <= text.size());
  const std::string wrapped = editor::rewrap(text, range, length);
  for (const std::string& changed : {wrapped, editor::indentParagraphs(text, range, 3 + length % 17)}) {
    MUST(withoutBlanks(changed) == withoutBlanks(text));
    MUST(untouchable(changed) == untouchable(text));
    MUST(changed.substr(0, range.start) == text.substr(0, range.start));
    MUST(changed.ends_with(text.substr(range.end)));
  }
  const std::size_t moved = editor::samePlace(text, start, wrapped);
  MUST(withoutBlanks(wrapped.substr(0, moved)) == withoutBlanks(text.substr(0, start)));

  const int every = 1 + length % 5;
  if (const auto grouped = editor::groupLines(text, every, "SEPARATOR")) {
    const std::string between = std::string(base::bytesOf(base::lineEndOf(text))) + "SEPARATOR";
    std::string rest = *grouped;
    for (std::size_t at = 0; (at = rest.find(between, at)) != std::string::npos;)
      rest.erase(at, between.size());
    MUST(text.find("SEPARATOR") != std::string::npos || rest == text);
  }
  const std::vector<editor::ReplacePair> pairs = {
      {text.substr(start, selected % 4), "<"}, {"<", "\r\n"}, {"\n", "A"}};
  std::vector<int> counts(pairs.size());
  const base::LineEnd end = base::lineEndOf(text);
  MUST(editor::replaceByList(text, pairs, end, {}, counts) == plainlyReplaced(text, pairs, end));
  try {
    const auto read = editor::parsePairs(text);
    MUST(editor::parsePairs(editor::formatPairs(read)) == read);
  } catch (const base::Error& error) {
    MUST(error.number() == base::ErrorNumber::BadFileFormat);
  }
}
