// Draws on any device of GDI: a window's buffer, a printer.
#pragma once

#include <string>

#include "platform/win32/system/handles.h"
#include "ui/picture.h"

namespace win32 {

class GdiCanvas final : public ui::Canvas {
 public:
  // Not owned; `dpi` is the device's, `origin` the picture's corner in its pixels.
  GdiCanvas(HDC device, int dpi, POINT origin = {0, 0}) : device_(device), dpi_(dpi), origin_(origin) {
    SetBkMode(device_, TRANSPARENT);
  }

  void fill(const ui::Rect& area, base::Color color) override;
  void frame(const ui::Rect& area, base::Color color, int thickness) override;
  void line(ui::Point from, ui::Point to, base::Color color) override;
  void text(const ui::Rect& area, const ui::Text& words, base::Color color,
            const ui::TextStyle& style) override;
  ui::Size textSize(const ui::Text& words, const ui::TextStyle& style) override;
  void focusMark(const ui::Rect& area) override;
  base::Color systemColor(ui::SystemColor which) const override;

 private:
  POINT pixels(ui::Point point) const;
  RECT pixels(const ui::Rect& area) const;
  // The font for the style; the last one is kept ready.
  HFONT font(const ui::TextStyle& style);
  void lettersInPlace(const RECT& place, const std::wstring& wide, double advance);

  HDC device_;
  int dpi_;
  POINT origin_;
  ui::Font lastWanted_;
  int lastDpi_ = 0;
  UniqueFont last_;
};

}  // namespace win32
