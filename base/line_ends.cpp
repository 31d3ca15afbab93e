#include "base/line_ends.h"

#include <algorithm>

namespace base {
namespace {

bool endsLine(char c) {
  return c == '\n' || c == '\r';
}

// Ends are searched byte by byte: find_first_of asks for every byte of the text anew.
std::size_t nextEnd(std::string_view text, std::size_t from) {
  return static_cast<std::size_t>(
      std::find_if(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), endsLine) - text.begin());
}

}  // namespace

std::string_view bytesOf(LineEnd end) {
  switch (end) {
    case LineEnd::Lf:
      return "\n";
    case LineEnd::Cr:
      return "\r";
    case LineEnd::CrLf:
      break;
  }
  return "\r\n";
}

std::string_view nameOf(LineEnd end) {
  switch (end) {
    case LineEnd::Lf:
      return "LF";
    case LineEnd::Cr:
      return "CR";
    case LineEnd::CrLf:
      break;
  }
  return "CR LF";
}

LineEnd LineEndKinds::leading() const {
  if (lf > crLf && lf > cr) return LineEnd::Lf;
  if (cr > crLf && cr > lf) return LineEnd::Cr;
  return LineEnd::CrLf;
}

LineEndKinds lineEndKindsOf(std::string_view text) {
  LineEndKinds kinds;
  for (std::size_t at = nextEnd(text, 0); at < text.size(); at = nextEnd(text, at)) {
    if (text[at++] == '\n') {
      ++kinds.lf;
    } else if (at < text.size() && text[at] == '\n') {
      ++kinds.crLf;
      ++at;
    } else {
      ++kinds.cr;
    }
  }
  return kinds;
}

LineEnd lineEndOf(std::string_view text) {
  return lineEndKindsOf(text).leading();
}

std::string withLineEnds(std::string_view text, LineEnd end) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const Line line = lineAt(text, at);
    out += line.text;
    if (!line.end.empty()) out += bytesOf(end);
    at += line.size();
  }
  return out;
}

std::string withLineEndsOf(std::string_view document, std::string_view part) {
  // Most parts are one line: then the document, which may be long, is not asked.
  return nextEnd(part, 0) == part.size() ? std::string(part) : withLineEnds(part, lineEndOf(document));
}

Line lineAt(std::string_view text, std::size_t from) {
  const std::size_t end = nextEnd(text, from);
  std::size_t length = 0;
  if (end < text.size()) length = text.substr(end, 2) == "\r\n" ? 2 : 1;
  return {text.substr(from, end - from), text.substr(end, length)};
}

std::vector<Line> linesOf(std::string_view text) {
  std::vector<Line> lines;
  std::size_t at = 0;
  do {
    lines.push_back(lineAt(text, at));
    at += lines.back().size();
  } while (!lines.back().end.empty());
  return lines;
}

}  // namespace base
