// The CSS style builder in the real program.
#include "tests/gui/fixture.h"
// windows.h first
#include <commctrl.h>

namespace {

using Styles = gui::Session;

// As a click on a row of the list or drop-down list does.
void choose(HWND form, int list, UINT select, int row, int code) {
  const HWND window = GetDlgItem(form, list);
  SendMessageW(window, select, static_cast<WPARAM>(row), 0);
  SendMessageW(form, WM_COMMAND, static_cast<WPARAM>(MAKELONG(list, code)), reinterpret_cast<LPARAM>(window));
}

int chosen(HWND form) {
  return static_cast<int>(SendMessageW(GetDlgItem(form, IDC_frmCSSstile_LV), LVM_GETNEXTITEM,
                                       static_cast<WPARAM>(-1), LVNI_SELECTED));
}

TEST_F(Styles, ARuleAndAnAttributeAreEditedWithListsAndFields) {
  const std::string page =
      "<STYLE>\r\nP { *zoom: 1; color: red } /* \xC0 */\r\n</STYLE>\r\n<P Style='margin:0'>\r\n";
  gui::Zervo zervo = open({file(L"page.html", page)});
  zervo.select(13, 13);
  zervo.command(mnuCSSstile);
  HWND form = gui::shownForm(L"frmCSSstile");
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmCSSstile_Tselector), "P");
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmCSSstile_Tvalue), "1");
  const HWND list = GetDlgItem(form, IDC_frmCSSstile_LV);
  PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
  gui::waitFor("the second property",
               [&] { return gui::Dialog(form).text(IDC_frmCSSstile_Tvalue) == "red"; });
  gui::fill(form, IDC_frmCSSstile_Tvalue, L"navy");
  EXPECT_EQ(chosen(form), 1);  // the list follows without losing its row
  choose(form, IDC_frmCSSstile_List1, LB_SETCURSEL, 1, LBN_SELCHANGE);
  PostMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
  gui::waitFor("the size", [&] { return chosen(form) == 1; });
  gui::fill(form, IDC_frmCSSstile_Tvalue, L"12");
  choose(form, IDC_frmCSSstile_CBunit, CB_SETCURSEL, 1, CBN_SELCHANGE);
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmCSSstile_Tvalue), "12pt");
  SendMessageW(GetDlgItem(form, IDC_frmCSSstile_CKimportant), BM_CLICK, 0, 0);
  EXPECT_EQ(gui::Dialog(form).text(IDC_frmCSSstile_Tpreview),
            "P { *zoom: 1; color: navy; font-size: 12pt !important }");
  gui::press(form, IDC_frmCSSstile_COK);
  const std::string styled =
      "<STYLE>\r\nP { *zoom: 1; color: navy; font-size: 12pt !important } /* \xC0 */\r\n</STYLE>\r\n"
      "<P Style='margin:0'>\r\n";
  zervo.waitForText(styled);
  zervo.waitUntilFree();
  zervo.command(mnuUndo);
  zervo.waitForText(page);

  const int tag = static_cast<int>(page.find("<P Style"));
  zervo.select(tag + 1, tag + 1);
  zervo.command(mnuCSSstile);
  form = gui::shownForm(L"frmCSSstile");
  EXPECT_EQ(IsWindowEnabled(GetDlgItem(form, IDC_frmCSSstile_Tselector)), FALSE);
  gui::fill(form, IDC_frmCSSstile_Tvalue, L"1px; }");
  gui::press(form, IDC_frmCSSstile_COK);
  const gui::Dialog box(gui::shownForm(L"frmBOXa"));
  EXPECT_NE(box.boxText().find("margin: 1px; }"), std::string::npos);
  box.press(IDC_frmBOXa_COK);
  gui::waitFor("the form again", [&] { return IsWindowEnabled(form) != FALSE; });
  gui::fill(form, IDC_frmCSSstile_Tvalue, L"1px 'a'");
  gui::press(form, IDC_frmCSSstile_COK);
  std::string changed = page;
  zervo.waitForText(changed.replace(changed.find("margin:0"), 8, "margin:1px \"a\""));
  zervo.waitUntilFree();
  zervo.command(mnuUndo);
  zervo.waitForText(page);
}

}  // namespace
