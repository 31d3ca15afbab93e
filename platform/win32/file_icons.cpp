#include "platform/win32/file_icons.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "platform/win32/dpi.h"

namespace win32 {
namespace {

constexpr COLORREF kNothing = RGB(255, 0, 255);
constexpr COLORREF kEdge = RGB(120, 125, 135);
constexpr COLORREF kBlue = RGB(0, 70, 200);
constexpr COLORREF kRed = RGB(205, 30, 30);
constexpr COLORREF kGreen = RGB(0, 130, 45);
constexpr COLORREF kOrange = RGB(190, 95, 0);
constexpr COLORREF kViolet = RGB(120, 40, 160);

// The letter on the sheet; the lines of it in sixteenths of the square.
struct Drawing {
  std::wstring_view letter;
  COLORREF color;
  std::array<POINT, 5> line{};
  int points = 0;
};

const Drawing& drawingOf(ui::FileIcon icon) {
  static const std::array<Drawing, ui::kFileIcons> all = {{
      {L"H", kBlue},
      {L"#", kViolet},
      {L"J", kOrange},
      {L"A", kRed},
      {L"X", kGreen},
      {L"P", kViolet},
      {L"", kGreen, {{{3, 13}, {6, 8}, {8, 11}, {10, 9}, {12, 13}}}, 5},
      {L"", kOrange, {{{6, 13}, {6, 6}, {11, 5}, {11, 12}, {9, 12}}}, 5},
      {L"T", kEdge},
      {L"i", kOrange},
      {L"W", kRed},
      {L"", kEdge},
  }};
  return all[static_cast<std::size_t>(icon)];
}

// A sheet with one corner turned down, and what tells its kind.
void draw(HDC canvas, const Drawing& drawing, int size) {
  RECT whole{0, 0, size, size};
  const UniqueBrush background(CreateSolidBrush(kNothing));
  FillRect(canvas, &whole, background.get());
  const auto at = [size](int sixteenths) { return sixteenths * (size - 1) / 16; };
  const int width = std::max(1, size / 16);
  const HGDIOBJ oldBrush = SelectObject(canvas, GetStockObject(WHITE_BRUSH));
  const Unique<HPEN, closeObject> edge(CreatePen(PS_SOLID, width, kEdge));
  const HGDIOBJ oldPen = SelectObject(canvas, edge.get());
  const POINT sheet[] = {{at(2), at(1)}, {at(10), at(1)}, {at(14), at(5)}, {at(14), at(16)}, {at(2), at(16)}};
  Polygon(canvas, sheet, static_cast<int>(std::size(sheet)));
  const POINT corner[] = {{at(10), at(1)}, {at(10), at(5)}, {at(14), at(5)}};
  Polyline(canvas, corner, static_cast<int>(std::size(corner)));

  const Unique<HPEN, closeObject> pen(CreatePen(PS_SOLID, width, drawing.color));
  SelectObject(canvas, pen.get());
  std::array<POINT, 5> line{};
  for (std::size_t i = 0; i < line.size(); ++i) line[i] = {at(drawing.line[i].x), at(drawing.line[i].y)};
  if (drawing.points > 0) Polyline(canvas, line.data(), drawing.points);

  LOGFONTW wanted{};
  wanted.lfHeight = -size * 11 / 16;
  wanted.lfWeight = FW_BOLD;
  wanted.lfCharSet = DEFAULT_CHARSET;
  constexpr std::wstring_view kName = L"Arial";
  std::copy(kName.begin(), kName.end(), wanted.lfFaceName);
  const UniqueFont font(CreateFontIndirectW(&wanted));
  const HGDIOBJ oldFont = SelectObject(canvas, font.get());
  SetBkMode(canvas, TRANSPARENT);
  SetTextColor(canvas, drawing.color);
  RECT place{at(2), at(5), at(14) + 1, at(16)};
  DrawTextW(canvas, drawing.letter.data(), static_cast<int>(drawing.letter.size()), &place,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
  SelectObject(canvas, oldFont);
  SelectObject(canvas, oldPen);
  SelectObject(canvas, oldBrush);
}

}  // namespace

UniqueImages fileIcons(int dpi) {
  const int size = scaled(16, dpi);
  UniqueImages images(ImageList_Create(size, size, ILC_COLOR24 | ILC_MASK, ui::kFileIcons, 0));
  const HDC screen = GetDC(nullptr);
  const UniqueCanvas canvas(CreateCompatibleDC(screen));
  for (int icon = 0; icon < ui::kFileIcons; ++icon) {
    const UniqueBitmap bitmap(CreateCompatibleBitmap(screen, size, size));
    const HGDIOBJ old = SelectObject(canvas.get(), bitmap.get());
    draw(canvas.get(), drawingOf(static_cast<ui::FileIcon>(icon)), size);
    SelectObject(canvas.get(), old);
    ImageList_AddMasked(images.get(), bitmap.get(), kNothing);
  }
  ReleaseDC(nullptr, screen);
  return images;
}

int imageOf(const ui::FileIcons& icons, int number) {
  const auto found = icons.find(number);
  return found == icons.end() ? I_IMAGENONE : static_cast<int>(found->second);
}

}  // namespace win32
