// Live colours: which lexer reads a language, and what its styles mean.
#pragma once

#include <vector>

#include "platform/win32/code_view/scintilla.h"
#include "ui/code_colours.h"
#include "ui/code_view.h"

namespace win32 {

// Gives the document in the control the lexer of the language, or none.
void setLexer(const Scintilla& control, ui::Language language);

struct LexerStyle {
  int style;
  ui::CodeColour colour;
};
// Of the styles that are not plain text.
std::vector<LexerStyle> lexerStyles(ui::Language language);

}  // namespace win32
