#include "platform/win32/code_view/lexers.h"

#include <ILexer.h>
#include <LexerModule.h>
#include <SciLexer.h>

#include <array>

#include "platform/win32/code_view/page_lexer.h"

extern Lexilla::LexerModule lmXML;
extern Lexilla::LexerModule lmCss;

namespace win32 {
namespace {

using enum ui::CodeColour;

constexpr const char* kScriptWords =
    "async await break case catch class const continue debugger default delete do else export extends false "
    "finally for from function if import in instanceof let new null of return static super switch this throw "
    "true try typeof undefined var void while with yield";
constexpr const char* kBasicWords =
    "and byref byval call case class const dim do each else elseif empty end erase error exit explicit false "
    "for function get goto if in is let loop mod new next not nothing null on option or private property "
    "public redim resume select set sub then to true until wend while with xor";
constexpr const char* kPhpWords =
    "abstract and array as break case catch class clone const continue declare default die do echo else "
    "elseif empty enddeclare endfor endforeach endif endswitch endwhile exit extends false final finally fn "
    "for foreach function global goto if implements include include_once instanceof interface isset list "
    "match namespace new null or print private protected public readonly require require_once return static "
    "switch throw trait true try unset use var while xor yield";
// Places of the lists in the lexer.
constexpr int kScriptList = 1;
constexpr int kBasicList = 2;
constexpr int kPhpList = 4;

struct Run {  // of style numbers, both included
  int first;
  int last;
  ui::CodeColour colour;
};

constexpr std::array kMarkup = std::to_array<Run>({
    {SCE_H_TAG, SCE_H_TAGUNKNOWN, Tag},
    {SCE_H_ATTRIBUTE, SCE_H_ATTRIBUTEUNKNOWN, Attribute},
    {SCE_H_NUMBER, SCE_H_SINGLESTRING, Value},
    {SCE_H_COMMENT, SCE_H_COMMENT, Comment},
    {SCE_H_ENTITY, SCE_H_ENTITY, Entity},
    {SCE_H_TAGEND, SCE_H_SCRIPT, Tag},
    {SCE_H_ASP, SCE_H_ASPAT, Server},
    {SCE_H_CDATA, SCE_H_CDATA, Entity},
    {SCE_H_QUESTION, SCE_H_QUESTION, Server},
    {SCE_H_VALUE, SCE_H_VALUE, Value},
    {SCE_H_XCCOMMENT, SCE_H_XCCOMMENT, Comment},
    {SCE_H_SGML_DEFAULT, SCE_H_SGML_1ST_PARAM, Tag},
    {SCE_H_SGML_DOUBLESTRING, SCE_H_SGML_SIMPLESTRING, Value},
    {SCE_H_SGML_COMMENT, SCE_H_SGML_COMMENT, Comment},
    {SCE_HJ_COMMENT, SCE_HJ_COMMENTDOC, Comment},
    {SCE_HJ_NUMBER, SCE_HJ_NUMBER, Number},
    {SCE_HJ_KEYWORD, SCE_HJ_KEYWORD, Keyword},
    {SCE_HJ_DOUBLESTRING, SCE_HJ_SINGLESTRING, Value},
    {SCE_HJ_STRINGEOL, SCE_HJ_REGEX, Value},
    {SCE_HJA_START, SCE_HJA_DEFAULT, Server},
    {SCE_HJA_COMMENT, SCE_HJA_COMMENTDOC, Comment},
    {SCE_HJA_NUMBER, SCE_HJA_NUMBER, Number},
    {SCE_HJA_WORD, SCE_HJA_WORD, Server},
    {SCE_HJA_KEYWORD, SCE_HJA_KEYWORD, Keyword},
    {SCE_HJA_DOUBLESTRING, SCE_HJA_SINGLESTRING, Value},
    {SCE_HJA_SYMBOLS, SCE_HJA_SYMBOLS, Server},
    {SCE_HJA_STRINGEOL, SCE_HJA_REGEX, Value},
    {SCE_HB_COMMENTLINE, SCE_HB_COMMENTLINE, Comment},
    {SCE_HB_NUMBER, SCE_HB_NUMBER, Number},
    {SCE_HB_WORD, SCE_HB_WORD, Keyword},
    {SCE_HB_STRING, SCE_HB_STRING, Value},
    {SCE_HBA_START, SCE_HBA_DEFAULT, Server},
    {SCE_HBA_COMMENTLINE, SCE_HBA_COMMENTLINE, Comment},
    {SCE_HBA_NUMBER, SCE_HBA_NUMBER, Number},
    {SCE_HBA_WORD, SCE_HBA_WORD, Keyword},
    {SCE_HBA_STRING, SCE_HBA_STRING, Value},
    {SCE_HBA_IDENTIFIER, SCE_HBA_IDENTIFIER, Server},
    {SCE_HPHP_COMPLEX_VARIABLE, SCE_HPHP_COMPLEX_VARIABLE, Server},
    {SCE_HPHP_DEFAULT, SCE_HPHP_DEFAULT, Server},
    {SCE_HPHP_HSTRING, SCE_HPHP_SIMPLESTRING, Value},
    {SCE_HPHP_WORD, SCE_HPHP_WORD, Keyword},
    {SCE_HPHP_NUMBER, SCE_HPHP_NUMBER, Number},
    {SCE_HPHP_VARIABLE, SCE_HPHP_VARIABLE, Attribute},
    {SCE_HPHP_COMMENT, SCE_HPHP_COMMENTLINE, Comment},
    {SCE_HPHP_HSTRING_VARIABLE, SCE_HPHP_HSTRING_VARIABLE, Attribute},
    {SCE_HPHP_OPERATOR, SCE_HPHP_OPERATOR, Server},
});

constexpr std::array kSheet = std::to_array<Run>({
    {SCE_CSS_TAG, SCE_CSS_UNKNOWN_PSEUDOCLASS, Tag},
    {SCE_CSS_IDENTIFIER, SCE_CSS_UNKNOWN_IDENTIFIER, Attribute},
    {SCE_CSS_VALUE, SCE_CSS_VALUE, Value},
    {SCE_CSS_COMMENT, SCE_CSS_COMMENT, Comment},
    {SCE_CSS_ID, SCE_CSS_ID, Tag},
    {SCE_CSS_IMPORTANT, SCE_CSS_DIRECTIVE, Keyword},
    {SCE_CSS_DOUBLESTRING, SCE_CSS_SINGLESTRING, Value},
    {SCE_CSS_IDENTIFIER2, SCE_CSS_IDENTIFIER2, Attribute},
    {SCE_CSS_ATTRIBUTE, SCE_CSS_ATTRIBUTE, Tag},
    {SCE_CSS_IDENTIFIER3, SCE_CSS_IDENTIFIER3, Attribute},
    {SCE_CSS_PSEUDOELEMENT, SCE_CSS_PSEUDOELEMENT, Tag},
    {SCE_CSS_EXTENDED_IDENTIFIER, SCE_CSS_EXTENDED_IDENTIFIER, Attribute},
    {SCE_CSS_EXTENDED_PSEUDOCLASS, SCE_CSS_EXTENDED_PSEUDOELEMENT, Tag},
    {SCE_CSS_GROUP_RULE, SCE_CSS_GROUP_RULE, Keyword},
    {SCE_CSS_VARIABLE, SCE_CSS_VARIABLE, Attribute},
});

template <std::size_t N>
void add(std::vector<LexerStyle>& all, const std::array<Run, N>& runs, int from = 0) {
  for (const Run& run : runs) {
    for (int style = run.first; style <= run.last; ++style) all.push_back({from + style, run.colour});
  }
}

}  // namespace

void setLexer(const Scintilla& control, ui::Language language) {
  ::Scintilla::ILexer5* const lexer = language == ui::Language::Html  ? makePageLexer()
                                      : language == ui::Language::Xml ? lmXML.Create()
                                      : language == ui::Language::Css ? lmCss.Create()
                                                                      : nullptr;
  control.call(SCI_SETILEXER, 0, reinterpret_cast<sptr_t>(lexer));
  // Without a lexer nobody ever reports the text as styled, and the control would ask without end.
  control.call(SCI_SETIDLESTYLING, lexer == nullptr ? SC_IDLESTYLING_NONE : SC_IDLESTYLING_ALL);
  if (language == ui::Language::Html) {
    control.call(SCI_SETPROPERTY, reinterpret_cast<uptr_t>("asp.default.language"),
                 "2");  // VBScript, as on servers
    control.call(SCI_SETKEYWORDS, kScriptList, kScriptWords);
    control.call(SCI_SETKEYWORDS, kBasicList, kBasicWords);
    control.call(SCI_SETKEYWORDS, kPhpList, kPhpWords);
  }
}

std::vector<LexerStyle> lexerStyles(ui::Language language) {
  std::vector<LexerStyle> all;
  if (language == ui::Language::Css) {
    add(all, kSheet);
  } else if (language != ui::Language::None) {
    add(all, kMarkup);
    add(all, kSheet, kSheetStyles);
  }
  return all;
}

}  // namespace win32
