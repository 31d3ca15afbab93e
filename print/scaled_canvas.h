// Another canvas in another scale: what is drawn here at 1/96 inch comes out larger or smaller there.
#pragma once

#include <algorithm>
#include <cmath>

#include "ui/picture.h"

namespace print {

class ScaledCanvas final : public ui::Canvas {
 public:
  // `origin` is the place of this canvas' corner on `under`, which must live as long.
  ScaledCanvas(ui::Canvas& under, double scale, ui::Point origin)
      : under_(under), scale_(scale), origin_(origin) {}

  void fill(const ui::Rect& area, base::Color color) override { under_.fill(there(area), color); }
  void frame(const ui::Rect& area, base::Color color, int thickness) override {
    under_.frame(there(area), color, std::max(1, scaled(thickness)));
  }
  void line(ui::Point from, ui::Point to, base::Color color) override {
    under_.line(there(from), there(to), color);
  }
  void text(const ui::Rect& area, const ui::Text& words, base::Color color,
            const ui::TextStyle& style) override {
    under_.text(there(area), words, color, there(style));
  }
  ui::Size textSize(const ui::Text& words, const ui::TextStyle& style) override {
    const ui::Size size = under_.textSize(words, there(style));
    return {static_cast<int>(std::ceil(size.width / scale_)),
            static_cast<int>(std::ceil(size.height / scale_))};
  }
  void focusMark(const ui::Rect& area) override { under_.focusMark(there(area)); }
  base::Color systemColor(ui::SystemColor which) const override { return under_.systemColor(which); }

 private:
  int scaled(int length) const { return static_cast<int>(std::lround(length * scale_)); }
  ui::Point there(ui::Point point) const {
    return {origin_.x + scaled(point.x), origin_.y + scaled(point.y)};
  }
  // Edge by edge, so that areas that touch still touch.
  ui::Rect there(const ui::Rect& area) const {
    const ui::Point from = there(ui::Point{area.left, area.top});
    const ui::Point to = there(ui::Point{area.right(), area.bottom()});
    return {from.x, from.y, to.x - from.x, to.y - from.y};
  }
  ui::TextStyle there(ui::TextStyle style) const {
    style.scale *= scale_;
    style.advance *= scale_;
    return style;
  }

  ui::Canvas& under_;
  double scale_;
  ui::Point origin_;
};

}  // namespace print
