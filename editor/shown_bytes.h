// Byte text in lists and labels, which show Unicode.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "ui/code_view.h"

namespace editor {

// The letters (UTF-8) that the code view shows for bytes.
using LettersOf = std::function<std::string(const std::string& bytes)>;

// UTF-8 as its letters, other bytes by `lettersOf` or else one character each; line ends and tabs as arrows.
std::string shownBytes(std::string_view bytes, const LettersOf& lettersOf = nullptr);

// What the user typed into a Unicode field (UTF-8), as the bytes that typing it into the page would give.
std::string typedBytes(const ui::CodeView& T1, const std::string& utf8);

}  // namespace editor
