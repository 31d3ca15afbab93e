// The language of small pictures, and all pictures written in it.
#include "ui/drawing.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "ui/icons/menu_icons.h"
#include "ui/icons/tool_drawings.h"

namespace {

using Kind = ui::Shape::Kind;

TEST(Drawing, WordsBecomeShapes) {
  const auto shapes = ui::shapesOf("b W 1.5 L 1 2 3.5 -4 r Q 1 2 3 4 T 8 9 10 5 H1 A 8 8 2 0 90 t D 3 4 5");
  ASSERT_EQ(shapes.size(), 5U);
  EXPECT_EQ(shapes[0].kind, Kind::Line);
  EXPECT_EQ(shapes[0].ink, ui::Ink::Blue);
  EXPECT_EQ(shapes[0].size, 1.5);
  ASSERT_EQ(shapes[0].points.size(), 2U);
  EXPECT_EQ(shapes[0].points[1].y, -4);
  EXPECT_EQ(shapes[1].kind, Kind::Filled);
  EXPECT_EQ(shapes[1].points.size(), 4U);
  EXPECT_EQ(shapes[2].text, "H1");
  EXPECT_TRUE(shapes[2].bold && shapes[2].underlined && !shapes[2].italic && !shapes[2].serif);
  EXPECT_NEAR(shapes[3].points.front().x, 10, 1e-9);  // from the right...
  EXPECT_NEAR(shapes[3].points.back().y, 10, 1e-9);   // ...down
  EXPECT_EQ(shapes[4].kind, Kind::Disc);
  EXPECT_EQ(shapes[4].ink, ui::Ink::Text);
  for (const char* bad : {"x", "L 1 2", "Q 1 2 3", "T 1 2 3 0", "b8", "I 9999", "L 1 2 3"}) {
    EXPECT_THROW(ui::shapesOf(bad), std::logic_error) << bad;
  }
}

void expectGood(std::string_view drawing) {
  const auto shapes = ui::shapesOf(drawing);
  EXPECT_FALSE(shapes.empty());
  for (const ui::Shape& shape : shapes) {
    for (const ui::DrawnPoint& point : shape.points) {
      EXPECT_TRUE(point.x >= 0 && point.x <= 16 && point.y >= 0 && point.y <= 16) << drawing;
    }
  }
}

TEST(Drawing, EveryPictureIsWellFormedAndInsideItsSquare) {
  for (const auto& icon : ui::menuIconDrawings()) {
    expectGood(icon.drawing);
    EXPECT_EQ(ui::menuIconDrawing(static_cast<int>(icon.icon)), icon.drawing);
  }
  for (int tool = 0; tool <= static_cast<int>(ui::ToolIcon::Table); ++tool) {
    expectGood(ui::toolDrawing(static_cast<ui::ToolIcon>(tool)));
  }
  for (int file = 0; file < ui::kFileIcons; ++file)
    expectGood(ui::fileDrawing(static_cast<ui::FileIcon>(file)));
  EXPECT_TRUE(ui::menuIconDrawing(0).empty());
  EXPECT_TRUE(ui::menuIconDrawing(999).empty());
}

}  // namespace
