// The code view's looks: fonts, colours, margins, what stands for bytes without a letter.
#include <algorithm>
#include <array>
#include <string>

#include "platform/win32/code_view/code_view.h"
#include "platform/win32/code_view/lexers.h"
#include "platform/win32/drawing/fonts.h"

namespace win32 {
namespace {

// Styles of the F12 colours, behind those of all lexers.
constexpr int kRuleStyles = 200;
constexpr int kRuleColours = 4;

constexpr int kFewestDigits = 3;  // the margin does not move with every tenth line

}  // namespace

void CodeView::setFont(const ui::Font& font) {
  if (font == font_) return;
  font_ = font;
  if (!isUtf8()) applyFont();
}

void CodeView::setUtf8Font(const ui::Font& font) {
  ui::Font wanted = font;
  wanted.characterSet = ui::CharacterSet::Utf8;
  if (wanted == utf8Font_) return;
  utf8Font_ = wanted;
  if (isUtf8()) applyFont();
}

void CodeView::setLook(const ui::CodeLook& look) {
  if (look == look_) return;
  const bool wrapped = look.wordWrap != look_.wordWrap;
  const bool live = look.liveColours != look_.liveColours;
  if (wrapped) keepPlace();
  look_ = look;
  applyLook();
  if (live) applyLanguage();
  if (wrapped) restorePlace();
}

void CodeView::setStyle(int style, base::Color color) const {
  sci_.call(SCI_STYLESETFORE, static_cast<uptr_t>(style), static_cast<sptr_t>(color));
}

void CodeView::applyLook() {
  // The element colours carry their opacity in the highest byte.
  const auto element = [&](int which, ui::CodeColour as) {
    sci_.call(SCI_SETELEMENTCOLOUR, static_cast<uptr_t>(which),
              static_cast<sptr_t>(0xFF000000U | ui::codeColour(as, look_.dark)));
  };
  element(SC_ELEMENT_SELECTION_BACK, ui::CodeColour::Selection);
  element(SC_ELEMENT_SELECTION_INACTIVE_BACK, ui::CodeColour::Selection);
  element(SC_ELEMENT_WHITE_SPACE, ui::CodeColour::WhiteSpace);
  // Line ends are less to be seen than text.
  for (const char* end : {"\r", "\n", "\r\n"}) {
    const auto which = reinterpret_cast<uptr_t>(end);
    sci_.call(SCI_SETREPRESENTATIONAPPEARANCE, which, SC_REPRESENTATION_BLOB | SC_REPRESENTATION_COLOUR);
    sci_.call(SCI_SETREPRESENTATIONCOLOUR, which,
              static_cast<sptr_t>(0xFF000000U | ui::codeColour(ui::CodeColour::WhiteSpace, look_.dark)));
  }
  sci_.call(SCI_SETCARETFORE, look_.text);
  if (look_.currentLine) {
    element(SC_ELEMENT_CARET_LINE_BACK, ui::CodeColour::CurrentLine);
  } else {
    sci_.call(SCI_RESETELEMENTCOLOUR, SC_ELEMENT_CARET_LINE_BACK);
  }
  sci_.call(SCI_SETWRAPMODE, look_.wordWrap ? SC_WRAP_WORD : SC_WRAP_NONE);
  sci_.call(SCI_SETHSCROLLBAR, look_.wordWrap ? 0 : 1);
  sci_.call(SCI_SETVIEWWS, look_.whiteSpace ? SCWS_VISIBLEALWAYS : SCWS_INVISIBLE);
  sci_.call(SCI_SETVIEWEOL, look_.lineEnds ? 1 : 0);
  applyFont();
  applyMargin();
}

// The code page is the document's and goes with it; fonts and colours are the view's.
void CodeView::applyFont() {
  sci_.call(SCI_SETCODEPAGE, isUtf8() ? SC_CP_UTF8 : 0);
  applyStyles();
  applyRepresentations();
}

void CodeView::applyStyles() {
  const Styles wanted{currentFont(), look_, isUtf8(), document_->language};
  if (styles_ == wanted) return;  // setting them makes every line be measured anew
  styles_ = wanted;
  const ui::Font font = withDefaults(currentFont());
  sci_.call(SCI_STYLESETFONT, STYLE_DEFAULT, font.name.c_str());
  sci_.call(SCI_STYLESETSIZE, STYLE_DEFAULT, font.size);
  sci_.call(SCI_STYLESETBOLD, STYLE_DEFAULT, font.bold ? 1 : 0);
  sci_.call(SCI_STYLESETITALIC, STYLE_DEFAULT, font.italic ? 1 : 0);
  sci_.call(SCI_STYLESETCHARACTERSET, STYLE_DEFAULT,
            isUtf8() ? SC_CHARSET_DEFAULT : static_cast<sptr_t>(font.characterSet));
  sci_.call(SCI_STYLESETFORE, STYLE_DEFAULT, static_cast<sptr_t>(look_.text));
  sci_.call(SCI_STYLESETBACK, STYLE_DEFAULT, static_cast<sptr_t>(look_.back));
  sci_.call(SCI_STYLECLEARALL);
  const auto color = [this](ui::CodeColour which) { return ui::codeColour(which, look_.dark); };
  for (int i = 1; i < kRuleColours; ++i) setStyle(kRuleStyles + i, color(static_cast<ui::CodeColour>(i)));
  for (const LexerStyle& style : lexerStyles(document_->language)) setStyle(style.style, color(style.colour));
  setStyle(STYLE_LINENUMBER, color(ui::CodeColour::LineNumber));
  sci_.call(SCI_STYLESETBACK, STYLE_LINENUMBER, static_cast<sptr_t>(color(ui::CodeColour::LineNumberBack)));
  sci_.call(SCI_STYLESETCHARACTERSET, STYLE_LINENUMBER, SC_CHARSET_ANSI);
}

void CodeView::applyLanguage() {
  if (coloured_) return;
  setLexer(sci_, look_.liveColours ? document_->language : ui::Language::None);
  if (!look_.liveColours) sci_.call(SCI_CLEARDOCUMENTSTYLE);
  applyFont();
}

void CodeView::applyMargin() const {
  if (!look_.lineNumbers) {
    sci_.call(SCI_SETMARGINWIDTHN, 0, 0);
    return;
  }
  const std::string last = std::to_string(sci_.call(SCI_GETLINECOUNT));
  const std::string widest = "_" + std::string(std::max<std::size_t>(last.size(), kFewestDigits), '9');
  const sptr_t width = sci_.call(SCI_TEXTWIDTH, STYLE_LINENUMBER, widest.c_str()) + 4;
  if (sci_.call(SCI_GETMARGINWIDTHN, 0) != width) sci_.call(SCI_SETMARGINWIDTHN, 0, width);
}

// Bytes that the character set leaves out: else nothing at all would be drawn.
void CodeView::applyRepresentations() const {
  if (isUtf8()) return;
  static constexpr std::array<unsigned char, 5> kAnsi = {0x81, 0x8D, 0x8F, 0x90, 0x9D};
  static constexpr std::array<unsigned char, 1> kRussian = {0x98};
  const auto show = [this](unsigned char byte) {
    constexpr const char* kDigits = "0123456789ABCDEF";
    const std::array<char, 2> encoded = {static_cast<char>(byte), '\0'};
    const std::array<char, 4> name = {'x', kDigits[byte >> 4U], kDigits[byte & 15U], '\0'};
    sci_.call(SCI_SETREPRESENTATION, reinterpret_cast<uptr_t>(encoded.data()), name.data());
  };
  if (font_.characterSet == ui::CharacterSet::Russian) {
    for (const unsigned char byte : kRussian) show(byte);
  } else {
    for (const unsigned char byte : kAnsi) show(byte);
  }
}

void CodeView::showColours(const std::vector<ui::ColourRange>& ranges) {
  std::string styles(static_cast<std::size_t>(sci_.length()), '\0');
  for (const ui::ColourRange& range : ranges) {
    if (range.colour == 0) continue;
    std::fill_n(styles.begin() + range.start, range.length, static_cast<char>(kRuleStyles + range.colour));
  }
  coloured_ = true;
  setLexer(sci_, ui::Language::None);
  sci_.call(SCI_STARTSTYLING, 0);
  sci_.call(SCI_SETSTYLINGEX, styles.size(), styles.data());
}

void CodeView::resetColours() {
  if (!std::exchange(coloured_, false)) return;
  if (!look_.liveColours || document_->language == ui::Language::None) sci_.call(SCI_CLEARDOCUMENTSTYLE);
  applyLanguage();
}

}  // namespace win32
