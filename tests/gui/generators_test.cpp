// The generators in the real program: pictures under the real mouse and keyboard, and what they insert.
#include "tests/gui/fixture.h"

namespace {

using Generators = gui::Session;

LPARAM at(int x, int y) {
  return MAKELPARAM(x, y);
}

// Grid cells are 10 pixels at 96 to the inch, colours 13.
TEST_F(Generators, TableAndColourByMouse) {
  const gui::Zervo zervo = open({file(L"page.html", "<BODY>\r\n</BODY>\r\n")});
  zervo.select(7, 7);
  zervo.command(mnuTable);
  const HWND table = gui::shownForm(L"frmTabColor");
  const HWND grid = GetDlgItem(table, IDC_frmTabColor_PP);
  SendMessageW(GetDlgItem(table, IDC_frmTabColor_Op1_2), BM_CLICK, 0, 0);
  SendMessageW(grid, WM_LBUTTONDOWN, MK_LBUTTON, at(3, 3));
  SendMessageW(grid, WM_MOUSEMOVE, MK_LBUTTON, at(15, 5));
  EXPECT_EQ(gui::Dialog(table).text(IDC_frmTabColor_LBtabcount), "2/1");
  PostMessageW(grid, WM_LBUTTONUP, 0, at(15, 5));
  const std::string markup =
      "<TABLE WIDTH=\"100%\">\r\n<TR>\r\n<TD WIDTH=\"50%\">\xC2 </TD>\r\n<TD WIDTH=\"50%\">\xC2 </TD>\r\n"
      "</TR>\r\n</TABLE>\r\n";
  zervo.waitForText("<BODY>\r\n" + markup + "</BODY>\r\n");

  zervo.waitUntilFree();
  zervo.select(1, 5);
  zervo.command(PHTbar + 4);
  const HWND colors = gui::shownForm(L"frmTabColor");
  const HWND palette = GetDlgItem(colors, IDC_frmTabColor_PP);
  SendMessageW(GetDlgItem(colors, IDC_frmTabColor_OPbgcolor), BM_CLICK, 0, 0);
  SendMessageW(palette, WM_LBUTTONDOWN, MK_LBUTTON, at(13 * 4 + 6, 13 * 7 + 6));
  PostMessageW(palette, WM_LBUTTONUP, 0, at(13 * 4 + 6, 13 * 7 + 6));
  zervo.waitForText("<BGCOLOR=\"#99CC33\">\r\n" + markup + "</BODY>\r\n");
  zervo.waitUntilFree();
  zervo.command(mnuUndo);
  zervo.waitForText("<BODY>\r\n" + markup + "</BODY>\r\n");
}

}  // namespace
