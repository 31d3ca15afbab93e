// A separator after every N-th line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace editor {

// `every` is at least 1. The separator's line ends as the text's lines do; in a text of CR LF a lone CR or LF
// belongs to its line. Nothing when the text has no more than `every` lines.
std::optional<std::string> groupLines(std::string_view text, int every, std::string_view separator);

// The number that an answer stands for, as 16-bit integer; 0 when it is none.
int lineCount(std::string_view answer);

}  // namespace editor
