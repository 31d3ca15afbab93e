#include "platform/win32/window/menu_drawing.h"

#include <algorithm>
#include <map>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/drawing/vector_icons.h"
#include "ui/icons/menu_icons.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr int kIcon = 16;
constexpr int kGutter = 28;     // for icons and check marks
constexpr int kRightEdge = 20;  // for the arrow of a submenu
constexpr int kShortcutGap = 24;
constexpr int kLinePadding = 7;
constexpr int kIconPadding = 6;
constexpr int kSeparatorHeight = 9;
constexpr int kSmallMark = 10;  // of a checked item that has an icon

std::map<int, UniqueFont>& fonts() {
  static std::map<int, UniqueFont> made;  // of the densities met so far
  return made;
}

HFONT fontFor(int dpi) {
  UniqueFont& font = fonts()[dpi];
  if (!font) font = menuFont(dpi);
  return font.get();
}

SIZE measured(HDC canvas, const std::wstring& text) {
  RECT box{};
  DrawTextW(canvas, text.c_str(), -1, &box, DT_CALCRECT | DT_SINGLELINE);
  return {box.right, box.bottom};
}

void drawMark(HDC canvas, bool radio, POINT at, int size, const IconColors& colors) {
  const ui::MenuIcon mark = radio ? ui::MenuIcon::Bullet : ui::MenuIcon::Check;
  drawIcon(canvas, ui::menuIconDrawing(static_cast<int>(mark)), at, size, colors);
}

// The icon, the mark, or the icon in a frame with the mark at its corner.
void drawGutter(HDC canvas, const MenuRow& row, const RECT& box, bool checked, int dpi,
                const IconColors& colors) {
  const int size = scaled(kIcon, dpi);
  const POINT at{box.left + (scaled(kGutter, dpi) - size) / 2, (box.top + box.bottom - size) / 2};
  if (row.icon.empty()) {
    if (checked) drawMark(canvas, row.radio, at, size, colors);
    return;
  }
  drawIcon(canvas, row.icon, at, size, colors);
  if (!checked) return;
  const int edge = scaled(2, dpi);
  const RECT frame{at.x - edge, at.y - edge, at.x + size + edge, at.y + size + edge};
  const UniqueBrush ink(CreateSolidBrush(colors.text));
  FrameRect(canvas, &frame, ink.get());
  const int small = scaled(kSmallMark, dpi);
  const RECT corner{frame.right - small, frame.bottom - small, frame.right, frame.bottom};
  const UniqueBrush ground(CreateSolidBrush(colors.back));
  FillRect(canvas, &corner, ground.get());
  FrameRect(canvas, &corner, ink.get());
  drawMark(canvas, row.radio, {corner.left, corner.top}, small, colors);
}

}  // namespace

void menuLookChanged() {
  fonts().clear();
}

void measureMenuRow(HWND window, MEASUREITEMSTRUCT& item) {
  const auto& row = *reinterpret_cast<const MenuRow*>(item.itemData);
  const int dpi = dpiOf(window);
  const HDC canvas = GetDC(window);
  const HGDIOBJ old = SelectObject(canvas, fontFor(dpi));
  const SIZE caption = measured(canvas, row.caption);
  const SIZE shortcut = measured(canvas, row.shortcut);
  SelectObject(canvas, old);
  ReleaseDC(window, canvas);
  if (row.inBar) {
    item.itemWidth = static_cast<UINT>(caption.cx + scaled(2, dpi));  // the system adds its own at both sides
    item.itemHeight = static_cast<UINT>(std::max<int>(caption.cy, GetSystemMetrics(SM_CYMENU) - 1));
    return;
  }
  const int gap = row.shortcut.empty() ? 0 : scaled(kShortcutGap, dpi) + shortcut.cx;
  const int height = std::max<int>(caption.cy + scaled(kLinePadding, dpi), scaled(kIcon + kIconPadding, dpi));
  item.itemWidth = static_cast<UINT>(scaled(kGutter + kRightEdge, dpi) + caption.cx + gap);
  item.itemHeight = static_cast<UINT>(row.separator ? scaled(kSeparatorHeight, dpi) : height);
}

void drawMenuRow(const DRAWITEMSTRUCT& item, int dpi) {
  const auto& row = *reinterpret_cast<const MenuRow*>(item.itemData);
  const bool grey = (item.itemState & (ODS_GRAYED | ODS_DISABLED | ODS_INACTIVE)) != 0;
  const bool lit = !row.separator && (item.itemState & (ODS_SELECTED | ODS_HOTLIGHT)) != 0;
  const int back = lit ? COLOR_HIGHLIGHT : row.inBar ? COLOR_MENUBAR : COLOR_MENU;
  const int text = grey ? COLOR_GRAYTEXT : lit ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT;
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(back));
  RECT box = item.rcItem;
  if (row.separator) {
    box.top += (box.bottom - box.top) / 2 - 1;
    box.left += scaled(kGutter, dpi);
    DrawEdge(item.hDC, &box, EDGE_ETCHED, BF_TOP);
    return;
  }
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, GetSysColor(text));
  const HGDIOBJ old = SelectObject(item.hDC, fontFor(dpi));
  const UINT format = DT_SINGLELINE | DT_VCENTER | ((item.itemState & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0U);
  if (row.inBar) {
    DrawTextW(item.hDC, row.caption.c_str(), -1, &box, format | DT_CENTER);
  } else {
    IconColors colors = systemIconColors(text, back);
    colors.plain = colors.plain || grey || lit;
    drawGutter(item.hDC, row, box, (item.itemState & ODS_CHECKED) != 0, dpi, colors);
    box.left += scaled(kGutter, dpi);
    box.right -= scaled(kRightEdge, dpi);
    DrawTextW(item.hDC, row.caption.c_str(), -1, &box, format);
    DrawTextW(item.hDC, row.shortcut.c_str(), -1, &box, format | DT_RIGHT | DT_NOPREFIX);
  }
  SelectObject(item.hDC, old);
}

}  // namespace win32
