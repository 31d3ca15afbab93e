// Line ends of byte text: CR LF, LF and CR are each one end, in whatever mixture they stand.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace base {

enum class LineEnd { CrLf, Lf, Cr };

std::string_view bytesOf(LineEnd end);
// As the user reads it: "CR LF", "LF", "CR".
std::string_view nameOf(LineEnd end);

// How many ends of each kind a text has.
struct LineEndKinds {
  std::size_t crLf = 0;
  std::size_t lf = 0;
  std::size_t cr = 0;

  bool any() const { return crLf + lf + cr > 0; }
  bool mixed() const { return (crLf > 0) + (lf > 0) + (cr > 0) > 1; }
  // The most frequent kind; CR LF where there is none, or where no kind alone is the most frequent.
  LineEnd leading() const;
};
LineEndKinds lineEndKindsOf(std::string_view text);
// The end that a line written into this text gets.
LineEnd lineEndOf(std::string_view text);

// The text with every end, of whatever kind, in this one.
std::string withLineEnds(std::string_view text, LineEnd end);
// `part` as it is written into the document, or looked for there: with the document's own end.
std::string withLineEndsOf(std::string_view document, std::string_view part);

// A line and the end behind it, both inside the text they were taken from, which must outlive them.
struct Line {
  std::string_view text;
  std::string_view end;  // empty for the last line

  std::size_t size() const { return text.size() + end.size(); }
};
// The line that begins at `from` (at most the text's length).
Line lineAt(std::string_view text, std::size_t from);
// All lines: one more than there are ends, so that a text which closes with an end has an empty last line,
// and an empty text one empty line. One behind the other they are the text.
std::vector<Line> linesOf(std::string_view text);

}  // namespace base
