#include "editor/line_group.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/text.h"

namespace editor {

std::optional<std::string> groupLines(std::string_view text, int every, std::string_view separator) {
  const auto size = static_cast<std::size_t>(every);
  std::size_t lines = 0;
  std::string out;
  std::size_t done = 0;
  for (std::size_t at; (at = text.find(base::kCrLf, done)) != std::string_view::npos;) {
    out += text.substr(done, at - done);
    ++lines;
    if (lines % size == 0) out.append(base::kCrLf).append(separator);
    out += base::kCrLf;
    done = at + base::kCrLf.size();
  }
  // `lines` is now the highest line number, counted from 0.
  if (lines < size) return std::nullopt;
  out += text.substr(done);
  if ((lines + 1) % size == 0) out.append(base::kCrLf).append(separator);
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
