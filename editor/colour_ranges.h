// Colours for HTML: which ranges of a page are blue, red or green.
#pragma once

#include <string_view>
#include <vector>

#include "ui/code_view.h"

namespace editor {

// The rule is a chain of 78 replacements that put colour codes into a page's RTF, each working on the result
// of the one before: the colour table, the 72 attributes in the order of their list, then "<", ">", "<--",
// "-->" and "<!--". Done in one pass over the plain text; the colours are exactly those of the chain for
// every text. 1: blue, 2: red, 3: green; everything else is black.
std::vector<ui::ColourRange> coloured(std::string_view text);

}  // namespace editor
