#include "platform/win32/drawing/gdi_canvas.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/strings.h"

namespace win32 {
namespace {

// One object of the device, put back at the end of the block.
class Chosen {
 public:
  Chosen(HDC device, HGDIOBJ object) : device_(device), before_(SelectObject(device, object)) {}
  Chosen(const Chosen&) = delete;
  Chosen& operator=(const Chosen&) = delete;
  ~Chosen() { SelectObject(device_, before_); }

 private:
  HDC device_;
  HGDIOBJ before_;
};

std::wstring wideWords(const ui::Text& words, const ui::TextStyle& style) {
  if (!style.bytes) return wideFromText(words);
  const bool utf8 = style.font.characterSet == ui::CharacterSet::Utf8;
  return utf8 ? wideFromUtf8Bytes(words.bytes) : wideFromBytes(words.bytes);
}

void fillPixels(HDC device, const RECT& area, base::Color color) {
  const UniqueBrush brush(CreateSolidBrush(color));
  FillRect(device, &area, brush.get());
}

}  // namespace

POINT GdiCanvas::pixels(ui::Point point) const {
  return {origin_.x + scaled(point.x, dpi_), origin_.y + scaled(point.y, dpi_)};
}

// Edge by edge, so that areas that touch leave no gap at any density.
RECT GdiCanvas::pixels(const ui::Rect& area) const {
  const POINT from = pixels(ui::Point{area.left, area.top});
  const POINT to = pixels(ui::Point{area.right(), area.bottom()});
  return {from.x, from.y, to.x, to.y};
}

void GdiCanvas::fill(const ui::Rect& area, base::Color color) {
  fillPixels(device_, pixels(area), color);
}

void GdiCanvas::frame(const ui::Rect& area, base::Color color, int thickness) {
  const RECT all = pixels(area);
  const LONG width = std::max(1, scaled(thickness, dpi_));
  fillPixels(device_, {all.left, all.top, all.right, std::min(all.top + width, all.bottom)}, color);
  fillPixels(device_, {all.left, std::max(all.bottom - width, all.top), all.right, all.bottom}, color);
  fillPixels(device_, {all.left, all.top, std::min(all.left + width, all.right), all.bottom}, color);
  fillPixels(device_, {std::max(all.right - width, all.left), all.top, all.right, all.bottom}, color);
}

void GdiCanvas::line(ui::Point from, ui::Point to, base::Color color) {
  const Unique<HPEN, closeObject> pen(CreatePen(PS_SOLID, std::max(1, scaled(1, dpi_)), color));
  const Chosen chosen(device_, pen.get());
  const POINT start = pixels(from);
  const POINT end = pixels(to);
  MoveToEx(device_, start.x, start.y, nullptr);
  LineTo(device_, end.x, end.y);
}

HFONT GdiCanvas::font(const ui::TextStyle& style) {
  const int dpi = std::max(1, static_cast<int>(std::lround(dpi_ * style.scale)));
  if (!last_ || !(lastWanted_ == style.font) || lastDpi_ != dpi) {
    last_ = pictureFont(style.font, dpi);
    lastWanted_ = style.font;
    lastDpi_ = dpi;
  }
  return last_.get();
}

// From the sum and not letter by letter, so that no rounding adds up.
void GdiCanvas::lettersInPlace(const RECT& place, const std::wstring& wide, double advance) {
  TEXTMETRICW metrics;
  GetTextMetricsW(device_, &metrics);
  const auto pixel = [&](std::size_t letters) {
    return static_cast<int>(std::lround(static_cast<double>(letters) * advance * dpi_ / kBaseDpi));
  };
  std::vector<int> widths;
  std::size_t letters = 0;
  for (const wchar_t unit : wide) {
    // The second half of a letter stands in the first one's place.
    const std::size_t before = letters;
    if (!IS_LOW_SURROGATE(unit)) ++letters;
    widths.push_back(pixel(letters) - pixel(before));
  }
  const LONG top = place.top + (place.bottom - place.top - metrics.tmHeight) / 2;
  ExtTextOutW(device_, place.left, top, 0, nullptr, wide.c_str(), static_cast<UINT>(wide.size()),
              widths.data());
}

void GdiCanvas::text(const ui::Rect& area, const ui::Text& words, base::Color color,
                     const ui::TextStyle& style) {
  const Chosen chosen(device_, font(style));
  SetTextColor(device_, color);
  UINT how = DT_NOPREFIX | (style.wrap ? DT_WORDBREAK : DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS);
  if (style.align == ui::TextStyle::Align::Center) how |= DT_CENTER;
  if (style.align == ui::TextStyle::Align::Right) how |= DT_RIGHT;
  const std::wstring wide = wideWords(words, style);
  RECT place = pixels(area);
  if (style.advance > 0) return lettersInPlace(place, wide, style.advance);
  DrawTextW(device_, wide.c_str(), static_cast<int>(wide.size()), &place, how);
}

ui::Size GdiCanvas::textSize(const ui::Text& words, const ui::TextStyle& style) {
  const Chosen chosen(device_, font(style));
  const std::wstring wide = wideWords(words, style);
  SIZE size{};
  GetTextExtentPoint32W(device_, wide.c_str(), static_cast<int>(wide.size()), &size);
  // Rounded up: a text must fit into the size that was told for it.
  const auto units = [this](LONG count) {
    return static_cast<int>((static_cast<long long>(count) * kBaseDpi + dpi_ - 1) / dpi_);
  };
  TEXTMETRICW metrics;
  GetTextMetricsW(device_, &metrics);
  return {units(size.cx), units(metrics.tmHeight)};
}

void GdiCanvas::focusMark(const ui::Rect& area) {
  const RECT place = pixels(area);
  SetTextColor(device_, GetSysColor(COLOR_WINDOWTEXT));
  SetBkColor(device_, GetSysColor(COLOR_WINDOW));
  DrawFocusRect(device_, &place);
}

base::Color GdiCanvas::systemColor(ui::SystemColor which) const {
  switch (which) {
    case ui::SystemColor::Window:
      return GetSysColor(COLOR_WINDOW);
    case ui::SystemColor::WindowText:
      return GetSysColor(COLOR_WINDOWTEXT);
    case ui::SystemColor::Face:
      return GetSysColor(COLOR_BTNFACE);
    case ui::SystemColor::FaceText:
      return GetSysColor(COLOR_BTNTEXT);
    case ui::SystemColor::Highlight:
      return GetSysColor(COLOR_HIGHLIGHT);
    case ui::SystemColor::HighlightText:
      return GetSysColor(COLOR_HIGHLIGHTTEXT);
    case ui::SystemColor::Shadow:
      return GetSysColor(COLOR_BTNSHADOW);
    case ui::SystemColor::GrayText:
      return GetSysColor(COLOR_GRAYTEXT);
  }
  return 0;
}

}  // namespace win32
