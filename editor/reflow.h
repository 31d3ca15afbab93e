// Lines of a page made anew: filled up to a length, or begun with blanks. Only blanks and line ends between
// words change; tags, comments, scripts and preformatted text stay as they are, byte for byte. CR LF, LF and
// CR end a line; a new end is of the document's own kind.
#pragma once

#include <string>
#include <string_view>

namespace editor {

inline constexpr int kShortestLine = 10;
inline constexpr int kLongestLine = 300;
inline constexpr int kSmallestIndent = 3;
inline constexpr int kLargestIndent = 20;

// The part of a text that is worked on; whole lines.
struct LineRange {
  std::size_t start;
  std::size_t end;
};
// The lines that the selection touches; the whole text when nothing is selected.
LineRange linesOf(std::string_view text, std::size_t selectionStart, std::size_t selectionLength);

// Lines of a paragraph are joined and broken again at word ends, so that none is longer than `length` bytes
// (a longer word stands alone). Empty lines and block tags at a line's begin or end part paragraphs. The
// whole text is returned; outside `range` it is as it was.
std::string rewrap(std::string_view text, LineRange range, int length);

// Each paragraph (at the begin, or behind an empty line) begins with `spaces` blanks in place of those it
// had.
std::string indentParagraphs(std::string_view text, LineRange range, int spaces);

// The position in `after` that stands behind as many letters that are no blanks as `position` in `before`.
std::size_t samePlace(std::string_view before, std::size_t position, std::string_view after);

}  // namespace editor
