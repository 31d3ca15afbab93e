#include "platform/win32/drawing/vector_icons.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/strings.h"
#include "ui/drawing.h"

namespace win32 {
namespace {

constexpr double kUnits = 16;  // of a drawing
constexpr int kFine = 8;       // drawn so many times as large, for smooth edges
constexpr int kFull = kFine * kFine;
constexpr std::size_t kKept = 400;  // pictures

// A bitmap that can be drawn on and read, of 32 bits or of one (black and white). Its bytes live as long as
// it does.
class Surface {
 public:
  Surface(int width, int height, WORD bits) : canvas_(CreateCompatibleDC(nullptr)) {
    struct {
      BITMAPINFOHEADER header;
      std::array<RGBQUAD, 2> palette;
    } info{};
    info.header.biSize = sizeof info.header;
    info.header.biWidth = width;
    info.header.biHeight = -height;  // the first row is on top
    info.header.biPlanes = 1;
    info.header.biBitCount = bits;
    info.palette[1] = {255, 255, 255, 0};
    bitmap_.reset(CreateDIBSection(canvas_.get(), reinterpret_cast<const BITMAPINFO*>(&info), DIB_RGB_COLORS,
                                   &bytes, nullptr, 0));
    if (bitmap_) old_ = SelectObject(canvas_.get(), bitmap_.get());
  }
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  ~Surface() {
    if (bitmap_) SelectObject(canvas_.get(), old_);
  }

  HDC canvas() const { return canvas_.get(); }
  UniqueBitmap take() {
    SelectObject(canvas_.get(), old_);
    return std::move(bitmap_);
  }
  void* bytes = nullptr;  // null: no memory

 private:
  UniqueCanvas canvas_;
  UniqueBitmap bitmap_;
  HGDIOBJ old_ = nullptr;
};

int brightness(COLORREF color) {
  return (GetRValue(color) * 3 + GetGValue(color) * 6 + GetBValue(color)) / 10;
}

COLORREF mixed(COLORREF a, COLORREF b) {
  return RGB((GetRValue(a) + GetRValue(b)) / 2, (GetGValue(a) + GetGValue(b)) / 2,
             (GetBValue(a) + GetBValue(b)) / 2);
}

COLORREF colorOf(ui::Ink ink, const IconColors& colors) {
  static constexpr COLORREF kInks[] = {0,
                                       RGB(0, 70, 200),
                                       RGB(205, 30, 30),
                                       RGB(0, 130, 45),
                                       RGB(190, 95, 0),
                                       RGB(120, 40, 160),
                                       RGB(255, 255, 255),
                                       RGB(255, 232, 150),
                                       RGB(200, 224, 255)};
  if (ink == ui::Ink::Own) return colors.own;
  const COLORREF color = kInks[static_cast<int>(ink)];
  if (ink == ui::Ink::Text) return colors.text;
  const bool ground = ink >= ui::Ink::Paper;
  if (colors.plain) return ground ? colors.back : colors.text;
  const bool dark = brightness(colors.back) < 128;
  if (!dark) return color;
  return ground ? mixed(colors.back, mixed(colors.back, color)) : mixed(color, RGB(255, 255, 255));
}

// Draws a shape in white on black, `kFine` times as large as the picture.
class Pencil {
 public:
  Pencil(HDC canvas, int size) : canvas_(canvas), pixel_(size / kUnits) {}

  void draw(const ui::Shape& shape) const {
    using Kind = ui::Shape::Kind;
    if (shape.kind == Kind::Letters) return letters(shape);
    const bool filled = shape.kind == Kind::Filled || shape.kind == Kind::Disc;
    const int width = std::max(1, static_cast<int>(std::lround(shape.size * pixel_))) * kFine;
    const LOGBRUSH white{BS_SOLID, RGB(255, 255, 255), 0};
    const Unique<HPEN, closeObject> pen(
        ExtCreatePen(PS_GEOMETRIC | PS_SOLID | (shape.kind == Kind::Closed ? PS_JOIN_MITER : PS_JOIN_ROUND) |
                         (shape.size > 1 ? PS_ENDCAP_ROUND : PS_ENDCAP_SQUARE),
                     static_cast<DWORD>(width), &white, 0, nullptr));
    const HGDIOBJ oldPen = SelectObject(canvas_, filled ? GetStockObject(NULL_PEN) : pen.get());
    const HGDIOBJ oldBrush = SelectObject(canvas_, GetStockObject(filled ? WHITE_BRUSH : NULL_BRUSH));
    std::vector<POINT> points;
    for (const ui::DrawnPoint& point : shape.points) {
      points.push_back({place(point.x, filled, width), place(point.y, filled, width)});
    }
    const int count = static_cast<int>(points.size());
    if (shape.kind == Kind::Line) {
      Polyline(canvas_, points.data(), count);
    } else if (shape.kind == Kind::Closed || shape.kind == Kind::Filled) {
      Polygon(canvas_, points.data(), count);
    } else {
      const double units = shape.kind == Kind::Disc ? shape.size : shape.radius;
      const int radius = static_cast<int>(std::lround(units * pixel_ * kFine));
      Ellipse(canvas_, points[0].x - radius, points[0].y - radius, points[0].x + radius + 1,
              points[0].y + radius + 1);
    }
    SelectObject(canvas_, oldPen);
    SelectObject(canvas_, oldBrush);
  }

