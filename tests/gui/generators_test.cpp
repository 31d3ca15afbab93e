// The generators in the real program: pictures under the real mouse and keyboard, what they insert, and saved
// pages.
#include "tests/gui/fixture.h"

namespace {

using Generators = gui::Session;

LPARAM at(int x, int y) {
  return MAKELPARAM(x, y);
}

// Grid cells are 10 pixels at 96 to the inch, colours 13.
TEST_F(Generators, TableAndColourByMouse) {
  const gui::Zervo zervo = open({file(L"page.html", "<BODY>\r\n</BODY>\r\n")});
  zervo.select(8, 8);
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

TEST_F(Generators, FramesetPagesAreNewDocuments) {
  gui::Zervo zervo = open({});
  zervo.command(mnuDesign);
  const HWND form = gui::shownForm(L"frmDesign");
  const HWND layouts = GetDlgItem(form, IDC_frmDesign_PSP);
  RECT area;
  GetClientRect(layouts, &area);
  // The fifth of the first row: a banner over a page.
  SendMessageW(layouts, WM_LBUTTONDOWN, MK_LBUTTON, at(area.right * 9 / 10, area.bottom / 4));
  SendMessageW(layouts, WM_LBUTTONUP, 0, at(area.right * 9 / 10, area.bottom / 4));
  const HWND preview = GetDlgItem(form, IDC_frmDesign_Pfram);
  SendMessageW(preview, WM_LBUTTONDOWN, MK_LBUTTON, at(20, 100));
  SendMessageW(preview, WM_LBUTTONUP, 0, at(20, 100));
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmDesign_Tname), "Page");
  gui::fill(form, IDC_frmDesign_Tsource, L"main.html");
  SendMessageW(GetDlgItem(form, IDC_frmDesign_CKborder), BM_CLICK, 0, 0);
  gui::fill(form, IDC_frmDesign_Tramwidth, L"0");
  gui::press(form, IDC_frmDesign_COK);
  zervo.waitForText(
      "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Frameset//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
      "<TITLE>Frame Page</TITLE>\r\n</HEAD>\r\n"
      "<FRAMESET framespacing=\"0\" border=\"0\" frameborder = \"0\" rows=\"64,*\">\r\n"
      "<FRAME name=\"Top\" src=\"Page1.HTML\" scrolling=\"No\" noresize>\r\n"
      "<FRAME name=\"Page\" src=\"main.html\" scrolling=\"Auto\" noresize>\r\n<NOFRAMES>\r\n"
      "<P>es gverdi iyenebs freimebs.Tqveni brauzeri ar iyenebs freimebs.</P>\r\n</NOFRAMES>\r\n"
      "</FRAMESET>\r\n<BODY>\r\n\r\n</BODY>\r\n</HTML>\r\n");
  zervo.waitUntilFree();
  zervo.clickNode("main.html");
  zervo.waitForText(
      "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
      "<TITLE>Page 2</TITLE>\r\n</HEAD>\r\n<BODY>\r\n\r\n</BODY>\r\n</HTML>");
  // Nothing is on the disk, so the program asks before it lets them go.
  zervo.command(mnuExit);
  EXPECT_NE(zervo.answer(IDC_frmBOXa_Cno), "");
  EXPECT_EQ(zervo.waitForEnd(), 0u);
}

// Legacy letters, bytes without a letter, and line ends of all kinds.
std::string legacyPage() {
  return "<HTML>\r\n<BODY>\xC0\xC1\xE4 \x81\x8D\n\x85 lone\r end</BODY>\r\n";
}

TEST_F(Generators, APageIsSavedAndMadeADocument) {
  const auto pages = folder / L"Pages";
  gui::Zervo zervo = open({file(L"old.html", legacyPage())});
  zervo.command(mnuMatrix);
  HWND form = gui::shownForm(L"frmMatrix");
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(form, IDC_frmMatrix_Cnew)));
  gui::press(form, IDC_frmMatrix_Csave);
  HWND box = gui::shownForm(L"frmBOXa");
  gui::fill(box, IDC_frmBOXa_Tanswer, L"ნიმუში");
  gui::press(box, IDC_frmBOXa_COK);
  const HWND list = GetDlgItem(form, IDC_frmMatrix_List1);
  gui::waitFor("the page", [&] { return SendMessageW(list, LB_GETCOUNT, 0, 0) == 1; });
  EXPECT_EQ(gui::readBytes(pages / L"ნიმუში.html"), legacyPage());
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmMatrix_Linfo), std::to_string(legacyPage().size()) + " ბაიტი");

  // The preview shows its lines and takes nothing.
  const HWND preview = GetDlgItem(form, IDC_frmMatrix_Tpreview);
  EXPECT_EQ(SendMessageW(preview, EM_GETLINECOUNT, 0, 0), 5);
  const std::string shown = gui::Dialog(form).text(IDC_frmMatrix_Tpreview);
  gui::setClipboard(L"pasted");
  SendMessageW(preview, WM_PASTE, 0, 0);
  SendMessageW(preview, WM_CHAR, L'x', 1);
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmMatrix_Tpreview), shown);

  // F2 renames.
  PostMessageW(list, WM_KEYDOWN, VK_F2, 1);
  box = gui::shownForm(L"frmBOXa");
  gui::fill(box, IDC_frmBOXa_Tanswer, L"one");
  gui::press(box, IDC_frmBOXa_COK);
  gui::waitFor("the new name", [&] { return std::filesystem::exists(pages / L"one.html"); });
  gui::press(form, IDC_frmMatrix_CEXIT);
  zervo.waitUntilFree();
  zervo.select(0, 0);
  zervo.type('x');

  zervo.command(mnuMatrix);
  form = gui::shownForm(L"frmMatrix");
  PostMessageW(GetDlgItem(form, IDC_frmMatrix_List1), WM_KEYDOWN, VK_RETURN, 1);
  gui::waitFor("the new document", [&] { return zervo.caption() == "Zervo [nosaved1.HTML]"; });
  zervo.waitUntilFree();
  zervo.command(mnuMatrix);
  form = gui::shownForm(L"frmMatrix");
  gui::press(form, IDC_frmMatrix_Csave);
  box = gui::shownForm(L"frmBOXa");
  gui::fill(box, IDC_frmBOXa_Tanswer, L"two.htm");
  gui::press(box, IDC_frmBOXa_COK);
  gui::waitFor("the second page", [&] { return gui::readBytes(pages / L"two.htm") == legacyPage(); });

  // Delete asks first.
  gui::press(form, IDC_frmMatrix_Cdelete);
  gui::press(gui::shownForm(L"frmBOXa"), IDC_frmBOXa_Cyes);
  gui::waitFor("the end of the page", [&] { return !std::filesystem::exists(pages / L"two.htm"); });
  EXPECT_TRUE(std::filesystem::exists(pages / L"one.html"));
  gui::press(form, IDC_frmMatrix_CEXIT);
  zervo.waitUntilFree();
}

}  // namespace
