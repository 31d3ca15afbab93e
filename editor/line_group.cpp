#include "editor/line_group.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/line_ends.h"
#include "base/text.h"

namespace editor {

std::optional<std::string> groupLines(std::string_view text, int every, std::string_view separator) {
  const auto size = static_cast<std::size_t>(every);
  const base::LineEndKinds kinds = base::lineEndKindsOf(text);
  const bool pairsAlone = kinds.crLf > 0 && kinds.leading() == base::LineEnd::CrLf;
  std::string between(base::bytesOf(kinds.leading()));
  between += separator;
  std::size_t lines = 0;
  std::string out;
  base::Line line;
  for (std::size_t at = 0;; at += line.size()) {
    line = base::lineAt(text, at);
    out += line.text;
    const bool last = line.end.empty();
    const bool ends = pairsAlone ? line.end.size() == 2 : !last;
    if ((ends || last) && (lines + 1) % size == 0) out += between;
    if (last) break;
    if (ends) ++lines;
    out += line.end;
  }
  // `lines` is now the highest line number, counted from 0.
  if (lines < size) return std::nullopt;
  return out;
}

int lineCount(std::string_view answer) {
  const std::string_view digits = base::trimSpaces(answer);
  double number = 0;
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size() || std::isnan(number)) return 0;
  constexpr double kMost = std::numeric_limits<std::int16_t>::max();
  return static_cast<int>(std::nearbyint(std::clamp(number, 0.0, kMost)));
}

}  // namespace editor
