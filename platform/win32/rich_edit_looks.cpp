// The code view's looks: font, colours, wrapping, formatted text.
#include <algorithm>

#include "platform/win32/fonts.h"
#include "platform/win32/rich_edit_silence.h"
#include "platform/win32/rtf_pieces.h"
#include "platform/win32/strings.h"
#include "ui/plain_rtf.h"

namespace win32 {
void RichEditCodeView::setFont(const ui::Font& font) {
  if (font == font_) return;
  font_ = font;
  applyFont(false);
}

// Without `colors` those of the characters stay.
void RichEditCodeView::applyFont(bool colors) {
  const ui::Font full = withDefaults(font_);
  CHARFORMAT2W format{};
  format.cbSize = sizeof format;
  format.dwMask = CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_ITALIC | CFM_CHARSET;
  format.dwEffects = (full.bold ? CFE_BOLD : 0U) | (full.italic ? CFE_ITALIC : 0U);
  format.yHeight = full.size * 20;
  format.bCharSet = static_cast<BYTE>(full.characterSet);
  const std::wstring name = wideFromUtf8(full.name).substr(0, LF_FACESIZE - 1);
  std::copy(name.begin(), name.end(), format.szFaceName);
  if (colors) {
    format.dwMask |= CFM_COLOR | CFM_BACKCOLOR | CFM_UNDERLINE | CFM_STRIKEOUT;
    format.dwEffects |= CFE_AUTOBACKCOLOR | (textColor_ ? 0U : CFE_AUTOCOLOR);
    format.crTextColor = textColor_.value_or(0);
  }
  const Silence silence(*this);
  send(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
  send(EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void RichEditCodeView::setBackColor(base::Color color) {
  backColor_ = color;
  send(EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(color));
}

void RichEditCodeView::setTextColor(base::Color color) {
  if (textColor_ == color) return;
  textColor_ = color;
  applyFont(true);
}

void RichEditCodeView::setWordWrap(bool wrap) {
  if (wrap == wrap_) return;
  wrap_ = wrap;
  applyWrap();
}

void RichEditCodeView::applyWrap() const {
  send(EM_SETTARGETDEVICE, 0, wrap_ ? 0 : 1);
  ShowScrollBar(edit_, SB_HORZ, wrap_ ? FALSE : TRUE);
}

std::string RichEditCodeView::rtf() const {
  return ui::plainRtf(text(), bytesOf(lineEnd_), withDefaults(font_).name);
}

void RichEditCodeView::setRtf(std::string_view rtf) {
  const int top = scrollTop();  // and with it what the user has typed
  const Range selected = selection();
  const std::string before = text_;
  if (breaks_.lineOf(length()) > kManyLines) makeControl();
  {
    const Silence silence(*this);
    setSelection({0, -1});
    send(EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(L""));
    for (const std::string& piece : rtfPieces(rtf)) {
      const int end = length();
      setSelection({end, end});
      streamIn(SF_RTF | SFF_SELECTION, piece.data(), piece.size());
    }
    setSelection(selected);
  }
  // The same text in another dress keeps what can be undone; another text begins anew.
  bytesFromControl(readControl(), lineEnd_, text_, breaks_);
  if (text_ != before) history_.clear();
  setScrollTop(top);
}

void RichEditCodeView::resetFormats() {
  const int top = scrollTop();
  const Range selected = selection();
  if (breaks_.lineOf(length()) > kManyLines) {
    makeControl();
    fill(text_);
    const Silence silence(*this);
    setSelection(selected);
  } else {
    applyFont(true);
  }
  setScrollTop(top);
}

}  // namespace win32
