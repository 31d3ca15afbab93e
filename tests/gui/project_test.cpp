// Web projects and recent files in the real program.
#include "tests/gui/fixture.h"
// windows.h first
#include <commctrl.h>

namespace gui {
namespace {

using Lines = std::vector<std::string>;

const std::string kNewPage =
    "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
    "<TITLE>Index.HTML</TITLE>\r\n</HEAD>\r\n\r\n<BODY>\r\n\r\n</BODY>\r\n</HTML>\r\n";

int rows(HWND list) {
  return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

TEST_F(Session, AProjectIsMadeInTheDialogChangedSavedAndOpenedAgain) {
  const auto style = file(L"a.css", "B { color: red }");
  std::filesystem::create_directory(folder / L"საიტი");
  const auto site = folder / L"საიტი";
  const auto project = site / L"პროექტი.WEB";
  {
    Zervo zervo = open();
    zervo.command(mnunewWEB);
    const HWND form = shownForm(L"frmWEB");
    const HWND list = GetDlgItem(form, IDC_frmWEB_LV);
    fill(form, IDC_frmWEB_Tpname, L"პროექტი");
    fill(form, IDC_frmWEB_Twebpath, site.c_str());
    press(form, IDC_frmWEB_COK0);
    waitFor("the new page", [&] { return rows(list) == 2; });
    // F2 renames it; a name without extension keeps the old one.
    PostMessageW(list, WM_KEYDOWN, VK_F2, 1);
    HWND edit = nullptr;
    waitFor("the name field", [&] {
      return (edit = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETEDITCONTROL, 0, 0))) != nullptr;
    });
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"second"));
    PostMessageW(edit, WM_KEYDOWN, VK_RETURN, 1);
    waitFor("the end of naming", [&] { return IsWindow(edit) == FALSE; });
    press(form, IDC_frmWEB_COK1);
    Dialog dialog;
    waitFor("the open dialog", [&] {
      dialog = Dialog(FindWindowW(L"#32770", nullptr));
      return static_cast<bool>(dialog) && IsWindowVisible(dialog.window()) != FALSE;
    });
    dialog.chooseFile(style);
    waitFor("the style sheet", [&] { return rows(list) == 3; });
    press(form, IDC_frmWEB_COK4);
    zervo.waitForText(kNewPage);
    zervo.waitUntilFree();
    EXPECT_EQ(readBytes(project), "Index.HTML\r\nsecond.HTML\r\na.css\r\nSTOPF=Index.HTML\r\n");
    EXPECT_EQ(readBytes(site / L"Index.HTML"), kNewPage);
    EXPECT_NE(readBytes(site / L"second.HTML").find("<TITLE>second.HTML</TITLE>"), std::string::npos);
    EXPECT_EQ(readBytes(site / L"a.css"), "B { color: red }");
    EXPECT_EQ(readBytes(style), "B { color: red }");
    const Lines expected = {"WEB Files", "  Index.HTML", "  second.HTML", "  a.css",
                            "Image",     "Audio",        "Other"};
    EXPECT_EQ(zervo.tree(), expected);

    zervo.select(0, 0);
    zervo.type('x');
    zervo.waitForText("x" + kNewPage);
    zervo.command(mnuSave);
    waitFor("the saved page", [&] { return readBytes(site / L"Index.HTML") == "x" + kNewPage; });
    zervo.waitUntilFree();
    zervo.command(mnuSaveWEB);  // sorted, as the main window writes it
    waitFor("the saved project", [&] { return readBytes(project).starts_with("a.css"); });
    EXPECT_EQ(readBytes(project), "a.css\r\nIndex.HTML\r\nsecond.HTML\r\nSTOPF=Index.HTML\r\n");
    leave(zervo);
  }
  Zervo again = open({project});
  again.waitForText("x" + kNewPage);
  EXPECT_EQ(again.tree().size(), 7u);
  leave(again);
}

TEST_F(Session, RecentFilesOfTwoProgramsAreKeptAndOpened) {
  const auto one = file(L"one.htm", "1");
  const auto two = file(L"two.htm", "2");
  {
    Zervo first = open({one});
    Zervo second = open({two});
    first.waitForText("1");
    second.waitForText("2");
    const auto list = [&] { return readBytes(folder / L"recentF.ini"); };
    waitFor("both in the list", [&] {
      return list().find(utf8(one.wstring()) + "\r\n") != std::string::npos &&
             list().find(utf8(two.wstring()) + "\r\n") != std::string::npos;
    });
    leave(second);
    leave(first);
  }
  writeBytes(folder / L"recentF.ini", utf8(one.wstring()) + "\r\n" + utf8(two.wstring()) + "\r\n");
  Zervo zervo = open();
  zervo.command(mnurecentfile);
  HWND form = shownForm(L"frmrecentfile");
  const HWND entries = GetDlgItem(form, IDC_frmrecentfile_LV);
  ASSERT_EQ(rows(entries), 2);
  PostMessageW(entries, WM_KEYDOWN, VK_END, 1);
  waitFor("the last entry", [&] {
    return SendMessageW(entries, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) == 1;
  });
  SendMessageW(GetDlgItem(form, IDC_frmrecentfile_CKonstart), BM_CLICK, 0, 0);
  press(form, IDC_frmrecentfile_COK);
  zervo.waitForText("2");
  waitFor("the opened file at the top", [&] {
    return readBytes(folder / L"recentF.ini") == utf8(two.wstring()) + "\r\n" + utf8(one.wstring()) + "\r\n";
  });
  leave(zervo);

  writeBytes(folder / L"recentF.ini", std::string("\0\xFF\r\n\r\n|*?\n", 9));  // damaged
  Zervo again = open();
  form = shownForm(L"frmrecentfile");  // at start, as was wished
  press(form, IDC_frmrecentfile_CEXIT);
  leave(again);
}

}  // namespace
}  // namespace gui
