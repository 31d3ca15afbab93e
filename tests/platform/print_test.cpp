// Letters in their places, and jobs on a device.
#include <gtest/gtest.h>

#include <vector>

#include "base/error.h"
#include "platform/win32/drawing/gdi_canvas.h"
#include "platform/win32/print/print_job.h"
#include "platform/win32/print/printer.h"
#include "tests/gui/driver.h"
#include "tests/gui/postscript_printer.h"

namespace {

// Left edges of the strokes on a white strip of 400 x 40 pixels.
std::vector<int> strokes(int dpi, const std::string& text, const ui::TextStyle& style) {
  const win32::UniqueCanvas device(CreateCompatibleDC(nullptr));
  const HDC screen = GetDC(nullptr);
  const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, 400, 40));
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(device.get(), bitmap.get());
  const RECT all{0, 0, 400, 40};
  FillRect(device.get(), &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
  win32::GdiCanvas canvas(device.get(), dpi);
  canvas.text({10, 0, 200, 20}, text, 0, style);
  std::vector<int> edges;
  bool inside = false;
  for (int x = 0; x < 400; ++x) {
    bool ink = false;
    for (int y = 0; y < 40; ++y) ink = ink || (GetPixel(device.get(), x, y) & 0xFF) < 0x80;
    if (ink && !inside) edges.push_back(x);
    inside = ink;
  }
  SelectObject(device.get(), before);
  return edges;
}

TEST(GdiCanvas, LettersStandWhereTheyAreTold) {
  ui::TextStyle style;
  style.font = {"Zervo ISO", 9, false, false, {}};
  style.bytes = true;
  style.advance = 12.3;
  for (const int dpi : {96, 144}) {
    const std::vector<int> edges = strokes(dpi, "||||||||", style);
    ASSERT_EQ(edges.size(), 8U) << dpi;
    for (int i = 1; i < 8; ++i) {
      EXPECT_NEAR(edges[static_cast<std::size_t>(i)] - edges[0], i * 12.3 * dpi / 96, 1.01);
    }
  }
  // Letters of several bytes, and of two units, take one place each.
  style.font = {"Zervo Mono", 9, false, false, ui::CharacterSet::Utf8};
  const std::vector<int> utf8 = strokes(96, "|ა😀\xFF|", style);
  ASSERT_GE(utf8.size(), 4U);
  EXPECT_NEAR(utf8.back() - utf8.front(), 4 * 12.3, 1.01);
  style.font = {"Zervo ISO", 9, false, false, {}};
  // A larger scale draws a thicker stroke from the same place on.
  style.advance = 24.6;
  style.scale = 2;
  EXPECT_EQ(strokes(96, "||||", style).size(), 4U);
}

TEST(SystemPrinter, ALettersRoomIsThatOfTheFont) {
  win32::SystemPrinter printer;
  const ui::CodeCell cell = printer.codeCell({});
  EXPECT_EQ(cell.font.name, "Zervo ISO");
  const double size = 11.0 * 96 / 72;
  EXPECT_NEAR(cell.width, size * 1233 / 2048, 0.02);  // as DejaVu Sans Mono has them
  EXPECT_NEAR(cell.height, size * 2384 / 2048, 0.05);
  const ui::CodeCell utf8 = printer.codeCell({"", 11, false, false, ui::CharacterSet::Utf8});
  EXPECT_EQ(utf8.font.name, "Zervo Mono");
  EXPECT_NEAR(utf8.width, cell.width, 0.001) << "Georgian letters are as wide";
}

TEST(PrintJob, ADeviceThatRefusesIsTold) {
  win32::GdiPrintJob job{win32::UniqueCanvas(CreateCompatibleDC(nullptr))};
  EXPECT_THROW(job.begin("job"), base::Error);
}

class Paper : public testing::Test {
 protected:
  void SetUp() override {
    if (!printer_.made()) GTEST_SKIP() << "no PostScript driver here";
  }
  static win32::UniqueCanvas device() {
    return win32::UniqueCanvas(CreateDCW(L"WINSPOOL", gui::PostScriptPrinter::kName, nullptr, nullptr));
  }
  gui::Folder folder_;
  gui::PostScriptPrinter printer_{folder_.path, folder_ / L"job.ps"};
};

TEST_F(Paper, AJobIsPrintedPageByPage) {
  win32::GdiPrintJob job(device());
  EXPECT_NEAR(job.sheet().width, 21000, 20);
  EXPECT_NEAR(job.sheet().height, 29700, 20);
  ASSERT_TRUE(job.begin("two pages"));
  for (int page = 0; page < 2; ++page) {
    // The corner is the paper's, not that of the part that can be printed: an inch from there are 600 dots,
    // of which 150 cannot be printed.
    job.beginPage().fill({96, 96, 96, 96}, 0);
    job.endPage();
  }
  job.finish();
  const std::string bytes = printer_.job();
  EXPECT_NE(bytes.find("%%Title: two pages"), std::string::npos);
  EXPECT_NE(bytes.find("%%Pages: 2"), std::string::npos);
  EXPECT_EQ(gui::PostScriptPrinter::count(bytes, "\n450 450 moveto\n"), 2) << bytes;
}

TEST_F(Paper, AJobThatIsNotFinishedIsThrownAway) {
  {
    win32::GdiPrintJob job(device());
    ASSERT_TRUE(job.begin("stopped"));
    job.beginPage();
    job.endPage();
  }
  EXPECT_EQ(printer_.job(), "");
}

}  // namespace
