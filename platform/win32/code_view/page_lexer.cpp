#include "platform/win32/code_view/page_lexer.h"

#include <LexerModule.h>
#include <SciLexer.h>
// LexerModule.h first
#include <DefaultLexer.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

extern Lexilla::LexerModule lmHTML;
extern Lexilla::LexerModule lmCss;

namespace win32 {
namespace {

using Position = Sci_Position;

// What a server runs stands in style sheets too, and stays as it is.
bool isServer(int style) {
  const auto within = [style](int first, int last) { return style >= first && style <= last; };
  return style == SCE_H_ASP || style == SCE_H_ASPAT || style == SCE_H_QUESTION || style == SCE_H_XCCOMMENT ||
         style == SCE_HPHP_COMPLEX_VARIABLE || within(SCE_HJA_START, SCE_HJA_REGEX) ||
         within(SCE_HBA_START, SCE_HBA_STRINGEOL) || within(SCE_HPA_START, SCE_HPA_IDENTIFIER) ||
         within(SCE_HPHP_DEFAULT, SCE_HPHP_OPERATOR);
}
bool isSheet(int style) {
  return style >= kSheetStyles && style <= kSheetStyles + SCE_CSS_VARIABLE;
}
bool isTag(int style) {
  return (style >= SCE_H_TAG && style <= SCE_H_OTHER) || style == SCE_H_TAGEND || style == SCE_H_VALUE;
}

int styleAt(const ::Scintilla::IDocument& document, Position at) {
  return static_cast<unsigned char>(document.StyleAt(at));
}

// The document as the lexer of CSS sees it: with its own numbers of styles, and without the line states,
// which are those of HTML.
class SheetDocument final : public ::Scintilla::IDocument {
 public:
  explicit SheetDocument(::Scintilla::IDocument& page) : page_(page) {}

  int SCI_METHOD Version() const override { return page_.Version(); }
  void SCI_METHOD SetErrorStatus(int status) override { page_.SetErrorStatus(status); }
  Position SCI_METHOD Length() const override { return page_.Length(); }
  void SCI_METHOD GetCharRange(char* buffer, Position position, Position length) const override {
    page_.GetCharRange(buffer, position, length);
  }
  char SCI_METHOD StyleAt(Position position) const override {
    const int style = styleAt(page_, position);
    return static_cast<char>(isSheet(style) ? style - kSheetStyles : SCE_CSS_DEFAULT);
  }
  Position SCI_METHOD LineFromPosition(Position position) const override {
    return page_.LineFromPosition(position);
  }
  Position SCI_METHOD LineStart(Position line) const override { return page_.LineStart(line); }
  int SCI_METHOD GetLevel(Position line) const override { return page_.GetLevel(line); }
  int SCI_METHOD SetLevel(Position, int level) override { return level; }
  int SCI_METHOD GetLineState(Position) const override { return 0; }
  int SCI_METHOD SetLineState(Position, int state) override { return state; }
  void SCI_METHOD StartStyling(Position position) override { at_ = position; }
  bool SCI_METHOD SetStyleFor(Position length, char style) override {
    const std::string styles(static_cast<std::size_t>(length), style);
    return SetStyles(length, styles.data());
  }
  bool SCI_METHOD SetStyles(Position length, const char* styles) override {
    std::string own(static_cast<std::size_t>(length), '\0');
    for (Position i = 0; i < length; ++i) {
      const int was = styleAt(page_, at_ + i);
      own[static_cast<std::size_t>(i)] = static_cast<char>(isServer(was) ? was : styles[i] + kSheetStyles);
    }
    page_.StartStyling(at_);
    at_ += length;
    return page_.SetStyles(length, own.data());
  }
  void SCI_METHOD DecorationSetCurrentIndicator(int indicator) override {
    page_.DecorationSetCurrentIndicator(indicator);
  }
  void SCI_METHOD DecorationFillRange(Position position, int value, Position length) override {
    page_.DecorationFillRange(position, value, length);
  }
  void SCI_METHOD ChangeLexerState(Position start, Position end) override {
    page_.ChangeLexerState(start, end);
  }
  int SCI_METHOD CodePage() const override { return page_.CodePage(); }
  bool SCI_METHOD IsDBCSLeadByte(char ch) const override { return page_.IsDBCSLeadByte(ch); }
  const char* SCI_METHOD BufferPointer() override { return page_.BufferPointer(); }
  int SCI_METHOD GetLineIndentation(Position line) override { return page_.GetLineIndentation(line); }
  Position SCI_METHOD LineEnd(Position line) const override { return page_.LineEnd(line); }
  Position SCI_METHOD GetRelativePosition(Position start, Position characters) const override {
    return page_.GetRelativePosition(start, characters);
  }
  int SCI_METHOD GetCharacterAndWidth(Position position, Position* width) const override {
    return page_.GetCharacterAndWidth(position, width);
  }

