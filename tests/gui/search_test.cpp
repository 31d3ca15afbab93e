// The find dialog of the real program: typed into, pressed, clicked, and stepped with keys.
#include "tests/gui/fixture.h"

namespace gui {
namespace {

class FindDialog {
 public:
  explicit FindDialog(const Zervo& zervo) : zervo_(zervo) {
    zervo.command(mnusuch);
    waitFor("the find dialog", [this] { return (window_ = open()) != nullptr; });
  }

  HWND control(int id) const { return GetDlgItem(window_, id); }
  std::string text(int id) const { return Dialog(window_).text(id); }
  bool visible(int id) const { return IsWindowVisible(control(id)) != FALSE; }
  void press(int id) const { PostMessageW(control(id), BM_CLICK, 0, 0); }
  void key(int field, int key) const {
    PostMessageW(control(field), WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  }
  void type(int field, const std::wstring& letters) const {
    SendMessageW(control(field), EM_SETSEL, 0, -1);
    for (const wchar_t letter : letters) PostMessageW(control(field), WM_CHAR, letter, 1);
  }
  void clickRow(int row) const {
    RECT place;
    SendMessageW(control(IDC_frmsuch_List1), LB_GETITEMRECT, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&place));
    const LPARAM middle = MAKELPARAM(20, (place.top + place.bottom) / 2);
    PostMessageW(control(IDC_frmsuch_List1), WM_LBUTTONDOWN, MK_LBUTTON, middle);
    PostMessageW(control(IDC_frmsuch_List1), WM_LBUTTONUP, 0, middle);
  }
  std::vector<std::string> rows() const {
    std::vector<std::string> all;
    const LRESULT count = SendMessageW(control(IDC_frmsuch_List1), LB_GETCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) {
      wchar_t line[100] = {};
      SendMessageW(control(IDC_frmsuch_List1), LB_GETTEXT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(line));
      all.push_back(utf8(line));
    }
    return all;
  }
  int height() const {
    RECT frame;
    GetWindowRect(window_, &frame);
    return frame.bottom - frame.top;
  }
  void waitForInfo(const std::string& wanted) const {
    waitFor("\"" + wanted + "\", not \"" + text(IDC_frmsuch_lbinf) + "\"",
            [&] { return text(IDC_frmsuch_lbinf) == wanted; });
  }
  void waitForSelection(int start, int end) const {
    waitFor("the selection " + std::to_string(start) + " to " + std::to_string(end), [&] {
      return zervo_.selection() == Range{start, end};
    });
  }
  RECT place() const {
    RECT frame;
    GetWindowRect(window_, &frame);
    return frame;
  }
  bool isOpen() const { return IsWindow(window_) != FALSE; }

