// A strip of buttons as data. The platform draws them and reports the chosen command id.
#pragma once

#include "base/color.h"
#include "ui/text.h"

namespace ui {

// What is drawn on a button; the platform has one drawing for each.
enum class ToolIcon {
  Bold,
  Italic,
  Underline,
  FontFace,
  FontColor,
  NoBreakSpace,
  LineBreak,
  Paragraph,
  ParagraphAligned,
  BulletList,
  NumberedList,
  Rule,
  Comment,
  EditTag,
  Center,
  Quote,
  Preformatted,
  Heading1,
  Heading2,
  FirstColor,
  SecondColor,
  Image,
  Link,
  Anchor,
  Frame,
  Entity,
  TagList,
  Table,
  NewPage,
  Open,
  Save,
  Undo,
  Redo,
  More,  // on the chevron at the end
};

struct ToolBarButton {
  int command = 0;  // 0: a gap between groups
  ToolIcon icon = ToolIcon::More;
  Text hint = {};         // tool tip, and the name for screen readers
  base::Color color = 0;  // of the ink that the drawing leaves to the button
  bool enabled = true;
};

}  // namespace ui
