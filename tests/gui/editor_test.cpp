// HTML editing in the real program: colours in the control, tags from list, menu and toolbar.
#include "tests/gui/fixture.h"
// windows.h first
#include <commctrl.h>

namespace gui {
namespace {

const std::string kPage =
    "<A HREF=\"x\">y</A>\r\n<!-- \xD2\xCF -->{\\}\r\n<TD WIDTH=5 Align=c>\r\nNAME=z\r\n\r\n";

void key(const Zervo& zervo, UINT message, int code) {
  PostMessageW(zervo.control(IDC_FrmH_T1), message, static_cast<WPARAM>(code), 1);
}

// One letter a byte: Black, bLue, Red, Green.
std::string colors(const Zervo& zervo, int count) {
  std::string letters;
  for (int i = 0; i < count; ++i) {
    const COLORREF color = zervo.textColor(i);
    letters += color == RGB(0, 0, 0)      ? 'B'
               : color == RGB(0, 0, 255)  ? 'L'
               : color == RGB(255, 0, 0)  ? 'R'
               : color == RGB(0, 150, 50) ? 'G'
                                          : '?';
  }
  return letters;
}

TEST_F(Session, ColoursComeWithF12AndGoWithAnyKey) {
  const auto page = file(L"page.html", kPage);
  Zervo zervo = open({page});
  zervo.waitForText(kPage);
  const std::string black(20, 'B');
  EXPECT_EQ(colors(zervo, 20), black);
  zervo.select(20, 21);
  zervo.type('!');
  zervo.waitForText(kPage.substr(0, 20) + "!" + kPage.substr(21));
  zervo.command(mnuUndo);
  zervo.waitForText(kPage);

  zervo.select(2, 7);
  key(zervo, WM_KEYUP, VK_F12);
  waitFor("the selection", [&] { return zervo.selection() == Range{2, 7}; });
  EXPECT_EQ(zervo.text(), kPage);
  const std::string expected =
      "LL"
      "RRRRRR"
      "BBB"
      "L"
      "B"
      "LLLL"
      "BB"
      "GGGG"
      "GGG"
      "GGG"
      "L"
      "BBB"
      "BB"
      "LLL"
      "RRRRRRR"
      "B"
      "BBBBBBBB"
      "L"
      "BB"
      "BBBBBB"
      "BB";
  std::string seen;
  waitFor("colours", [&] { return (seen = colors(zervo, 17)) == expected.substr(0, 17); });
  EXPECT_EQ(colors(zervo, static_cast<int>(expected.size())), expected);

  zervo.select(2, 7);
  key(zervo, WM_KEYDOWN, VK_SHIFT);
  waitFor("black text", [&] { return colors(zervo, 20) == black; });
  EXPECT_EQ(zervo.text(), kPage);
  zervo.command(mnuRedo);  // the history outlived the colours
  zervo.waitForText(kPage.substr(0, 20) + "!" + kPage.substr(21));
  zervo.command(mnuUndo);
  zervo.waitForText(kPage);
}

// Lone CR and LF are line ends of one byte, which commands must not count as two.
TEST_F(Session, EditsAmongMixedLineEndsChangeNothingElse) {
  std::string page = "one\r\nMac line\rUnix line\nWin line\r\nLAST <B>x</B>\r\nend\r\n";
  const auto path = file(L"page.html", page);
  Zervo zervo = open({path});
  zervo.waitForText(page);
  const auto select = [&](const std::string& words) {
    const int at = static_cast<int>(page.find(words));
    zervo.select(at, at + static_cast<int>(words.size()));
  };
  select("Unix line");
  key(zervo, WM_KEYDOWN, VK_DELETE);
  zervo.waitForText(page.replace(page.find("Unix line"), 9, ""));
  for (const std::string word : {"LAST", "one"}) {
    select(word);
    zervo.command(PHTbar);
    zervo.waitForText(page.replace(page.find(word), word.size(), "<B>" + word + "</B>"));
  }
  zervo.command(mnuSave);
  waitFor("the saved page", [&] { return readBytes(path) == page; });
  leave(zervo);
}

TEST_F(Session, TagsAreInsertedAroundTheSelection) {
  Zervo zervo = open({file(L"page.html", "a word b")});
  zervo.waitForText("a word b");
  zervo.select(2, 6);
  zervo.command(PHTbar);
  zervo.waitForText("a <B>word</B> b");
  zervo.command(mnuH3);
  zervo.waitForText("a <B><H3>word</H3></B> b");

  zervo.command(mnutags);
  HWND list = nullptr;
  waitFor("the tag list",
          [&] { return (list = FindWindowW(L"frmTags", nullptr)) != nullptr && IsWindowVisible(list); });
  EXPECT_EQ(SendMessageW(GetDlgItem(list, IDC_frmTags_List1), LB_GETCOUNT, 0, 0), 93);
  for (const wchar_t letter : std::wstring(L"big")) {
    PostMessageW(GetDlgItem(list, IDC_frmTags_Tsearch), WM_CHAR, letter, 1);
  }
  waitFor("BIG", [&] { return SendMessageW(GetDlgItem(list, IDC_frmTags_List1), LB_GETCURSEL, 0, 0) == 12; });
  PostMessageW(GetDlgItem(list, IDC_frmTags_Tsearch), WM_KEYDOWN, VK_RETURN, 1);
  zervo.waitForText("a <B><H3><BIG>word</BIG></H3></B> b");
  EXPECT_EQ(zervo.selection(), (Range{14, 18}));
}

HWND focusOf(const Zervo& zervo) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(zervo.window(), nullptr), &info);
  return info.hwndFocus;
}

