// Byte text in lists and labels, which show Unicode.
#pragma once

#include <string>
#include <string_view>

#include "ui/code_view.h"

namespace editor {

// UTF-8 pages as their letters, other bytes one character each; line ends and tabs as arrows.
std::string shownBytes(std::string_view bytes);

// What the user typed into a Unicode field (UTF-8), as the bytes that typing it into the page would give.
std::string typedBytes(const ui::CodeView& T1, const std::string& utf8);

}  // namespace editor
