// Colours for HTML: codes put into the RTF of a plain page.
#pragma once

#include <string>
#include <string_view>

namespace editor {

// The rule is a chain of 78 replacements over the whole text, each working on the result of the one before:
// the colour table, the 72 attributes in the order of their list, then "<", ">", "<--", "-->" and "<!--".
// Done in one pass; the result is exactly that of the chain for every text. Only the exact one-entry colour
// table gets the colours.
std::string coloured(std::string_view rtf);

}  // namespace editor
