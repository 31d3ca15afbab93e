// The main window as the user arranges it, and what every window owes to those who do without mouse or sight.
#include "tests/gui/fixture.h"

// After windows.h, which it needs.
#include <commctrl.h>

#include <algorithm>
#include <map>
#include <set>

namespace {

using gui::Session;
using gui::waitFor;
using gui::Zervo;

class Window : public Session {
 protected:
  static int widthOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return static_cast<int>(place.right - place.left);
  }
  static bool shown(const Zervo& zervo, int id) { return IsWindowVisible(zervo.control(id)) != FALSE; }
  static LRESULT tabs(const Zervo& zervo) {
    return SendMessageW(zervo.control(IDC_FrmH_TS), TCM_GETITEMCOUNT, 0, 0);
  }
};

TEST_F(Window, PanesStayAsTheUserLeftThem) {
  int width = 0;
  {
    Zervo zervo = open();
    zervo.waitUntilFree();
    RECT tree, client;
    GetWindowRect(zervo.control(IDC_FrmH_TV), &tree);
    MapWindowPoints(nullptr, zervo.window(), reinterpret_cast<POINT*>(&tree), 2);
    GetClientRect(zervo.window(), &client);
    const LONG y = client.bottom / 2;
    SendMessageW(zervo.window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(tree.right + 2, y));
    SendMessageW(zervo.window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(tree.right + 62, y));
    SendMessageW(zervo.window(), WM_LBUTTONUP, 0, MAKELPARAM(tree.right + 62, y));
    width = widthOf(zervo.control(IDC_FrmH_TV));
    EXPECT_GT(width, tree.right - tree.left + 50);
    zervo.command(mnuTagPalette);
    waitFor("the palette to go", [&] { return !shown(zervo, IDC_FrmH_Ltags); });
    leave(zervo);
  }
  {
    Zervo zervo = open();
    zervo.waitUntilFree();
    EXPECT_EQ(widthOf(zervo.control(IDC_FrmH_TV)), width);
    EXPECT_FALSE(shown(zervo, IDC_FrmH_Ttags));
    zervo.command(mnuTagPalette);
    waitFor("the palette to come", [&] { return shown(zervo, IDC_FrmH_Ltags); });
    leave(zervo);
  }
}

TEST_F(Window, PaletteMarksAndTabsWorkTogether) {
  Zervo zervo = open({file(L"a.html", "Alpha"), file(L"b.html", "Beta")});
  zervo.waitForText("Beta");
  const std::string name = zervo.caption();
  EXPECT_EQ(tabs(zervo), 2);
  zervo.select(0, 4);
  const HWND list = zervo.control(IDC_FrmH_Ltags);
  const auto row =
      SendMessageW(list, LB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(L"CENTER"));
  ASSERT_GE(row, 0);
  SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
  const auto tell = [&](WORD code) {
    SendMessageW(zervo.window(), WM_COMMAND, MAKEWPARAM(IDC_FrmH_Ltags, code),
                 reinterpret_cast<LPARAM>(list));
  };
  tell(LBN_SELCHANGE);
  tell(LBN_DBLCLK);
  zervo.waitForText("<CENTER>Beta</CENTER>");
  waitFor("the mark", [&] { return zervo.caption() == name + " *"; });
  zervo.command(mnuSave);
  waitFor("the mark to go", [&] { return zervo.caption() == name; });
  zervo.waitUntilFree();

  const HWND strip = zervo.control(IDC_FrmH_TS);
  SendMessageW(strip, WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(10, 10));
  SendMessageW(strip, WM_MBUTTONUP, 0, MAKELPARAM(10, 10));
  waitFor("the tab to close", [&] { return tabs(zervo) == 1; });
  EXPECT_EQ(zervo.text(), "<CENTER>Beta</CENTER>");
  leave(zervo);
}

// A control of a dialog as a screen reader meets it.
struct Met {
  HWND window;
  std::wstring kind;
  std::wstring text;
  std::wstring label;  // the static text right before it
};

std::wstring textOf(HWND window) {
  wchar_t text[256] = L"";
  SendMessageTimeoutW(window, WM_GETTEXT, 256, reinterpret_cast<LPARAM>(text), SMTO_ABORTIFHUNG, 2000,
                      nullptr);
  return text;
}

