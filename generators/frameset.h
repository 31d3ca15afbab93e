// Frameset pages: the nine layouts, what can be set of their frames, and the markup of all pages.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/color.h"

namespace generators {

inline constexpr int kLayouts = 9;
inline constexpr base::Color kNoFrameColor = 0xE0E0E0;  // of a frame: none is set
inline constexpr base::Color kNoPageColor = 0xFFFFFF;   // of the single page: none is set

// Texts are byte text, as they stand in the page.
struct Background {
  base::Color color = kNoPageColor;
  std::string image;  // empty: none
  bool fixed = false;
};

struct Frame {
  std::string source;  // in `src`, and the name of the generated page
  std::string name;
  std::string scrolling;
  Background background{kNoFrameColor, {}, false};
  bool resizable = false;
  std::string existingFile;  // UTF-8 path: this file is opened, no page is generated; empty: none
};

// How the frames stand in one another: the outer frameset's cells from left or top, of which one may be a
// frameset of two frames.
struct FrameShape {
  bool outerRows;  // as the layout begins; else columns
  int nested;      // cell that holds a frameset the other way; -1: none
};

struct FramesetDesign {
  int layout = -1;  // 0 to 8; -1: a single page
  std::vector<Frame> frames;
  std::string rows;
  std::string cols;
  std::string pageName = "Frames.HTML";
  bool border = true;
  std::int16_t spacing = 1;
  Background page;  // of the single page, and of the body behind the frameset
};

// A layout as it begins.
FramesetDesign newDesign(int layout);
FrameShape shapeOf(int layout);
// The outer frameset is cut in rows: where there are none, its columns stand for them.
bool cutInRows(const FramesetDesign& design);

struct HeaderText {
  bool on = false;
  std::string text;
};

// The frameset page, whose lines end in CR LF, and the page of one frame (or, without a layout, the single
// one), whose lines are joined by CR LF.
std::string framesetPage(const FramesetDesign& design, const HeaderText& header);
std::string framePage(const FramesetDesign& design, std::size_t frame, const HeaderText& header);
std::string singlePage(const FramesetDesign& design, const HeaderText& header);

}  // namespace generators
