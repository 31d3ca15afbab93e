// Page preview, printing and the about box of the real program.
#include "tests/gui/fixture.h"
#include "tests/gui/postscript_printer.h"

namespace gui {
namespace {

std::string textOf(HWND form, int control) {
  wchar_t text[4096];
  text[SendMessageW(GetDlgItem(form, control), WM_GETTEXT, 4096, reinterpret_cast<LPARAM>(text))] = 0;
  return utf8(text);
}

// A4 with margins of 20 mm is 971/96 inch high inside, the head 28/96. DejaVu's lines are 2384/2048 of its
// size, which is 11 points.
int rowsOfAPage() {
  return static_cast<int>((971 - 28) / (11.0 * 96 / 72 * 2384 / 2048));
}

std::string linesOf(int count, const std::string& words) {
  std::string text;
  for (int i = 0; i < count; ++i) text += words + "\r\n";
  return text;
}

HWND commonDialog() {
  HWND window = nullptr;
  waitFor("the system's dialog", [&] {
    window = FindWindowW(L"#32770", nullptr);
    return window != nullptr && IsWindowVisible(window) != FALSE;
  });
  return window;
}

class Printing : public Session {
 protected:
  Printing() { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Zervo\\print"); }
  ~Printing() override { RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Zervo\\print"); }
};

TEST_F(Printing, PreviewShowsThePagesOfTheDocument) {
  const int rows = rowsOfAPage();
  Zervo zervo = open({file(L"გვერდი.htm", linesOf(2 * rows + 1, "\xC0\xC1"))});
  zervo.command(mnuPrintPreview);
  const HWND form = shownForm(L"frmprintpreview");
  EXPECT_EQ(textOf(form, IDC_frmprintpreview_Lpage), "გვერდი 1 / 3");
  EXPECT_EQ(textOf(form, IDC_frmprintpreview_Ppage), "გვერდი.htm, გვერდი 1 / 3");
  PostMessageW(GetDlgItem(form, IDC_frmprintpreview_Ppage), WM_KEYDOWN, VK_NEXT, 1);
  waitFor("the second page", [&] { return textOf(form, IDC_frmprintpreview_Lpage) == "გვერდი 2 / 3"; });
  press(form, IDC_frmprintpreview_Clast);
  waitFor("the last page", [&] { return textOf(form, IDC_frmprintpreview_Lpage) == "გვერდი 3 / 3"; });
  EXPECT_EQ(IsWindowEnabled(GetDlgItem(form, IDC_frmprintpreview_Cnext)), FALSE);
  press(form, IDC_frmprintpreview_CEXIT);
  zervo.waitUntilFree();
  zervo.select(0, 0);
  leave(zervo);
}

TEST_F(Printing, ThePrinterGetsEveryPageInGeorgianLetters) {
  const PostScriptPrinter printer(folder.path, folder / L"job.ps");
  if (!printer.made()) GTEST_SKIP() << "no PostScript driver here";
  const int rows = rowsOfAPage();
  Zervo zervo = open({file(L"page.htm", linesOf(rows + 1, "\xC0<\xC1"))});
  zervo.command(mnuPrint);
  PostMessageW(commonDialog(), WM_COMMAND, IDOK, 0);
  std::string job;
  waitFor("the printed file", [&] { return !(job = printer.job()).empty(); });
  EXPECT_NE(job.find("%%Title: page.htm"), std::string::npos);
  EXPECT_NE(job.find("%%Pages: 2\n"), std::string::npos);
  EXPECT_NE(job.find("/FontName /ZervoISO"), std::string::npos) << "the legacy letters' font";
  int onceARow = 0;
  for (const auto& [glyph, times] : PostScriptPrinter::glyphs(job)) onceARow += times == rows + 1 ? 1 : 0;
  EXPECT_EQ(onceARow, 3) << "the three letters of each row";
  zervo.waitUntilFree();
  leave(zervo);
}

TEST_F(Printing, WithoutAPrinterTheUserIsTold) {
  if (PostScriptPrinter::anyInstalled()) GTEST_SKIP() << "there is a printer";
  Zervo zervo = open({file(L"page.htm", "text")});
  for (const int command : {mnuPrint, mnuPageSetup}) {
    zervo.command(command);
    EXPECT_NE(zervo.answer(IDC_frmBOXa_COK).find("პრინტერი ვერ მოიძებნა"), std::string::npos);
    zervo.waitUntilFree();
  }
  EXPECT_EQ(zervo.text(), "text");
  leave(zervo);
}

TEST_F(Printing, AboutShowsTheLicence) {
  Zervo zervo = open();
  zervo.command(mnuAbout);
  const HWND form = shownForm(L"frmabout");
  EXPECT_EQ(textOf(form, IDC_frmabout_Lname), "Zervo " ZERVO_VERSION);
  EXPECT_NE(textOf(form, IDC_frmabout_Tlicence).find("Copyright (c) 2003 by Bitstream"), std::string::npos);
  EXPECT_NE(textOf(form, IDC_frmabout_Tlicence).find("Neil Hodgson"), std::string::npos);
  press(form, IDC_frmabout_COK);
  zervo.waitUntilFree();
  leave(zervo);
}

}  // namespace
}  // namespace gui
