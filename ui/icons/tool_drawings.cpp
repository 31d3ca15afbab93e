#include "ui/icons/tool_drawings.h"

#include <iterator>

namespace ui {
namespace {

struct ToolDrawing {
  ToolIcon icon;
  std::string_view drawing;
};

// What menus show too is taken from there ("I").
constexpr ToolDrawing kTools[] = {
    {ToolIcon::Bold, "t T 8 8 14 9 B"},
    {ToolIcon::Italic, "t T 8 8 14 10 I"},
    {ToolIcon::Underline, "t T 8 7.5 13 12 U"},
    {ToolIcon::FontFace, "I 78"},
    {ToolIcon::FontColor, "I 88"},
    {ToolIcon::NoBreakSpace, "t W 1.5 L 2 8 2 12 14 12 14 8"},
    {ToolIcon::LineBreak, "t T 7 5.5 8 1 BR b L 14.5 2.5 14.5 12.5 5 12.5 F 1.5 12.5 5.5 10 5.5 15"},
    {ToolIcon::Paragraph, "b T 8 8 14 1 P"},
    {ToolIcon::ParagraphAligned, "I 74"},
    {ToolIcon::BulletList, "I 66"},
    {ToolIcon::NumberedList, "I 67"},
    {ToolIcon::Rule, "t L 3.5 3.5 12.5 3.5 L 3.5 12.5 12.5 12.5 b Q 1 7 15 9"},
    {ToolIcon::Comment, "g T 8 6 11 1 !-- L 2.5 13.5 13.5 13.5"},
    {ToolIcon::EditTag, "I 72"},
    {ToolIcon::Center, "t L 1.5 3.5 14.5 3.5 L 4.5 6.5 11.5 6.5 L 1.5 9.5 14.5 9.5 L 4.5 12.5 11.5 12.5"},
    {ToolIcon::Quote, "b T 8 12 22 9 \u201D"},
    {ToolIcon::Preformatted, "t T 8 8 7 1 PRE"},
    {ToolIcon::Heading1, "b T 8 8 11 1 H1"},
    {ToolIcon::Heading2, "b T 8 8 11 1 H2"},
    {ToolIcon::FirstColor, "t T 8 5.5 11 1 1 k Q 1 12 15 15.5"},
    {ToolIcon::SecondColor, "t T 8 5.5 11 1 2 k Q 1 12 15 15.5"},
    {ToolIcon::Image, "I 62"},
    {ToolIcon::Link, "I 64"},
    {ToolIcon::Anchor, "I 65"},
    {ToolIcon::Frame, "I 60"},
    {ToolIcon::Entity, "t T 8 8 16 0 ©"},
    {ToolIcon::TagList, "I 71"},
    {ToolIcon::Table, "I 57"},
    {ToolIcon::NewPage, "I 1"},
    {ToolIcon::Open, "I 3"},
    {ToolIcon::Save, "I 4"},
    {ToolIcon::Undo, "I 12"},
    {ToolIcon::Redo, "I 13"},
    {ToolIcon::More, "t W 1.5 L 4 4 8 8 4 12 L 8 4 12 8 8 12"},
};

// A sheet with one corner turned down, and on it what tells its kind.
#define SHEET \
  "p F 2 1 10 1 14 5 14 15 2 15 t C 2.5 1.5 9.5 1.5 13.5 5.5 13.5 14.5 2.5 14.5 L 9.5 1.5 9.5 5.5 13.5 5.5 "
// NOLINTBEGIN(bugprone-suspicious-missing-comma): the sheet and what is on it are one drawing.
constexpr std::string_view kFiles[kFileIcons] = {
    SHEET "b T 8 10 9 1 H",
    SHEET "v T 8 10 9 1 #",
    SHEET "o T 8 10 9 1 J",
    SHEET "r T 8 10 9 1 A",
    SHEET "g T 8 10 9 1 X",
    SHEET "v T 8 10 9 1 P",
    SHEET "g L 3.5 13 6 8 8 11 10 9 12.5 13",
    SHEET "o L 6 13 6 7 11 6 11 12 D 5 13 1.5 D 10 12 1.5",
    SHEET "t T 8 10 9 1 T",
    SHEET "o T 8 10 9 1 i",
    SHEET "r T 8 10 9 1 W",
    SHEET,
};
// NOLINTEND(bugprone-suspicious-missing-comma)
#undef SHEET

}  // namespace

std::string_view toolDrawing(ToolIcon icon) {
  for (const ToolDrawing& tool : kTools) {
    if (tool.icon == icon) return tool.drawing;
  }
  return {};
}

std::string_view fileDrawing(FileIcon icon) {
  return kFiles[static_cast<std::size_t>(icon)];
}

}  // namespace ui