TEST_F(Session, ToolbarWorksWithKeysAlone) {
  Zervo zervo = open({file(L"page.html", "word")});
  zervo.waitForText("word");
  zervo.select(0, 4);
  const HWND bar = FindWindowExW(zervo.window(), nullptr, TOOLBARCLASSNAMEW, nullptr);
  ASSERT_NE(bar, nullptr);
  EXPECT_EQ(SendMessageW(bar, TB_BUTTONCOUNT, 0, 0), 5 + 1 + 28 + 1);  // a gap and the chevron among them
  EXPECT_EQ(SendMessageW(bar, TB_GETBUTTONSIZE, 0, 0), MAKELONG(24, 24));
  const HWND view = zervo.control(IDC_FrmH_T1);
  SetForegroundWindow(zervo.window());
  waitFor("the focus in the code view", [&] { return focusOf(zervo) == view; });
  PostMessageW(view, WM_KEYDOWN, VK_F6, 1);
  waitFor("the focus in the tree", [&] { return focusOf(zervo) == zervo.control(IDC_FrmH_TV); });
  PostMessageW(focusOf(zervo), WM_KEYDOWN, VK_F6, 1);
  waitFor("the focus in the palette", [&] { return focusOf(zervo) == zervo.control(IDC_FrmH_Ltags); });
  PostMessageW(focusOf(zervo), WM_KEYDOWN, VK_F6, 1);
  waitFor("the focus in the toolbar", [&] { return focusOf(zervo) == bar; });
  // Round to the fifth one that can be pressed: nothing is there to undo.
  for (const int pressed : {VK_END, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_RETURN}) {
    PostMessageW(bar, WM_KEYDOWN, static_cast<WPARAM>(pressed), 1);
  }
  zervo.waitForText("<I>word</I>");
  waitFor("the focus back in the code view", [&] { return focusOf(zervo) == view; });
}

TEST_F(Session, LineToolsListReplaceEntitiesAndAttributesChangeThePage) {
  const std::string start = "<P ALIGN=left>one two three four<BR>";
  Zervo zervo = open({file(L"page.html", start)});
  zervo.waitForText(start);

  zervo.select(3, 3);
  zervo.command(mnutagkod);
  HWND form = shownForm(L"frmkod");
  fill(form, IDC_frmkod_Tname, L"CLASS");
  fill(form, IDC_frmkod_Tvalue, L"x y");
  press(form, IDC_frmkod_Cadd);
  press(form, IDC_frmkod_COK);
  std::string page = "<P ALIGN=left CLASS=\"x y\">one two three four<BR>";
  zervo.waitForText(page);

  zervo.select(0, 0);
  zervo.command(mnulinelength);
  form = shownForm(L"frmBOXa");
  fill(form, IDC_frmBOXa_Tanswer, L"12");
  press(form, IDC_frmBOXa_COK);
  zervo.waitForText("<P ALIGN=left CLASS=\"x y\">one\r\ntwo three\r\nfour<BR>");
  zervo.command(mnuUndo);  // one step
  zervo.waitForText(page);

  zervo.command(mnuparzuch);
  form = shownForm(L"frmxascvla");
  for (const auto& [find, replace] : {std::pair{L"one", L"two"}, {L"two", L"one"}}) {
    fill(form, IDC_frmxascvla_Tfind, find);
    fill(form, IDC_frmxascvla_Treplace, replace);
    SendMessageW(GetDlgItem(form, IDC_frmxascvla_Cadd), BM_CLICK, 0, 0);  // done before the next is filled in
  }
  press(form, IDC_frmxascvla_COK);
  page = "<P ALIGN=left CLASS=\"x y\">two one three four<BR>";
  zervo.waitForText(page);
  EXPECT_NE(Dialog(form).text(IDC_frmxascvla_Lresult).find("2"), std::string::npos);
  press(form, IDC_frmxascvla_CEXIT);
  waitFor("the end of the form", [&] { return IsWindow(form) == FALSE; });

  zervo.select(0, 3);
  zervo.command(mnuasos);
  form = shownForm(L"frmasos");
  press(form, IDC_frmasos_Cencode);
  zervo.waitForText("&lt;P " + page.substr(3));
  zervo.command(mnuUndo);
  zervo.waitForText(page);
}

TEST_F(Session, EveryWindowOfTheEditorOpensAndCloses) {
  Zervo zervo = open({file(L"page.html", "<P ALIGN=left>text")});
  zervo.waitForText("<P ALIGN=left>text");
  zervo.select(3, 3);
  const std::tuple<int, const wchar_t*, int> windows[] = {{mnutags, L"frmTags", IDC_frmTags_MBexit},
                                                          {mnutagkod, L"frmkod", IDC_frmkod_CEXIT},
                                                          {mnuabzac, L"frmabzac", IDC_frmabzac_CEXIT},
                                                          {mnuasos, L"frmasos", IDC_frmasos_CEXIT},
                                                          {mnuparzuch, L"frmxascvla", IDC_frmxascvla_CEXIT}};
  for (const auto& [command, name, button] : windows) {
    zervo.command(command);
    HWND window = shownForm(name);
    press(window, button);
    waitFor("the end of " + utf8(name), [&] { return IsWindow(window) == FALSE; });
  }
  EXPECT_EQ(zervo.text(), "<P ALIGN=left>text");
  leave(zervo);
}

}  // namespace
}  // namespace gui