std::vector<Met> controlsOf(HWND form) {
  std::vector<Met> all;
  std::wstring label;
  for (HWND child = GetWindow(form, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    wchar_t kind[64] = L"";
    GetClassNameW(child, kind, 64);
    const bool is = _wcsicmp(kind, L"Static") == 0;
    if (IsWindowVisible(child) != FALSE) all.push_back({child, kind, textOf(child), is ? L"" : label});
    if (is) label = textOf(child);
    if (!is) label.clear();
  }
  return all;
}

// The letter behind "&"; 0: none.
wchar_t marked(const std::wstring& text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (text[at] != L'&') continue;
    if (text[at + 1] != L'&') return static_cast<wchar_t>(towupper(text[at + 1]));
    ++at;
  }
  return 0;
}

// Of signs alone ("...") no letter can be marked.
bool anyLetter(const std::wstring& text) {
  return std::any_of(text.begin(), text.end(), [](wchar_t c) { return iswalpha(c) != 0 || c >= 0x10D0; });
}

void expectReachable(HWND form, const std::string& name) {
  std::map<wchar_t, std::wstring> letters;
  bool anyStop = false;
  for (const Met& met : controlsOf(form)) {
    const LONG_PTR style = GetWindowLongPtrW(met.window, GWL_STYLE);
    const bool button = _wcsicmp(met.kind.c_str(), L"Button") == 0;
    const bool frame = button && (style & BS_TYPEMASK) == BS_GROUPBOX;
    const bool holdsText = _wcsicmp(met.kind.c_str(), L"Edit") == 0 || met.kind == L"Scintilla" ||
                           _wcsicmp(met.kind.c_str(), L"ComboBox") == 0;
    const bool stop = (style & WS_TABSTOP) != 0 || (button && !frame);
    anyStop = anyStop || stop;
    const std::string what = name + ", control " + std::to_string(GetDlgCtrlID(met.window)) + ": ";
    EXPECT_FALSE(stop && holdsText && met.label.empty()) << what << "no label before it";
    EXPECT_FALSE(stop && !holdsText && met.text.empty() && met.label.empty()) << what << "no name";
    EXPECT_FALSE(button && !frame && marked(met.text) == 0 && anyLetter(met.text))
        << what << "no letter in " << gui::utf8(met.text);
    const wchar_t letter = holdsText ? wchar_t{0} : marked(met.text);
    if (letter != 0) {
      const auto [other, fresh] = letters.emplace(letter, met.text);
      EXPECT_TRUE(fresh) << name << ": one letter for " << gui::utf8(other->second) << " and "
                         << gui::utf8(met.text);
    }
  }
  EXPECT_TRUE(anyStop) << name;
}

TEST_F(Window, EveryDialogNamesItsControlsAndCanDoWithoutAMouse) {
  const struct {
    int command;
    const wchar_t* form;
  } kDialogs[] = {{mnusuch, L"frmsuch"},         {mnutempformat, L"frmtempformat"},
                  {mnuDesign, L"frmDesign"},     {mnuTable, L"frmTabColor"},
                  {mnuTabColor, L"frmTabColor"}, {mnuMatrix, L"frmMatrix"},
                  {mnuCSSstile, L"frmCSSstile"}, {mnuproperties, L"frmproperties"},
                  {mnuAbout, L"frmabout"},       {mnurusaso, L"frmrusaso"},
                  {mnunewWEB, L"frmWEB"},        {mnurecentfile, L"frmrecentfile"},
                  {mnuupload, L"frmupload"},     {mnupublish, L"frmpublish"},
                  {mnutags, L"frmTags"},         {mnutagkod, L"frmkod"},
                  {mnuasos, L"frmasos"},         {mnuabzac, L"frmabzac"},
                  {mnuparzuch, L"frmxascvla"},   {mnuletters, L"frmletters"},
                  {mnusite, L"frmsite"},         {mnuPrintPreview, L"frmprintpreview"}};
  Zervo zervo = open({file(L"page.html", "<P ALIGN=left STYLE=\"color: red\">one</P>")});
  zervo.waitUntilFree();
  zervo.select(0, 0);
  for (const auto& [command, name] : kDialogs) {
    SCOPED_TRACE(gui::utf8(name));
    zervo.command(command);
    const HWND form = gui::shownForm(name);
    ASSERT_NE(form, nullptr);
    expectReachable(form, gui::utf8(name));
    PostMessageW(form, WM_CLOSE, 0, 0);
    waitFor("the dialog to go", [&] { return FindWindowW(name, nullptr) == nullptr; });
    zervo.waitUntilFree();
  }
  leave(zervo);
}

}  // namespace
