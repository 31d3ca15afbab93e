#include "platform/win32/tool_icons.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "platform/win32/handles.h"

namespace win32 {
namespace {

using ui::ToolIcon;

constexpr COLORREF kText = CLR_DEFAULT;  // the system's
constexpr COLORREF kBlue = RGB(0, 70, 200);
constexpr COLORREF kRed = RGB(205, 30, 30);
constexpr COLORREF kGreen = RGB(0, 130, 45);

enum Style : unsigned { kPlain = 0, kBold = 1, kItalic = 2, kUnderlined = 4, kSerif = 8, kLow = 16 };

// Letters in the middle of the square; `height` in sixteenths of it.
struct Letters {
  ToolIcon icon;
  std::wstring_view text;
  int height;
  unsigned style;
  COLORREF color = kText;
};

// A line from one point to another, in sixteenths of the square.
struct Line {
  int x1, y1, x2, y2;
};
struct Lines {
  ToolIcon icon;
  COLORREF color;
  std::vector<Line> lines;
};

constexpr Letters kLetters[] = {
    {ToolIcon::Bold, L"B", 14, kBold | kSerif},
    {ToolIcon::Italic, L"I", 14, kItalic | kSerif},
    {ToolIcon::Underline, L"U", 13, kUnderlined | kSerif},
    {ToolIcon::FontFace, L"Aa", 12, kSerif, kBlue},
    {ToolIcon::FontColor, L"A", 12, kBold},
    {ToolIcon::Paragraph, L"P", 14, kBold, kBlue},
    {ToolIcon::Heading1, L"H1", 11, kBold, kBlue},
    {ToolIcon::Heading2, L"H2", 10, kBold, kBlue},
    {ToolIcon::FirstColor, L"1", 9, kBold},
    {ToolIcon::SecondColor, L"2", 9, kBold},
    {ToolIcon::Comment, L"!--", 11, kBold, kGreen},
    {ToolIcon::Preformatted, L"PRE", 8, kBold},
    {ToolIcon::Quote, L"\u201D", 20, kBold | kSerif | kLow, kBlue},
    {ToolIcon::Entity, L"\u00A9", 14, kPlain},
    {ToolIcon::LineBreak, L"BR", 8, kBold},
};

const std::vector<Lines>& drawings() {
  static const std::vector<Lines> all = {
      {ToolIcon::FontColor, kRed, {{2, 14, 6, 14}, {2, 15, 6, 15}}},
      {ToolIcon::FontColor, kGreen, {{6, 14, 10, 14}, {6, 15, 10, 15}}},
      {ToolIcon::FontColor, kBlue, {{10, 14, 14, 14}, {10, 15, 14, 15}}},
      {ToolIcon::FirstColor, kRed, {{2, 2, 14, 2}, {14, 2, 14, 14}, {14, 14, 2, 14}, {2, 14, 2, 2}}},
      {ToolIcon::SecondColor, kBlue, {{2, 2, 14, 2}, {14, 2, 14, 14}, {14, 14, 2, 14}, {2, 14, 2, 2}}},
      {ToolIcon::NoBreakSpace, kText, {{2, 8, 2, 12}, {2, 12, 14, 12}, {14, 12, 14, 8}}},
      {ToolIcon::LineBreak, kBlue, {{15, 2, 15, 14}, {15, 14, 4, 14}, {4, 14, 6, 12}, {4, 14, 6, 16}}},
      {ToolIcon::ParagraphAligned, kText, {{2, 3, 14, 3}, {2, 6, 14, 6}, {2, 9, 14, 9}, {2, 12, 14, 12}}},
      {ToolIcon::ParagraphAligned, kBlue, {{1, 1, 1, 15}, {15, 1, 15, 15}}},
      {ToolIcon::Center, kText, {{2, 3, 14, 3}, {5, 6, 11, 6}, {2, 9, 14, 9}, {5, 12, 11, 12}}},
      {ToolIcon::BulletList,
       kBlue,
       {{2, 3, 3, 3}, {2, 4, 3, 4}, {2, 8, 3, 8}, {2, 9, 3, 9}, {2, 13, 3, 13}, {2, 14, 3, 14}}},
      {ToolIcon::BulletList, kText, {{6, 3, 14, 3}, {6, 8, 14, 8}, {6, 13, 14, 13}}},
      {ToolIcon::NumberedList,
       kBlue,
       {{1, 3, 2, 2}, {2, 2, 2, 6}, {1, 9, 3, 9}, {3, 9, 3, 11}, {3, 11, 1, 14}, {1, 14, 4, 14}}},
      {ToolIcon::NumberedList, kText, {{6, 4, 14, 4}, {6, 8, 14, 8}, {6, 12, 14, 12}}},
      {ToolIcon::Rule, kText, {{4, 3, 12, 3}, {4, 13, 12, 13}}},
      {ToolIcon::Rule, kBlue, {{1, 8, 15, 8}, {1, 9, 15, 9}}},
      {ToolIcon::EditTag, kBlue, {{6, 3, 2, 8}, {2, 8, 6, 13}, {10, 3, 14, 8}, {14, 8, 10, 13}}},
      {ToolIcon::EditTag, kRed, {{6, 7, 10, 7}, {6, 9, 10, 9}}},
      {ToolIcon::TagList, kBlue, {{4, 2, 1, 5}, {1, 5, 4, 8}, {12, 2, 15, 5}, {15, 5, 12, 8}}},
      {ToolIcon::TagList, kText, {{6, 4, 10, 4}, {6, 6, 10, 6}, {3, 11, 13, 11}, {3, 14, 13, 14}}},
      {ToolIcon::Image, kText, {{1, 2, 15, 2}, {15, 2, 15, 14}, {15, 14, 1, 14}, {1, 14, 1, 2}}},
      {ToolIcon::Image, kGreen, {{2, 13, 6, 7}, {6, 7, 9, 11}, {9, 11, 11, 9}, {11, 9, 14, 13}}},
      {ToolIcon::Image, kRed, {{11, 4, 13, 4}, {11, 5, 13, 5}, {11, 6, 13, 6}}},
      {ToolIcon::Link,
       kBlue,
       {{7, 5, 2, 5},
        {2, 5, 1, 6},
        {1, 6, 1, 10},
        {1, 10, 2, 11},
        {2, 11, 7, 11},
        {9, 5, 14, 5},
        {14, 5, 15, 6},
        {15, 6, 15, 10},
        {15, 10, 14, 11},
        {14, 11, 9, 11},
        {5, 8, 11, 8}}},
      {ToolIcon::Anchor,
       kBlue,
       {{7, 2, 9, 2},
        {9, 2, 9, 4},
        {9, 4, 7, 4},
        {7, 4, 7, 2},
        {8, 4, 8, 14},
        {4, 7, 12, 7},
        {2, 10, 3, 13},
        {3, 13, 8, 14},
        {8, 14, 13, 13},
        {13, 13, 14, 10}}},
      {ToolIcon::Frame, kText, {{1, 2, 15, 2}, {15, 2, 15, 14}, {15, 14, 1, 14}, {1, 14, 1, 2}}},
      {ToolIcon::Frame, kBlue, {{6, 2, 6, 14}, {6, 7, 15, 7}}},
      {ToolIcon::Comment, kGreen, {{3, 14, 13, 14}}},
      {ToolIcon::Table, kText, {{1, 2, 15, 2}, {15, 2, 15, 14}, {15, 14, 1, 14}, {1, 14, 1, 2}}},
      {ToolIcon::Table, kBlue, {{1, 6, 15, 6}, {1, 10, 15, 10}, {6, 2, 6, 14}, {11, 2, 11, 14}}},
  };
  return all;
}

// Draws with an object of GDI until the end of the block.
class Selected {
 public:
  Selected(HDC canvas, HGDIOBJ object) : canvas_(canvas), old_(SelectObject(canvas, object)) {}
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;
  ~Selected() { SelectObject(canvas_, old_); }