 private:
  // Edges of areas at whole units and the middles of lines at half ones come to stand so that whole pixels
  // are filled; everything else stands where it is.
  int place(double units, bool filled, int width) const {
    const double whole = std::floor(units);
    if (filled && units == whole) return static_cast<int>(std::lround(units * pixel_)) * kFine;
    if (!filled && units == whole + 0.5) {
      return static_cast<int>(std::lround(whole * pixel_)) * kFine + width / 2;
    }
    return static_cast<int>(std::lround(units * pixel_ * kFine));
  }

  void letters(const ui::Shape& shape) const {
    LOGFONTW wanted{};
    wanted.lfHeight = -static_cast<LONG>(std::lround(shape.size * pixel_ * kFine));
    wanted.lfWeight = shape.bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = static_cast<BYTE>(shape.italic);
    wanted.lfUnderline = static_cast<BYTE>(shape.underlined);
    wanted.lfQuality = NONANTIALIASED_QUALITY;
    wanted.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = shape.serif ? L"Times New Roman" : kInterfaceFont;
    std::copy(name.begin(), name.end(), wanted.lfFaceName);
    const UniqueFont font(CreateFontIndirectW(&wanted));
    const HGDIOBJ old = SelectObject(canvas_, font.get());
    SetTextColor(canvas_, RGB(255, 255, 255));
    SetBkMode(canvas_, TRANSPARENT);
    const std::wstring text = wideFromUtf8(shape.text);
    const int x = place(shape.points[0].x, true, 0);
    const int y = place(shape.points[0].y, true, 0);
    RECT box{x, y, x, y};
    DrawTextW(canvas_, text.c_str(), -1, &box,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
    SelectObject(canvas_, old);
  }

  HDC canvas_;
  double pixel_;  // pixels a unit
};

// One shape after the other, at first so many times as large and in black and white.
class Sketch {
 public:
  explicit Sketch(int size)
      : size_(size),
        row_((size + 3) / 4 * 4),
        fine_(row_ * kFine, size * kFine, 1),
        pencil_(fine_.canvas(), size) {}
  explicit operator bool() const { return fine_.bytes != nullptr; }

  // For every pixel that the shape touches: its place, and how many of its fine points are covered, 1..kFull.
  template <typename Pixel>
  void draw(const ui::Shape& shape, Pixel pixel) const {
    static_assert(kFine == 8, "a row of a pixel's fine points is one byte");
    auto* const rows = static_cast<std::uint8_t*>(fine_.bytes);
    GdiFlush();
    std::fill_n(rows, row_ * size_ * kFine, std::uint8_t{0});
    pencil_.draw(shape);
    GdiFlush();
    for (int y = 0; y < size_; ++y) {
      for (int x = 0; x < size_; ++x) {
        int covered = 0;
        for (int i = 0; i < kFine; ++i) covered += std::popcount(rows[(y * kFine + i) * row_ + x]);
        if (covered != 0) pixel(x, y, covered);
      }
    }
  }

 private:
  int size_;
  int row_;  // in bytes, which are pixels of the picture; a bitmap's rows are whole words
  Surface fine_;
  Pencil pencil_;
};

std::uint32_t laidOver(std::uint32_t below, COLORREF color, int covered) {
  const auto part = [&](int shift, int value) {
    const int under = static_cast<int>(below >> shift) & 0xFF;
    return static_cast<std::uint32_t>((under * (kFull - covered) + value * covered + kFull / 2) / kFull)
           << shift;
  };
  return part(0, GetBValue(color)) | part(8, GetGValue(color)) | part(16, GetRValue(color)) | part(24, 255);
}

}  // namespace

bool highContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

IconColors systemIconColors(int textColor, int backColor) {
  return {GetSysColor(textColor), GetSysColor(backColor), highContrast()};
}

UniqueBitmap iconStrip(const std::vector<Icon>& icons, int size) {
  const int width = size * static_cast<int>(icons.size());
  const Sketch sketch(size);
  Surface strip(width, size, 32);
  if (!sketch || strip.bytes == nullptr) return {};
  auto* const pixels = static_cast<std::uint32_t*>(strip.bytes);
  std::fill_n(pixels, width * size, 0U);
  int left = 0;
  for (const Icon& icon : icons) {
    for (const ui::Shape& shape : ui::shapesOf(icon.drawing)) {
      const COLORREF color = colorOf(shape.ink, icon.colors);
      sketch.draw(shape, [&](int x, int y, int covered) {
        std::uint32_t& pixel = pixels[y * width + left + x];
        pixel = laidOver(pixel, color, covered);
      });
    }
    left += size;
  }
  return strip.take();
}

UniqueImages iconImages(const std::vector<Icon>& icons, int size) {
  UniqueImages images(ImageList_Create(size, size, ILC_COLOR32, static_cast<int>(icons.size()), 0));
  const UniqueBitmap strip = iconStrip(icons, size);
  ImageList_Add(images.get(), strip.get(), nullptr);
  return images;
}

void drawIcon(HDC canvas, std::string_view drawing, POINT at, int size, const IconColors& colors) {
  using Key = std::tuple<std::string_view, int, COLORREF, COLORREF, bool>;
  static std::map<Key, UniqueBitmap> kept;
  if (kept.size() > kKept) kept.clear();
  UniqueBitmap& bitmap = kept[{drawing, size, colors.text, colors.back, colors.plain}];
  if (!bitmap) bitmap = iconStrip({{drawing, colors}}, size);
  const UniqueCanvas memory(CreateCompatibleDC(canvas));
  const HGDIOBJ old = SelectObject(memory.get(), bitmap.get());
  constexpr BLENDFUNCTION kOver = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
  GdiAlphaBlend(canvas, at.x, at.y, size, size, memory.get(), 0, 0, size, size, kOver);
  SelectObject(memory.get(), old);
}

}  // namespace win32