 private:
  ::Scintilla::IDocument& page_;
  Position at_ = 0;
};

class PageLexer final : public Lexilla::DefaultLexer {
 public:
  PageLexer() : DefaultLexer("page", SCLEX_HTML), html_(lmHTML.Create()), sheet_(lmCss.Create()) {}
  ~PageLexer() override {
    html_->Release();
    sheet_->Release();
  }
  PageLexer(const PageLexer&) = delete;
  PageLexer& operator=(const PageLexer&) = delete;

  Position SCI_METHOD WordListSet(int list, const char* words) override {
    return html_->WordListSet(list, words);
  }

  const char* SCI_METHOD PropertyGet(const char* key) override { return html_->PropertyGet(key); }
  Position SCI_METHOD PropertySet(const char* key, const char* value) override {
    return html_->PropertySet(key, value);
  }

  void SCI_METHOD Lex(Sci_PositionU start, Position length, int style,
                      ::Scintilla::IDocument* document) override {
    const auto from = static_cast<Position>(start);
    // The lexer of HTML sees plain text where a style sheet was.
    const int before = static_cast<unsigned char>(style);
    html_->Lex(start, length, isSheet(before) ? SCE_H_DEFAULT : style, document);
    lexSheets(from, from + length, *document);
  }

 private:
  void lexSheets(Position from, Position end, ::Scintilla::IDocument& document) {
    Position before = from;  // behind what tells where we are
    while (before > 0 && isServer(styleAt(document, before - 1))) --before;
    bool inside = before > 0 && isSheet(styleAt(document, before - 1));
    int state = inside ? styleAt(document, before - 1) - kSheetStyles : SCE_CSS_DEFAULT;
    if (!inside) {  // the tag may have begun before
      while (from > 0 && isTag(styleAt(document, from - 1))) --from;
    }
    std::string text(static_cast<std::size_t>(end - from), '\0');
    document.GetCharRange(text.data(), from, end - from);
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c; });

    for (std::size_t at = 0; at < text.size(); inside = !inside) {
      if (inside) {
        const std::size_t close = std::min(text.find("</style", at), text.size());
        SheetDocument sheet(document);
        const auto size = static_cast<Position>(close - at);
        if (size > 0) sheet_->Lex(static_cast<Sci_PositionU>(from) + at, size, state, &sheet);
        state = SCE_CSS_DEFAULT;
        at = close;
      } else {
        at = behindStyleTag(text, at, from, document);
      }
    }
  }

  // Where a style sheet begins; the text's length where none does.
  static std::size_t behindStyleTag(std::string_view text, std::size_t at, Position from,
                                    const ::Scintilla::IDocument& document) {
    constexpr std::string_view kTag = "<style";
    const auto style = [&](std::size_t place) {
      return styleAt(document, from + static_cast<Position>(place));
    };
    for (at = text.find(kTag, at); at != std::string_view::npos; at = text.find(kTag, at + 1)) {
      const std::size_t behind = at + kTag.size();
      if (!isTag(style(at)) || (behind < text.size() && text[behind] >= 'a' && text[behind] <= 'z')) continue;
      std::size_t close = text.find('>', behind);
      while (close != std::string_view::npos && style(close) != SCE_H_TAG &&
             style(close) != SCE_H_TAGUNKNOWN) {
        close = text.find('>', close + 1);
      }
      return close == std::string_view::npos ? text.size() : close + 1;
    }
    return text.size();
  }

  ::Scintilla::ILexer5* html_;
  ::Scintilla::ILexer5* sheet_;
};

}  // namespace

::Scintilla::ILexer5* makePageLexer() {
  return new PageLexer;
}

}  // namespace win32
