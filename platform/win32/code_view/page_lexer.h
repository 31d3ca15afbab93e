// Live colours of pages: Lexilla's lexer of HTML, and in STYLE elements, which it leaves plain, that of CSS.
#pragma once

#include <ILexer.h>

namespace win32 {

// Where the styles of CSS begin in pages: behind those of HTML.
inline constexpr int kSheetStyles = 130;

// The control releases it.
::Scintilla::ILexer5* makePageLexer();

}  // namespace win32