 private:
  HDC canvas_;
  HGDIOBJ old_;
};

COLORREF shown(COLORREF color) {
  return color == kText ? GetSysColor(COLOR_BTNTEXT) : color;
}

void drawLetters(HDC canvas, const Letters& letters, POINT at, int size) {
  LOGFONTW wanted{};
  wanted.lfHeight = -letters.height * size / 16;
  wanted.lfWeight = (letters.style & kBold) != 0 ? FW_BOLD : FW_NORMAL;
  wanted.lfItalic = static_cast<BYTE>((letters.style & kItalic) != 0);
  wanted.lfUnderline = static_cast<BYTE>((letters.style & kUnderlined) != 0);
  // Smoothed edges would mix with the colour that stands for nothing.
  wanted.lfQuality = NONANTIALIASED_QUALITY;
  wanted.lfCharSet = DEFAULT_CHARSET;
  const std::wstring_view name = (letters.style & kSerif) != 0 ? L"Times New Roman" : L"Arial";
  std::copy(name.begin(), name.end(), wanted.lfFaceName);
  const UniqueFont font(CreateFontIndirectW(&wanted));
  const Selected selected(canvas, font.get());
  SetBkMode(canvas, TRANSPARENT);
  SetTextColor(canvas, shown(letters.color));
  const int low = (letters.style & kLow) != 0 ? size / 4 : 0;
  RECT place{at.x, at.y + low, at.x + size, at.y + size + low};
  DrawTextW(canvas, letters.text.data(), static_cast<int>(letters.text.size()), &place,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
}

void drawLines(HDC canvas, const Lines& lines, POINT at, int size) {
  const Unique<HPEN, closeObject> pen(CreatePen(PS_SOLID, std::max(1, size / 16), shown(lines.color)));
  const Selected selected(canvas, pen.get());
  const auto place = [size](int sixteenths) { return sixteenths * (size - 1) / 16; };
  for (const Line& line : lines.lines) {
    MoveToEx(canvas, at.x + place(line.x1), at.y + place(line.y1), nullptr);
    LineTo(canvas, at.x + place(line.x2), at.y + place(line.y2));
    // A line leaves its last point out.
    SetPixelV(canvas, at.x + place(line.x2), at.y + place(line.y2), shown(lines.color));
  }
}

}  // namespace

void drawToolIcon(HDC canvas, ToolIcon icon, POINT at, int size) {
  for (const Letters& letters : kLetters) {
    if (letters.icon != icon) continue;
    const bool above =
        icon == ToolIcon::FontColor || icon == ToolIcon::Comment || icon == ToolIcon::LineBreak;
    drawLetters(canvas, letters, {at.x, at.y - (above ? size / 6 : 0)}, size);
  }
  for (const Lines& lines : drawings()) {
    if (lines.icon == icon) drawLines(canvas, lines, at, size);
  }
}

}  // namespace win32
