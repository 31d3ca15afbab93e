// The options dialog in the real program, and the settings file it writes.
#include "tests/gui/fixture.h"
// windows.h first
#include <commctrl.h>

namespace {

using gui::fill;
using gui::press;
using gui::shownForm;

class Options : public gui::Session {
 protected:
  static HWND options(const gui::Zervo& zervo) {
    zervo.waitUntilFree();
    zervo.command(mnuproperties);
    return shownForm(L"frmproperties");
  }
  static HWND field(HWND form, int id) { return GetDlgItem(form, id); }
  static void page(HWND form, int number) {
    SendMessageW(field(form, IDC_frmproperties_Tabs), TCM_SETCURFOCUS, static_cast<WPARAM>(number), 0);
  }
  static void tick(HWND form, int id) { SendMessageW(field(form, id), BM_CLICK, 0, 0); }
  static bool ticked(HWND form, int id) {
    return SendMessageW(field(form, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
  }
  static bool seen(HWND form, int id) { return IsWindowVisible(field(form, id)) != FALSE; }
  static void choose(HWND form, int id, const wchar_t* name) {
    const HWND box = field(form, id);
    const LRESULT row =
        SendMessageW(box, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(name));
    ASSERT_GE(row, 0);
    SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    SendMessageW(form, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
  }
  static void leave(HWND form, int button) {
    press(form, button);
    gui::waitFor("the end of the dialog", [&] { return IsWindow(form) == FALSE; });
  }
  // Presses the button of the form; the message that comes up, after it was read.
  static std::string complaint(HWND form, int button) {
    press(form, button);
    const gui::Dialog box(shownForm(L"frmBOXa"));
    const std::string text = box.boxText();
    box.press(IDC_frmBOXa_COK);
    gui::waitFor("the options", [form] { return IsWindowEnabled(form) != FALSE; });
    return text;
  }
  std::string settings() const { return gui::readBytes(folder / L"props.ini"); }
};

TEST_F(Options, WhatIsSetIsWrittenAndThereAtTheNextStart) {
  {
    gui::Zervo zervo = open();
    const HWND form = options(zervo);
    EXPECT_TRUE(seen(form, IDC_frmproperties_CKmaximized));
    EXPECT_FALSE(seen(form, IDC_frmproperties_Tsize));
    page(form, 1);
    EXPECT_FALSE(seen(form, IDC_frmproperties_CKmaximized));
    EXPECT_TRUE(seen(form, IDC_frmproperties_Tsize));
    EXPECT_TRUE(seen(form, IDC_frmproperties_COK));
    choose(form, IDC_frmproperties_CBfont, L"Zervo ASCII");
    fill(form, IDC_frmproperties_Tsize, L"17");
    tick(form, IDC_frmproperties_CKbold);
    page(form, 3);
    tick(form, IDC_frmproperties_CKheader);
    fill(form, IDC_frmproperties_Theader, L"სათაური\r\n<META>");
    page(form, 4);
    fill(form, IDC_frmproperties_Ttimeout, L"45");
    press(form, IDC_frmproperties_Capply);
    gui::waitFor("the settings file", [&] { return !settings().empty(); });
    EXPECT_NE(IsWindowVisible(form), FALSE);
    EXPECT_NE(settings().find("სათაური\r\n<META>"), std::string::npos);
    leave(form, IDC_frmproperties_CEXIT);
    Session::leave(zervo);
  }
  const std::string written = settings();
  gui::Zervo zervo = open();
  const HWND form = options(zervo);
  const gui::Dialog dialog(form);
  EXPECT_EQ(dialog.text(IDC_frmproperties_Tsize), "17");
  EXPECT_EQ(dialog.text(IDC_frmproperties_CBfont), "Zervo ASCII");
  EXPECT_TRUE(ticked(form, IDC_frmproperties_CKbold));
  EXPECT_FALSE(ticked(form, IDC_frmproperties_CKitalic));
  EXPECT_EQ(dialog.text(IDC_frmproperties_Ttimeout), "45");
  leave(form, IDC_frmproperties_COK);
  EXPECT_EQ(settings(), written);
  Session::leave(zervo);
}

TEST_F(Options, WhatIsWrongOrCannotBeWrittenKeepsTheDialogOpen) {
  gui::Zervo zervo = open();
  const HWND form = options(zervo);
  fill(form, IDC_frmproperties_Ttimeout, L"3");
  EXPECT_NE(complaint(form, IDC_frmproperties_COK).find("600"), std::string::npos);
  gui::waitFor("the page of the wrong field", [&] { return seen(form, IDC_frmproperties_Ttimeout); });
  fill(form, IDC_frmproperties_Ttimeout, L"30");
  gui::writeBytes(folder / L"props.ini", "somebody else's");
  SetFileAttributesW((folder / L"props.ini").c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_NE(complaint(form, IDC_frmproperties_COK).find("props.ini"), std::string::npos);
  EXPECT_EQ(settings(), "somebody else's");
  EXPECT_NE(IsWindowVisible(form), FALSE);
  SetFileAttributesW((folder / L"props.ini").c_str(), FILE_ATTRIBUTE_NORMAL);
  leave(form, IDC_frmproperties_COK);
  EXPECT_EQ(settings().substr(0, 4), "ZRVP");
  Session::leave(zervo);
}

}  // namespace