 private:
  HWND open() const {
    const HWND found = FindWindowW(L"frmsuch", nullptr);
    return found != nullptr && IsWindowVisible(found) != FALSE ? found : nullptr;
  }
  const Zervo& zervo_;
  HWND window_ = nullptr;
};

TEST_F(Session, TheFindWindowGoesAsideForItsHit) {
  const std::string line = std::string(30, '.') + "hit\n";
  std::string page;
  for (int i = 0; i < 30; ++i) page += line;
  Zervo zervo = open({file(L"page.html", page)});
  FindDialog dialog(zervo);
  dialog.type(IDC_frmsuch_Text1, L"hit");
  const RECT before = dialog.place();
  for (int start = 30; start < static_cast<int>(page.size()); start += static_cast<int>(line.size())) {
    dialog.key(IDC_frmsuch_Text1, VK_F3);
    dialog.waitForSelection(start, start + 3);
  }
  waitFor("another place",
          [&] { return dialog.place().left != before.left || dialog.place().top != before.top; });
}

TEST_F(Session, FindsListsAndReplacesInAllOpenFiles) {
  const auto first = file(L"first.html", "one two one\r\nTwo one");
  const auto second = file(L"second.html", "a one\r\nand one");
  Zervo zervo = open({first, second});
  zervo.waitForText("a one\r\nand one");
  FindDialog dialog(zervo);
  EXPECT_FALSE(dialog.visible(IDC_frmsuch_List1));
  EXPECT_EQ(dialog.text(IDC_frmsuch_CHK), "&მხოლოდ მთლიანი სიტყვა");

  dialog.type(IDC_frmsuch_Text1, L"one|>two");
  waitFor("the typed text", [&] { return dialog.text(IDC_frmsuch_Text1) == "one|>two"; });
  EXPECT_FALSE(IsWindowEnabled(dialog.control(IDC_frmsuch_Calcvla)));
  dialog.press(IDC_frmsuch_MBAlfind);
  dialog.waitForInfo("2 ნაპოვნია");
  EXPECT_EQ(dialog.rows(), (std::vector<std::string>{"ნაპოვნი # 1", "ნაპოვნი # 2"}));
  EXPECT_TRUE(dialog.visible(IDC_frmsuch_List1));
  EXPECT_EQ(dialog.height(), MulDiv(7365, static_cast<int>(GetDpiForWindow(zervo.window())), 1440));

  dialog.press(IDC_frmsuch_CKalfil);
  dialog.press(IDC_frmsuch_MBAlfind);
  dialog.waitForInfo("7 ნაპოვნია");
  dialog.clickRow(2);  // the third of the first file
  zervo.waitForText("one two one\r\nTwo one");
  dialog.waitForSelection(17, 20);
  dialog.clickRow(4);  // "Two": the second term's hits stand behind those of the first
  dialog.waitForSelection(13, 16);

  // A new pass from the start, stepped by key, over the end of the document.
  zervo.select(0, 0);
  for (const auto& [start, end] : {std::pair{0, 3}, {4, 7}, {8, 11}, {13, 16}, {17, 20}, {2, 5}}) {
    // The field takes line ends only from the menu: Enter is the default button's.
    dialog.key(IDC_frmsuch_Text1, start % 8 == 0 ? VK_RETURN : VK_F3);
    dialog.waitForSelection(start, end);
  }
  EXPECT_EQ(dialog.text(IDC_frmsuch_Text1), "one|>two");
  zervo.waitForText("a one\r\nand one");

  dialog.type(IDC_frmsuch_Text1, L"one");
  waitFor("the buttons", [&] { return IsWindowEnabled(dialog.control(IDC_frmsuch_Calcvla)) != FALSE; });
  dialog.type(IDC_frmsuch_Tcvla, L"1");
  waitFor("the typed text", [&] { return dialog.text(IDC_frmsuch_Tcvla) == "1"; });
  dialog.press(IDC_frmsuch_Calcvla);
  dialog.waitForInfo("5 შეიცვალა");
  zervo.waitForText("a 1\r\nand 1");
  zervo.command(mnuUndo);
  zervo.waitForText("a one\r\nand one");
  zervo.clickNode("first.html");
  zervo.waitForText("1 two 1\r\nTwo 1");
  zervo.command(mnuundoreplace);
  zervo.waitForText("one two one\r\nTwo one");

  dialog.type(IDC_frmsuch_Text1, L"nowhere");
  waitFor("the typed text", [&] { return dialog.text(IDC_frmsuch_Text1) == "nowhere"; });
  dialog.press(IDC_frmsuch_Czuch);
  EXPECT_EQ(zervo.answer(IDC_frmBOXa_COK), "ძებნა დამთავრდა.\r\n\r\nმეტი არაა!!  ");
  dialog.key(IDC_frmsuch_Tcvla, VK_ESCAPE);
  waitFor("the dialog to close", [&] { return !dialog.isOpen(); });
}

TEST_F(Session, GeorgianTypingWorksInTheFindField) {
  Zervo zervo = open({file(L"page.html", "\xC0\xC1 x")});
  zervo.waitForText("\xC0\xC1 x");
  zervo.command(mnuens1);
  FindDialog dialog(zervo);
  dialog.type(IDC_frmsuch_Text1, L"ab");
  waitFor("the letters of the legacy font", [&] { return dialog.text(IDC_frmsuch_Text1) == "ÀÁ"; });
  dialog.key(IDC_frmsuch_Text1, VK_F3);
  dialog.waitForSelection(0, 2);
}

}  // namespace
}  // namespace gui
