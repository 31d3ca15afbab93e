// The conversion of a page's letters, in the real program.
#include "tests/gui/fixture.h"

// After windows.h, which it needs.
#include <commctrl.h>

namespace {

using gui::Session;
using gui::waitFor;
using gui::Zervo;

class Letters : public Session {};

// Two words in the legacy letters, in a page with English and an address.
constexpr const char* kOld =
    "<html><head><title>\xC2\xC0\xCC\xC0\xD2\xE3\xCF\xC1\xC0</title></head>\r\n<body><font "
    "face=\"Geo_Times\">"
    "\xD3\xC0\xD8\xC0\xD2\xC8\xC5\xC4\xCB\xCF</font> <a href=\"page.htm\">English text "
    "here</a></body></html>\r\n";

TEST_F(Letters, APageIsLookedThroughAndConvertedAsOneStep) {
  const auto path = file(L"old.htm", kOld);
  Zervo zervo = open({path});
  zervo.waitForText(kOld);
  zervo.waitUntilFree();
  zervo.select(60, 60);
  zervo.command(mnuletters);
  HWND form = gui::shownForm(L"frmletters");
  // The space bar takes the tick of the second text away, and with it the word about its font; and back.
  const HWND list = GetDlgItem(form, IDC_frmletters_LV);
  const auto sum = [&] {
    wchar_t text[200] = L"";
    SendMessageW(GetDlgItem(form, IDC_frmletters_Lsum), WM_GETTEXT, 200, reinterpret_cast<LPARAM>(text));
    return gui::utf8(text);
  };
  const auto rows = [&] { return SendMessageW(list, LVM_GETITEMCOUNT, 0, 0); };
  const LRESULT all = rows();
  EXPECT_EQ(sum(), "გადაიყვანება 2 ტექსტი");
  SendMessageW(list, WM_KEYDOWN, VK_DOWN, 1);
  SendMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
  waitFor("one text less", [&] { return sum() == "გადაიყვანება 1 ტექსტი"; });
  EXPECT_EQ(rows(), all - 2) << "the font and its heading";
  SendMessageW(list, WM_KEYDOWN, VK_SPACE, 1);
  waitFor("both texts", [&] { return sum() == "გადაიყვანება 2 ტექსტი"; });
  EXPECT_EQ(rows(), all);
  gui::press(form, IDC_frmletters_COK);
  waitFor("the new letters", [&] { return zervo.text() != kOld; });
  zervo.waitUntilFree();
  const std::string text = zervo.text();
  EXPECT_NE(text.find("<title>გამარჯობა</title>"), std::string::npos) << text;
  EXPECT_NE(text.find("საქართველო"), std::string::npos) << text;
  EXPECT_NE(text.find("<a href=\"page.htm\">English text here</a>"), std::string::npos) << text;
  EXPECT_EQ(text.find("Geo_Times"), std::string::npos) << text;
  EXPECT_TRUE(zervo.showsUtf8());
  zervo.command(mnuSave);
  waitFor("the file", [&] { return gui::readBytes(path) == text; });
  zervo.command(mnuUndo);
  zervo.waitForText(kOld);
  waitFor("the old view", [&] { return !zervo.showsUtf8(); });
  zervo.command(mnuRedo);
  zervo.waitForText(text);

  // Again: nothing is left to do, and the window says so.
  zervo.command(mnuletters);
  form = gui::shownForm(L"frmletters");
  EXPECT_FALSE(IsWindowEnabled(GetDlgItem(form, IDC_frmletters_COK)));
  gui::press(form, IDC_frmletters_CEXIT);
  zervo.waitForText(text);
  zervo.command(mnuSave);
  leave(zervo);
}

}  // namespace
