// A canvas that remembers what was drawn on it.
#pragma once

#include <vector>

#include "ui/picture.h"

namespace tests {

class FakeCanvas : public ui::Canvas {
 public:
  struct Area {
    ui::Rect place;
    base::Color color;
  };
  struct Words {
    ui::Rect place;
    std::string text;  // as the user reads it; byte text as it is
    base::Color color;
    ui::Font font;
  };
  std::vector<Area> filled, framed;
  std::vector<Words> words;

  void fill(const ui::Rect& area, base::Color color) override { filled.push_back({area, color}); }
  void frame(const ui::Rect& area, base::Color color, int) override { framed.push_back({area, color}); }
  void line(ui::Point, ui::Point, base::Color) override {}
  void text(const ui::Rect& area, const ui::Text& text, base::Color color,
            const ui::TextStyle& style) override {
    words.push_back({area, ui::display(text), color, style.font});
  }
  ui::Size textSize(const ui::Text& text, const ui::TextStyle&) override {
    constexpr ui::Size kLetter{8, 15};
    return {static_cast<int>(ui::display(text).size()) * kLetter.width, kLetter.height};
  }
  void focusMark(const ui::Rect&) override {}
  base::Color systemColor(ui::SystemColor which) const override {
    return 0x01000000U + static_cast<base::Color>(which);  // no colour of a page
  }

  // What is seen at a place.
  base::Color at(ui::Point point) const {
    base::Color color = 0xFFFFFFFF;
    for (const Area& area : filled) {
      if (area.place.contains(point)) color = area.color;
    }
    return color;
  }
};

}  // namespace tests
