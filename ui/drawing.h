// Small pictures as short texts of strokes and fills in a square of 16 units: one source for every density.
//
// A drawing is words with a space between. Small letters choose the ink, capitals draw with it:
//   t text   b blue   r red   g green   o orange   v violet   p paper   y pale yellow   c pale blue
//   k the picture's own, where it has one
//   L x y x y ...      a line through the points       C x y ...  the same, closed      F x y ...  filled
//   R left top right bottom   an outline               Q left top right bottom          filled
//   A x y radius from to      an arc, in degrees clockwise from the right
//   O x y radius  a ring      D x y radius  a disc     W width    of the lines from here on (first 1)
//   T x y height style text   letters around the point; style: sum of 1 bold, 2 italic, 4 underlined, 8 serif
//   I number                  the menu icon of that number, with the inks as they are there
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ui {

enum class Ink { Text, Blue, Red, Green, Orange, Violet, Paper, PaleYellow, PaleBlue, Own };

struct DrawnPoint {
  double x;
  double y;
};

struct Shape {
  enum class Kind { Line, Closed, Filled, Ring, Disc, Letters } kind;
  Ink ink;
  double size;  // line width; radius of a disc; height of letters
  std::vector<DrawnPoint> points;
  double radius = 0;      // of a ring
  std::string text = {};  // UTF-8
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  bool serif = false;
};

// Throws std::logic_error when the text is no drawing.
std::vector<Shape> shapesOf(std::string_view drawing);

}  // namespace ui
