// What the designer draws, and how mouse and keyboard move on it.
#include <algorithm>

#include "base/cp1252.h"
#include "generators/frame_geometry.h"
#include "generators/frmDesign.h"

namespace generators {
namespace {

constexpr int kCells = kLayouts + 1;  // the last one resets
constexpr int kCellsInRow = 5;

int frameAt(const std::vector<ui::Rect>& areas, ui::Point point) {
  for (std::size_t i = 0; i < areas.size(); ++i) {
    if (areas[i].contains(point)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

ui::Rect frmDesign::layoutCell(int cell) const {
  const int across = PSP.size().width / kCellsInRow;
  const int down = PSP.size().height / (kCells / kCellsInRow);
  return {cell % kCellsInRow * across, cell / kCellsInRow * down, across, down};
}

void frmDesign::paintLayouts(ui::Canvas& canvas) {
  const base::Color line = canvas.systemColor(ui::SystemColor::WindowText);
  for (int cell = 0; cell < kCells; ++cell) {
    const ui::Rect place = layoutCell(cell);
    const bool chosen = cell == design_.layout;
    if (chosen) canvas.fill(place.inside(1), canvas.systemColor(ui::SystemColor::Highlight));
    constexpr int kMargin = 6;
    const ui::Rect page = place.inside(kMargin);
    canvas.fill(page, canvas.systemColor(ui::SystemColor::Window));
    if (cell < kLayouts) {
      for (const ui::Rect& frame : frameAreas(newDesign(cell), page)) canvas.frame(frame, line);
    } else {
      canvas.frame(page, line);
      canvas.line({page.left, page.top}, {page.right(), page.bottom()}, line);
      canvas.line({page.left, page.bottom() - 1}, {page.right(), page.top - 1}, line);
    }
    if (PSP.focused() && cell == cell_) canvas.focusMark(place.inside(2));
  }
}

void frmDesign::PSP_Click(ui::Point point) {
  for (int cell = 0; cell < kCells; ++cell) {
    if (layoutCell(cell).contains(point)) return chooseCell(cell);
  }
}

bool frmDesign::PSP_KeyDown(int key) {
  int next = cell_;
  switch (key) {
    case ui::kKeyLeft:
      --next;
      break;
    case ui::kKeyRight:
      ++next;
      break;
    case ui::kKeyUp:
      next -= kCellsInRow;
      break;
    case ui::kKeyDown:
      next += kCellsInRow;
      break;
    case ui::kKeyHome:
      next = 0;
      break;
    case ui::kKeyEnd:
      next = kCells - 1;
      break;
    case ui::kKeySpace:
    case ui::kKeyReturn:
      chooseCell(cell_);
      return true;
    default:
      return false;
  }
  if (next >= 0 && next < kCells) cell_ = next;
  PSP.repaint();
  return true;
}

void frmDesign::paintFrame(ui::Canvas& canvas, const ui::Rect& area, const Background& background,
                           base::Color none, const std::string& name, const std::string& source,
                           bool selected) {
  const bool plain = background.color == none;
  canvas.fill(area, plain ? canvas.systemColor(ui::SystemColor::Window) : background.color);
  canvas.frame(area, canvas.systemColor(selected ? ui::SystemColor::Highlight : ui::SystemColor::WindowText),
               selected ? 3 : 1);
  // Black or white, whichever is read on the frame's own colour.
  const int light =
      (base::red(background.color) * 3 + base::green(background.color) * 6 + base::blue(background.color)) /
      10;
  const base::Color ink = plain ? canvas.systemColor(ui::SystemColor::WindowText)
                                : (light < 128 ? base::rgb(255, 255, 255) : base::rgb(0, 0, 0));
  ui::TextStyle style;
  style.align = ui::TextStyle::Align::Center;
  constexpr int kMargin = 3;
  const ui::Rect inner = area.inside(kMargin);
  const int line = canvas.textSize("X", style).height;
  style.font.bold = true;
  if (inner.height < 2 * line) {
    canvas.text(inner, base::nameFromStored(name), ink, style);
    return;
  }
  const int top = inner.top + inner.height / 2 - line;
  canvas.text({inner.left, top, inner.width, line}, base::nameFromStored(name), ink, style);
  style.font.bold = false;
  canvas.text({inner.left, top + line, inner.width, line}, base::nameFromStored(source), ink, style);
}

void frmDesign::paintPreview(ui::Canvas& canvas) {
  const auto areas = frameAreas(design_, previewArea());
  if (design_.layout < 0) {
    paintFrame(canvas, areas[0], design_.page, kNoPageColor, "New Document", "", false);
  }
  for (std::size_t i = 0; i < design_.frames.size(); ++i) {
    const Frame& frame = design_.frames[i];
    paintFrame(canvas, areas[i], frame.background, kNoFrameColor, frame.name, frame.source,
               static_cast<int>(i) == selected_);
  }
  if (Pfram.focused()) {
    canvas.focusMark((selected_ >= 0 ? areas[static_cast<std::size_t>(selected_)] : previewArea()).inside(4));
  }
}

void frmDesign::Pfram_Click(ui::Point point) {
  if (design_.layout >= 0) selectFrame(frameAt(frameAreas(design_, previewArea()), point));
}

bool frmDesign::Pfram_KeyDown(int key) {
  const int frames = static_cast<int>(design_.frames.size());
  if (frames == 0) return false;
  switch (key) {
    case ui::kKeyLeft:
    case ui::kKeyUp:
      selectFrame(std::max(selected_ - 1, 0));
      return true;
    case ui::kKeyRight:
    case ui::kKeyDown:
      selectFrame(std::min(selected_ + 1, frames - 1));
      return true;
    case ui::kKeyHome:
      selectFrame(0);
      return true;
    case ui::kKeyEnd:
      selectFrame(frames - 1);
      return true;
    case ui::kKeySpace:
    case ui::kKeyReturn:
      if (selected_ < 0) selectFrame(0);
      Tname.setFocus();
      return true;
    default:
      return false;
  }
}

}  // namespace generators
