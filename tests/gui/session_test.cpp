// A user's sessions with the real program: open, convert, switch, type, save, close.
#include <algorithm>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

// "რომელმან შექმნა" in a page, in the forms that the commands turn into each other. Letters of the legacy
// encoding as its table has them, references as Unicode numbers them.
const std::string kLegacyPage =
    "<P>\r\n\xD2\xCF\xCC\xC4\xCB\xCC\xC0\xCD \xDB\xC4\xD8\xCC\xCD\xC0\r\n</P>\r\n";
const std::string kReferencePage =
    "<P>\r\n&#4320;&#4317;&#4315;&#4308;&#4314;&#4315;&#4304;&#4316; "
    "&#4328;&#4308;&#4325;&#4315;&#4316;&#4304;\r\n</P>\r\n";
const std::string kUtf8Page = "<P>\r\nრომელმან შექმნა\r\n</P>\r\n";
const std::string kOtherPage = "<HTML>\r\n<BODY>other</BODY>\r\n</HTML>\r\n";

bool contains(const std::vector<std::string>& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

TEST_F(Session, TwoFilesOneConvertedAndSaved) {
  const auto page = file(L"page.html", kLegacyPage);
  const auto other = file(L"other.html", kOtherPage);
  Zervo zervo = open({page, other});
  zervo.waitForText(kOtherPage);
  const std::vector<std::string> expected = {"WEB Files", "  page.html", "  other.html",
                                             "Image",     "Audio",       "Other"};
  EXPECT_EQ(zervo.tree(), expected);
  EXPECT_EQ(zervo.caption(), "Zervo [" + utf8(other.wstring()) + "]");
  zervo.select(3, 5);

  zervo.clickNode("page.html");
  zervo.waitForText(kLegacyPage);
  EXPECT_EQ(zervo.caption(), "Zervo [" + utf8(page.wstring()) + "]");
  zervo.command(mnuQUIH);
  zervo.waitForText(kReferencePage);

  zervo.clickNode("other.html");
  zervo.waitForText(kOtherPage);
  EXPECT_EQ(zervo.selection(), (Range{3, 5}));

  zervo.clickNode("page.html");
  zervo.waitForText(kReferencePage);
  zervo.command(mnuQHIUTF);
  zervo.waitForText(kUtf8Page);
  EXPECT_TRUE(zervo.showsUtf8());
  zervo.command(mnuUndo);
  zervo.waitForText(kReferencePage);
  EXPECT_FALSE(zervo.showsUtf8());
  zervo.command(mnuRedo);
  zervo.waitForText(kUtf8Page);
  EXPECT_TRUE(zervo.showsUtf8());
  zervo.command(mnuSave);
  waitFor("the saved page", [&] { return readBytes(page) == kUtf8Page; });
  leave(zervo);
  EXPECT_EQ(readBytes(page), kUtf8Page);
  EXPECT_EQ(readBytes(other), kOtherPage);
}

TEST_F(Session, ClosePromptStaysSavesOrLeaves) {
  const auto page = file(L"page.html", kLegacyPage);
  const std::string question = "ფაილი შეიცვალა.\r\nგინდათ ცვლილებების დამახსოვრება?";
  Zervo zervo = open({page});
  zervo.waitForText(kLegacyPage);
  zervo.command(mnuQUIH);
  zervo.waitForText(kReferencePage);

  PostMessageW(zervo.window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(zervo.answer(IDC_frmBOXa_CEXIT), question);
  zervo.waitUntilFree();
  EXPECT_EQ(zervo.text(), kReferencePage);
  EXPECT_EQ(readBytes(page), kLegacyPage);

  zervo.command(mnuExit);
  EXPECT_EQ(zervo.answer(IDC_frmBOXa_Cyes), question);
  EXPECT_EQ(zervo.waitForEnd(), 0u);
  EXPECT_EQ(readBytes(page), kReferencePage);

  Zervo again = open({page});
  again.waitForText(kReferencePage);
  again.command(mnuQHIU);
  again.waitForText(kLegacyPage);
  again.command(mnuExit);
  EXPECT_EQ(again.answer(IDC_frmBOXa_Cno), question);
  EXPECT_EQ(again.waitForEnd(), 0u);
  EXPECT_EQ(readBytes(page), kReferencePage);
}

TEST_F(Session, SelectionCommandsReselectAndUndoComesBack) {
  const auto page = file(L"page.html", "tbilisi TbC\r\nabg");
  Zervo zervo = open({page});
  zervo.waitForText("tbilisi TbC\r\nabg");
  zervo.select(8, 11);
  zervo.command(mnumtubers);
  zervo.waitForText("tbilisi თბჩ\r\nabg");
  zervo.waitUntilFree();
  EXPECT_EQ(zervo.selection(), (Range{8, 17}));
  zervo.command(mnuUndo);
  zervo.waitForText("tbilisi TbC\r\nabg");

  zervo.select(13, 16);
  zervo.command(mnuUbendkopi);
  waitFor("the converted text on the clipboard", [] { return utf8(clipboard()).size() > 3; });
  zervo.command(mnuTkod);  // the whole text
  zervo.waitForText("\xD4\xC1\xC9\xCB\xC9\xD3\xC9 \xC8\xC1\xDC\r\n\xC0\xC1\xC2");
  zervo.command(mnuUndo);
  zervo.waitForText("tbilisi TbC\r\nabg");
}

TEST_F(Session, GeorgianUnicodeEntersInTheFormOfTheTypingMode) {
  Zervo zervo = open({file(L"page.txt", "")});
  zervo.waitForText("");
  setClipboard(L"ქართული, A\r\nჭა");
  zervo.command(mnuens1);
  zervo.command(mnuPaste);
  std::string expected = "\xD8\xC0\xD2\xC8\xD6\xCB\xC9, A\r\n\xE0\xC0";
  zervo.waitForText(expected);
  zervo.command(mnuens2);
  zervo.command(mnuPaste);
  zervo.waitForText(expected += "qarTuli, A\r\nWa");
  zervo.command(mnuens3);
  zervo.command(mnuPaste);
  EXPECT_NE(zervo.answer(IDC_frmBOXa_Cno).find("UTF-8"), std::string::npos);  // no byte is a letter here
  zervo.waitForText(expected += "ქართული, A\r\nჭა");

  for (const wchar_t key : {L'a', L'T', L'A'}) zervo.type(key);
  zervo.waitForText(expected += "aTA");
  zervo.command(mnuens1);
  zervo.waitUntilFree();
  for (const wchar_t key : {L'a', L'T', L'A', L'ღ'}) zervo.type(key);
  zervo.waitForText(expected +=
                    "\xC0\xC8"
                    "A\xD9");
  zervo.command(mnuens0);
  zervo.waitUntilFree();
  for (const wchar_t key : {L'A', L'q'}) zervo.type(key);
  zervo.waitForText(expected += "\xC0\xF7");
  zervo.command(mnuExit);
  zervo.answer(IDC_frmBOXa_Cno);
  zervo.waitForEnd();
}

TEST_F(Session, SaveAsAndOpenThroughTheDialogsInAGeorgianFolder) {
  const auto place = folder / L"ჩემი გვერდები";
  std::filesystem::create_directory(place);
  Zervo zervo = open();
  zervo.command(mnunewF);
  zervo.waitForText("<HTML>");
  zervo.command(mnuSaveas);
  zervo.waitForDialog().chooseFile(place / L"ახალი.html");
  waitFor("the new file", [&] { return readBytes(place / L"ახალი.html") == "<HTML>"; });
  zervo.waitUntilFree();
  EXPECT_EQ(zervo.caption(), "Zervo [" + utf8((place / L"ახალი.html").wstring()) + "]");

  writeBytes(place / L"მეორე.html", kLegacyPage);
  zervo.command(mnuOpen);
  zervo.waitForDialog().chooseFile(place / L"მეორე.html");
  zervo.waitForText(kLegacyPage);
  EXPECT_TRUE(contains(zervo.tree(), "  მეორე.html"));
  leave(zervo);
}

TEST_F(Session, WebProjectOpensAtItsStartPageAndNamesWhatIsMissing) {
  file(L"index.html", kOtherPage);
  file(L"second.html", kLegacyPage);
  file(L"logo.gif", "GIF89a");
  std::string gone;
  for (int i = 0; i < 40; ++i) gone += "gone" + std::to_string(i) + ".html\r\n";
  const auto project =
      file(L"site.WEB", "index.html\r\n\r\n" + gone + "logo.gif\r\nsecond.html\r\nSTOPF=second.html\r\n");
  Zervo zervo = open({project});
  // A list to scroll, from its first line on.
  const HWND box = shownForm(L"frmBOXa");
  const HWND list = GetDlgItem(box, IDC_frmBOXa_Tlist);
  EXPECT_NE(IsWindowVisible(list), FALSE);
  EXPECT_GT(SendMessageW(list, EM_GETLINECOUNT, 0, 0), 40);
  EXPECT_EQ(SendMessageW(list, EM_GETFIRSTVISIBLELINE, 0, 0), 0);
  const std::string message = zervo.answer(IDC_frmBOXa_COK);
  EXPECT_TRUE(message.starts_with("File not found."));
  EXPECT_NE(message.find("gone39.html"), std::string::npos);
  zervo.waitForText(kLegacyPage);
  const std::vector<std::string> expected = {"WEB Files",  "  index.html", "  second.html", "Image",
                                             "  logo.gif", "Audio",        "Other"};
  EXPECT_EQ(zervo.tree(), expected);
  zervo.command(mnuExit);
  EXPECT_EQ(zervo.answer(IDC_frmBOXa_Cyes), "პროექტი შეიცვალა.\r\n\r\nგინდა ცვლილებების დამახსოვრება?");
  zervo.waitForEnd();
  EXPECT_EQ(readBytes(project), "index.html\r\nlogo.gif\r\nsecond.html\r\nSTOPF=second.html\r\n");
}

TEST_F(Session, ASecondWindowIsAProgramOfItsOwn) {
  Zervo zervo = open({file(L"page.html", kOtherPage)});
  zervo.waitForText(kOtherPage);
  zervo.command(mnunewwind);
  HWND second = nullptr;
  waitFor("the second window", [&] {
    while ((second = FindWindowExW(nullptr, second, L"FrmH", nullptr)) != nullptr) {
      if (second != zervo.window() && IsWindowVisible(second)) return true;
    }
    return false;
  });
  DWORD process = 0;
  GetWindowThreadProcessId(second, &process);
  EXPECT_NE(process, GetCurrentProcessId());
  PostMessageW(second, WM_COMMAND, mnuExit, 0);
  waitFor("the second window to close", [&] { return !IsWindow(second); });
  EXPECT_TRUE(zervo.alive());
  leave(zervo);
}

}  // namespace
}  // namespace gui
