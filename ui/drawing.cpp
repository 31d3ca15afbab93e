#include "ui/drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <optional>
#include <stdexcept>

#include "ui/icons/menu_icons.h"

namespace ui {
namespace {

constexpr std::string_view kInks = "tbrgovpyck";  // in the order of Ink

class Reader {
 public:
  Reader(std::string_view drawing, int depth) : rest_(drawing), depth_(depth) {}

  std::vector<Shape> read() {
    for (std::string word = next(); !word.empty(); word = next()) {
      if (word.size() != 1) fail(word);
      const std::size_t ink = kInks.find(word[0]);
      if (ink != std::string_view::npos) {
        ink_ = static_cast<Ink>(ink);
      } else {
        draw(word[0]);
      }
    }
    return std::move(shapes_);
  }

 private:
  [[noreturn]] static void fail(const std::string& what) { throw std::logic_error("no drawing: " + what); }

  void skipBlanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(" \n"), rest_.size())); }
  // The next word; empty at the end.
  std::string next() {
    skipBlanks();
    std::string word(rest_.substr(0, rest_.find_first_of(" \n")));
    rest_.remove_prefix(word.size());
    return word;
  }
  double number() {
    const std::string word = next();
    char* end = nullptr;
    const double value = std::strtod(word.c_str(), &end);
    if (word.empty() || *end != '\0') fail("a number is missing");
    return value;
  }
  DrawnPoint point() {
    const double x = number();
    return {x, number()};
  }
  // As many as follow.
  std::vector<DrawnPoint> points() {
    std::vector<DrawnPoint> all;
    while (nextIsNumber()) all.push_back(point());
    if (all.size() < 2) fail("a line has two points");
    return all;
  }
  bool nextIsNumber() {
    skipBlanks();
    return !rest_.empty() && (rest_[0] == '-' || (rest_[0] >= '0' && rest_[0] <= '9'));
  }
  std::vector<DrawnPoint> rectangle() {
    const DrawnPoint a = point();
    const DrawnPoint b = point();
    return {a, {b.x, a.y}, b, {a.x, b.y}};
  }
  std::vector<DrawnPoint> arc() {
    const DrawnPoint middle = point();
    const double radius = number();
    const double from = number();
    const double to = number();
    const int steps = static_cast<int>(std::abs(to - from) / 10) + 1;
    std::vector<DrawnPoint> all;
    for (int i = 0; i <= steps; ++i) {
      const double angle = (from + (to - from) * i / steps) * std::numbers::pi / 180;
      all.push_back({middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)});
    }
    return all;
  }

  Shape& add(Shape::Kind kind, double size, std::vector<DrawnPoint> points) {
    Shape shape{kind, ink_, size, std::move(points)};
    shapes_.push_back(std::move(shape));
    return shapes_.back();
  }

  void draw(char operation) {
    using Kind = Shape::Kind;
    switch (operation) {
      case 'W':
        width_ = number();
        break;
      case 'L':
        add(Kind::Line, width_, points());
        break;
      case 'C':
        add(Kind::Closed, width_, points());
        break;
      case 'F':
        add(Kind::Filled, 0, points());
        break;
      case 'R':
        add(Kind::Closed, width_, rectangle());
        break;
      case 'Q':
        add(Kind::Filled, 0, rectangle());
        break;
      case 'A':
        add(Kind::Line, width_, arc());
        break;
      case 'O':
        add(Kind::Ring, width_, {point()}).radius = number();
        break;
      case 'D': {
        const DrawnPoint middle = point();
        add(Kind::Disc, number(), {middle});
        break;
      }
      case 'T':
        letters();
        break;
      case 'I':
        include();
        break;
      default:
        fail(std::string(1, operation));
    }
  }

  void letters() {
    const DrawnPoint middle = point();
    Shape& shape = add(Shape::Kind::Letters, number(), {middle});
    const int style = static_cast<int>(number());
    shape.bold = (style & 1) != 0;
    shape.italic = (style & 2) != 0;
    shape.underlined = (style & 4) != 0;
    shape.serif = (style & 8) != 0;
    shape.text = next();
    if (shape.text.empty()) fail("letters are missing");
  }

  void include() {
    const std::string_view part = menuIconDrawing(static_cast<int>(number()));
    if (part.empty() || depth_ > 3) fail("no such part");
    for (Shape& shape : Reader(part, depth_ + 1).read()) shapes_.push_back(std::move(shape));
  }

  std::string_view rest_;
  int depth_;
  Ink ink_ = Ink::Text;
  double width_ = 1;
  std::vector<Shape> shapes_;
};

}  // namespace

std::vector<Shape> shapesOf(std::string_view drawing) {
  return Reader(drawing, 0).read();
}

}  // namespace ui
