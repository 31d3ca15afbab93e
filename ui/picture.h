// A control that the form draws itself, and what it draws with. All places and lengths are in 1/96 inch from
// the picture's top left corner: the platform scales them, so a form knows nothing of screens.
#pragma once

#include <functional>
#include <string>

#include "base/color.h"
#include "ui/code_view.h"
#include "ui/control.h"
#include "ui/error_gate.h"

namespace ui {

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  int right() const { return left + width; }   // one past the last
  int bottom() const { return top + height; }  // one past the last
  bool contains(Point point) const {
    return point.x >= left && point.x < right() && point.y >= top && point.y < bottom();
  }
  Rect inside(int margin) const {
    return {left + margin, top + margin, width - 2 * margin, height - 2 * margin};
  }
  bool operator==(const Rect&) const = default;
};

// Colours the user has set for all programs; high contrast changes them.
enum class SystemColor { Window, WindowText, Face, FaceText, Highlight, HighlightText, Shadow, GrayText };

struct TextStyle {
  enum class Align { Left, Center, Right } align = Align::Left;
  Font font = {};     // empty name: the interface font; size 0: its size
  bool wrap = false;  // over several lines from the top; else one line, in the middle, its end cut with "…"
  bool bytes = false;  // the words are byte text, for one of the code fonts
  double scale = 1;    // of the font's size
  double advance = 0;  // the place of every letter, in 1/96 inch (one line, left, not cut); 0: the font's own
};

class Canvas {
 public:
  virtual ~Canvas() = default;
  virtual void fill(const Rect& area, base::Color color) = 0;
  virtual void frame(const Rect& area, base::Color color, int thickness = 1) = 0;  // inside the area
  virtual void line(Point from, Point to, base::Color color) = 0;
  virtual void text(const Rect& area, const Text& words, base::Color color, const TextStyle& style = {}) = 0;
  // In one line; the height is that of the font.
  virtual Size textSize(const Text& words, const TextStyle& style = {}) = 0;
  virtual void focusMark(const Rect& area) = 0;  // as the system marks what has the keyboard
  virtual base::Color systemColor(SystemColor which) const = 0;
};

// The caption is not drawn: it tells screen readers (and scripts) what the picture shows now.
class PictureBox : public Control {
 public:
  ControlKind kind() const override { return ControlKind::PictureBox; }
  using Control::Control;
  // Draws the whole picture on the window's background.
  std::function<void(Canvas&)> paint;
  Event<Point> mouseDown;  // left button
  Event<Point> mouseMove;  // also outside the picture while the button is down
  Event<Point> mouseUp;
  Event<Point> otherMouseUp;  // a button that is neither the left nor the right one
  Event<Point> doubleClicked;
  Event<int> wheel;   // turned: lines to go down (up: less than 0)
  Event<> mouseLeft;  // the pointer is elsewhere
  // A virtual-key number pressed while the picture has the keyboard; true: used, else the dialog has it
  // (arrows then move the focus). Pictures without a handler take no focus.
  std::function<bool(int key)> keyDown;
  Event<> focusChanged;

  void repaint() { tell(Aspect::Value); }
  bool focused() const { return focused_; }
  void userFocus(bool focused) {
    focused_ = focused;
    focusChanged();
    repaint();
  }
  // Of the drawing area; set by the peer before the first painting and when it changes.
  Size size() const { return size_; }
  void userSize(Size size) { size_ = size; }

 private:
  bool focused_ = false;
  Size size_;
};

}  // namespace ui
