// The main window around a form of its kind: panes, splitters, tabs, dragging, another density.
#include "platform/win32/window/main_window.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/code_view/code_view.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/window/drag.h"
#include "resources/ids.h"
#include "ui/tab_strip.h"

namespace {

class SampleMain : public ui::MainForm {
 public:
  explicit SampleMain(ui::CodeView& view) : MainForm("frmsamplemain", IDD_FrmH, view) {
    leftPane = &TV;
    above = &TS;
    rightTabs = &Tgroups;
    rightPane = &List;
    TV.hint = "tree";
    TV.setNodes({{-1, "", "root", "", 0}, {0, "", "one", "1", 0}, {0, "", "two", "2", 0}});
    TV.draggable = [](int node) { return node > 0; };
    TV.canDropOn = [](int node, int target) { return node > 0 && target > 0 && node != target; };
    TS.movable = true;
    TS.setTabs({{"first.html"}, {"second.html"}, {"third.html"}}, 0);
    Tgroups.setTabs({{"alpha"}, {"beta"}, {"gamma"}, {"delta"}, {"epsilon"}, {"zeta"}, {"eta"}}, 0);
    List.draggable = true;
    List.setItems({"A", "B", "C"});
    menus.resize(1);
    menus[0].caption = "menu";
    menus[0].items.resize(1);
    menus[0].items[0].caption = "|1|from the menu";
    menus[0].items[0].command = kFirstTool + 28;
    menus[0].items.push_back(
        {"next pane", mnuNextPane, {VK_F6, false, false, false}, {}, true, false, false, {}});
    for (int i = 0; i < kTools; ++i) {
      toolBar.push_back({kFirstTool + i, ui::ToolIcon::Bold, "tool " + std::to_string(i)});
      if (i == 4) toolBar.emplace_back();
    }
  }
  static constexpr int kTools = 30;
  static constexpr int kFirstTool = 40000;
  ui::TreeView TV{*this, IDC_FrmH_TV};
  ui::TabStrip TS{*this, IDC_FrmH_TS};
  ui::TabStrip Tgroups{*this, IDC_FrmH_Ttags};
  ui::ListBox List{*this, IDC_FrmH_Ltags};
  ui::StatusBar Status{*this,
                       IDC_FrmH_Status,
                       {{"kMain", -1, {}, false}, {"kPreview", 200, {}, true}, {"kNumbers", 60, {}, false}}};

  void menuOpening() override {}
  std::vector<int> commands;
  void command(int id) override {
    if (id == mnuNextPane) {
      window->nextPane();
    } else {
      commands.push_back(id);
    }
  }
  void menuHighlighted(const ui::Text&) override {}
  void filesDropped(const std::vector<std::string>&) override {}
  void idle() override {}
  void pause() override {}
  int background() override { return -1; }
  void systemColoursChanged() override {}
};

class MainWindow : public testing::Test {
 protected:
  MainWindow() { form.window->show(); }
  ~MainWindow() override {
    window.reset();
    MSG left;  // with the window the program would end: not so the tests
    while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE) != FALSE) DispatchMessageW(&left);
  }
  HWND item(int id) { return GetDlgItem(handle(), id); }
  HWND handle() { return FindWindowW(L"frmsamplemain", nullptr); }
  HWND bar() { return FindWindowExW(handle(), nullptr, TOOLBARCLASSNAMEW, nullptr); }
  RECT placeOf(int id) { return placeOf(item(id)); }
  RECT placeOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, handle(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  static int width(const RECT& place) { return static_cast<int>(place.right - place.left); }
  static int height(const RECT& place) { return static_cast<int>(place.bottom - place.top); }
  static POINT middleOf(HWND strip, int tab) {
    RECT place;
    SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  }
  static void mouse(HWND window, UINT message, POINT point, WPARAM buttons = 0) {
    SendMessageW(window, message, buttons, MAKELPARAM(point.x, point.y));
  }
  // Of a message that is looked at later, as while something is dragged.
  static void post(HWND window, UINT message, POINT point) {
    PostMessageW(window, message, MK_LBUTTON, MAKELPARAM(point.x, point.y));
  }
  POINT inCode(HWND seenFrom) {
    const RECT place = placeOf(IDC_FrmH_T1);
    POINT point{place.left + 40, place.top + 4};
    MapWindowPoints(handle(), seenFrom, &point, 1);
    return point;
  }
  void splitterDragged(int from, int to) {
    const LONG y = placeOf(IDC_FrmH_T1).bottom - 5;
    mouse(handle(), WM_LBUTTONDOWN, {from, y}, MK_LBUTTON);
    mouse(handle(), WM_MOUSEMOVE, {to, y}, MK_LBUTTON);
    mouse(handle(), WM_LBUTTONUP, {to, y});
  }

  win32::CodeView view;
  SampleMain form{view};
  std::optional<win32::MainWindow> window{std::in_place, form, view};
};

TEST_F(MainWindow, PanesStandSideBySideAndHiddenOnesGiveTheirRoom) {
  const RECT tree = placeOf(IDC_FrmH_TV), code = placeOf(IDC_FrmH_T1), list = placeOf(IDC_FrmH_Ltags);
  EXPECT_LT(tree.right, code.left);
  EXPECT_LT(code.right, list.left);
  EXPECT_EQ(placeOf(IDC_FrmH_TS).bottom, code.top);
  EXPECT_EQ(placeOf(IDC_FrmH_Ttags).bottom, list.top);
  EXPECT_GT(height(placeOf(IDC_FrmH_Ttags)), height(placeOf(IDC_FrmH_TS))) << "seven groups need rows";
  form.TV.setVisible(false);
  EXPECT_LT(placeOf(IDC_FrmH_T1).left, tree.right);
  form.Tgroups.setVisible(false);
  form.List.setVisible(false);
  EXPECT_GT(placeOf(IDC_FrmH_T1).right, list.left);
}

TEST_F(MainWindow, SplittersGoAsFarAsThereIsRoom) {
  const RECT tree = placeOf(IDC_FrmH_TV), list = placeOf(IDC_FrmH_Ltags);
  splitterDragged(tree.right + 2, tree.right + 52);
  EXPECT_EQ(width(placeOf(IDC_FrmH_TV)), width(tree) + 52);
  splitterDragged(list.left - 2, list.left - 32);
  EXPECT_NEAR(width(placeOf(IDC_FrmH_Ltags)), width(list) + 32, 1);
  const ui::PaneWidths widths = form.window->paneWidths();
  EXPECT_EQ(widths.left, width(placeOf(IDC_FrmH_TV)));
  splitterDragged(placeOf(IDC_FrmH_TV).right + 2, 5000);
  EXPECT_GE(width(placeOf(IDC_FrmH_T1)), 200);
  EXPECT_GE(width(placeOf(IDC_FrmH_Ltags)), 60);
  form.window->setPaneWidths(widths);
  EXPECT_EQ(width(placeOf(IDC_FrmH_TV)), widths.left);
}

TEST_F(MainWindow, TabsAreChosenClosedAndMovedByTheMouse) {
  const HWND strip = item(IDC_FrmH_TS);
  std::vector<std::string> told;
  form.TS.chosen.connect([&](int tab) { told.push_back("chosen " + std::to_string(tab)); });
  form.TS.closeAsked.connect([&](int tab) { told.push_back("close " + std::to_string(tab)); });
  form.TS.moved.connect(
      [&](int from, int to) { told.push_back("moved " + std::to_string(from) + " " + std::to_string(to)); });
  mouse(strip, WM_LBUTTONDOWN, middleOf(strip, 1), MK_LBUTTON);
  mouse(strip, WM_LBUTTONUP, middleOf(strip, 1));
  mouse(strip, WM_MBUTTONDOWN, middleOf(strip, 2));
  mouse(strip, WM_MBUTTONUP, middleOf(strip, 2));
  mouse(strip, WM_MBUTTONDOWN, middleOf(strip, 2));
  mouse(strip, WM_MBUTTONUP, middleOf(strip, 0));  // elsewhere: given up
  mouse(strip, WM_LBUTTONDOWN, middleOf(strip, 0), MK_LBUTTON);
  mouse(strip, WM_MOUSEMOVE, middleOf(strip, 2), MK_LBUTTON);
  mouse(strip, WM_LBUTTONUP, middleOf(strip, 2));
  win32::pumpMessages();
  EXPECT_EQ(told, (std::vector<std::string>{"chosen 1", "close 2", "chosen 0", "moved 0 2"}));
}

TEST_F(MainWindow, TabsFollowTheModel) {
  const HWND strip = item(IDC_FrmH_TS);
  form.TS.setTabs({{"one & 1.html *"}, {"two.html"}}, 1);
  EXPECT_EQ(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0), 2);
  EXPECT_EQ(SendMessageW(strip, TCM_GETCURSEL, 0, 0), 1);
  wchar_t text[64] = L"";
  TCITEMW wanted{};
  wanted.mask = TCIF_TEXT;
  wanted.pszText = text;
  wanted.cchTextMax = 64;
  SendMessageW(strip, TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&wanted));
  EXPECT_STREQ(wanted.pszText, L"one && 1.html *") << "drawn as one";
  const auto tips = reinterpret_cast<HWND>(SendMessageW(strip, TCM_GETTOOLTIPS, 0, 0));
  EXPECT_NE(GetWindowLongPtrW(tips, GWL_STYLE) & TTS_NOPREFIX, 0);
}

TEST_F(MainWindow, TheStatusBarShowsLettersAndCutsNoNumbers) {
  const HWND bar = item(IDC_FrmH_Status);
  const auto preview = [&](const ui::Text& shown) {
    form.Status.setPanel("kPreview", shown);
    std::wstring text(static_cast<std::size_t>(LOWORD(SendMessageW(bar, SB_GETTEXTLENGTHW, 1, 0))), L'\0');
    SendMessageW(bar, SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(text.data()));
    return text;
  };
  EXPECT_EQ(preview("ა é"), L"ა é");
  EXPECT_EQ(preview({"\xC0", ui::TextKind::Legacy}), L"ა");
  const std::wstring numbers = L"ISO 10000003  UTF8 20000002  HEX 30000001";
  const win32::UniqueCanvas canvas(CreateCompatibleDC(nullptr));
  SelectObject(canvas.get(), reinterpret_cast<HFONT>(SendMessageW(bar, WM_GETFONT, 0, 0)));
  SIZE text;
  GetTextExtentPoint32W(canvas.get(), numbers.c_str(), static_cast<int>(numbers.size()), &text);
  for (const int widthOfWindow : {900, 400}) {
    SetWindowPos(handle(), nullptr, 0, 0, widthOfWindow, 500, SWP_NOMOVE | SWP_NOZORDER);
    for (const char* shown : {"1", "ISO 10000003  UTF8 20000002  HEX 30000001"}) {
      form.Status.setPanel("kNumbers", shown);
      RECT panel, client;
      SendMessageW(bar, SB_GETRECT, 2, reinterpret_cast<LPARAM>(&panel));
      GetClientRect(bar, &client);
      EXPECT_LE(panel.right, client.right);
      if (shown[1] != 0) {
        EXPECT_GT(width(panel), text.cx);
      } else {
        EXPECT_LT(width(panel), text.cx) << "and no wider than need be";
      }
    }
  }
}

TEST_F(MainWindow, RowsAreDraggedIntoTheCode) {
  const HWND list = item(IDC_FrmH_Ltags);
  std::vector<int> dropped;
  form.List.droppedInText.connect([&](int row) { dropped.push_back(row); });
  view.setText("first line\r\nsecond");
  view.select(12, 0);
  const POINT row{10, 4};
  post(list, WM_MOUSEMOVE, inCode(list));
  post(list, WM_LBUTTONUP, inCode(list));
  mouse(list, WM_LBUTTONDOWN, row, MK_LBUTTON);
  mouse(list, WM_MOUSEMOVE, {row.x + 30, row.y}, MK_LBUTTON);  // comes back when the drag is over
  EXPECT_EQ(dropped, std::vector<int>{0});
  EXPECT_LT(view.selStart(), 11) << "the caret went where it was dropped";
  view.select(0, 16);
  const POINT elsewhere{-400, 4};
  post(list, WM_LBUTTONUP, inCode(list));
  mouse(list, WM_LBUTTONDOWN, row, MK_LBUTTON);
  mouse(list, WM_MOUSEMOVE, {row.x + 30, row.y}, MK_LBUTTON);
  EXPECT_EQ(view.selLength(), 16) << "dropped on the selection";
  dropped.clear();
  post(list, WM_LBUTTONUP, {elsewhere.x * 10, elsewhere.y});
  mouse(list, WM_LBUTTONDOWN, row, MK_LBUTTON);
  mouse(list, WM_MOUSEMOVE, {row.x + 30, row.y}, MK_LBUTTON);
  EXPECT_TRUE(dropped.empty()) << "nobody takes it there";
}

TEST_F(MainWindow, NodesAreDraggedOntoNodes) {
  const HWND tree = item(IDC_FrmH_TV);
  std::vector<std::pair<int, int>> dropped;
  form.TV.droppedOn.connect([&](int node, int target) { dropped.emplace_back(node, target); });
  const auto root = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
  const auto one = reinterpret_cast<HTREEITEM>(
      SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(root)));
  const auto two = reinterpret_cast<HTREEITEM>(
      SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(one)));
  const auto begin = [&](HTREEITEM item) {
    NMTREEVIEWW told{};
    told.hdr = {tree, IDC_FrmH_TV, TVN_BEGINDRAGW};
    told.itemNew.hItem = item;
    SendMessageW(handle(), WM_NOTIFY, IDC_FrmH_TV, reinterpret_cast<LPARAM>(&told));
  };
  RECT place;
  *reinterpret_cast<HTREEITEM*>(&place) = two;
  SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
  begin(root);
  win32::pumpMessages();
  begin(one);
  post(tree, WM_MOUSEMOVE, {place.left + 2, place.top + 2});
  post(tree, WM_LBUTTONUP, {place.left + 2, place.top + 2});
  win32::pumpMessages();
  EXPECT_EQ(dropped, (std::vector<std::pair<int, int>>{{1, 2}}));
}

TEST_F(MainWindow, F6GoesThroughThePanesThatAreShown) {
  const auto press = [&](WPARAM key) {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    win32::pumpMessages();
  };
  view.setFocus();
  press(VK_F6);
  EXPECT_EQ(GetFocus(), item(IDC_FrmH_TV));
  press(VK_F6);
  EXPECT_EQ(GetFocus(), item(IDC_FrmH_Ltags));
  press(VK_F6);
  EXPECT_EQ(GetFocus(), bar());
  press(VK_F6);
  EXPECT_EQ(GetFocus(), view.hwnd());
  form.TV.setVisible(false);
  press(VK_F6);
  EXPECT_EQ(GetFocus(), item(IDC_FrmH_Ltags));
  press(VK_ESCAPE);
  EXPECT_EQ(GetFocus(), view.hwnd());
}

std::vector<std::wstring> shownNames;  // of the pop-up menu's items

// A timer, since an open menu has the loop.
void CALLBACK readMenuAndTakeItsLast(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  if (menu == nullptr) return;
  KillTimer(nullptr, timer);
  const auto items = reinterpret_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0));
  for (int i = 0; i < GetMenuItemCount(items); ++i) {
    wchar_t name[64] = L"";
    GetMenuStringW(items, static_cast<UINT>(i), name, 64, MF_BYPOSITION);
    shownNames.emplace_back(name);
  }
  const HWND owner = FindWindowW(L"frmsamplemain", nullptr);
  PostMessageW(owner, WM_KEYDOWN, VK_UP, 1);
  PostMessageW(owner, WM_KEYDOWN, VK_RETURN, 1);
}

TEST_F(MainWindow, ToolsWithoutRoomAreBehindTheChevron) {
  const auto hidden = [this](int command) {
    return SendMessageW(bar(), TB_ISBUTTONHIDDEN, static_cast<WPARAM>(command), 0) != 0;
  };
  const auto resize = [this](int pixels) {
    SetWindowPos(handle(), nullptr, 0, 0, pixels, 500, SWP_NOMOVE | SWP_NOZORDER);
  };
  const int last = SampleMain::kFirstTool + SampleMain::kTools - 1;
  resize(960);
  EXPECT_TRUE(hidden(mnuToolMore));
  EXPECT_FALSE(hidden(last));
  const int oneRow = height(placeOf(bar()));
  resize(500);
  EXPECT_EQ(height(placeOf(bar())), oneRow);
  EXPECT_FALSE(hidden(mnuToolMore));
  EXPECT_FALSE(hidden(SampleMain::kFirstTool));
  EXPECT_TRUE(hidden(last));
  RECT chevron, area;
  SendMessageW(bar(), TB_GETITEMRECT, SampleMain::kTools + 1, reinterpret_cast<LPARAM>(&chevron));
  GetClientRect(handle(), &area);
  EXPECT_LE(chevron.right, area.right);
  EXPECT_GT(chevron.right, area.right - 2 * width(chevron)) << "no room is left empty";

  // The keyboard goes to the chevron; its menu has the rest, under the names of the menus where they have
  // some.
  SetFocus(bar());
  for (const WPARAM key : {VK_END, VK_RETURN}) PostMessageW(bar(), WM_KEYDOWN, key, 1);
  shownNames.clear();
  SetTimer(nullptr, 0, 100, readMenuAndTakeItsLast);
  for (int i = 0; i < 50 && form.commands.empty(); ++i) {
    win32::pumpMessages();
    Sleep(20);
  }
  EXPECT_EQ(form.commands, std::vector<int>{last});
  ASSERT_GT(shownNames.size(), 5U);
  EXPECT_EQ(shownNames[shownNames.size() - 1], L"tool 29");
  EXPECT_EQ(shownNames[shownNames.size() - 2], L"from the menu");
  resize(960);
  EXPECT_FALSE(hidden(last));
  EXPECT_TRUE(hidden(mnuToolMore));
}

TEST_F(MainWindow, DisabledToolsAreGrey) {
  form.toolBar[1].enabled = false;
  form.window->toolBarStates();
  EXPECT_EQ(SendMessageW(bar(), TB_ISBUTTONENABLED, SampleMain::kFirstTool + 1, 0), 0);
  EXPECT_NE(SendMessageW(bar(), TB_ISBUTTONENABLED, SampleMain::kFirstTool + 2, 0), 0);
}

TEST_F(MainWindow, AClickOnAStatusPanelNamesIt) {
  std::string clicked;
  form.Status.panelClicked.connect([&](std::string_view key) { clicked = key; });
  const HWND bar = item(IDC_FrmH_Status);
  form.Status.setWhole("help");
  mouse(bar, WM_LBUTTONDOWN, {8, 8}, MK_LBUTTON);
  mouse(bar, WM_LBUTTONUP, {8, 8});
  EXPECT_EQ(clicked, "");
  form.Status.setWhole({});
  mouse(bar, WM_LBUTTONDOWN, {8, 8}, MK_LBUTTON);
  mouse(bar, WM_LBUTTONUP, {8, 8});
  EXPECT_EQ(clicked, "kMain");
}

TEST_F(MainWindow, AScreenOfAnotherDensityScalesAllOfIt) {
  const RECT tree = placeOf(IDC_FrmH_TV), strip = placeOf(IDC_FrmH_TS);
  LOGFONTW before{}, after{};
  const auto fontOf = [&](LOGFONTW& font) {
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(item(IDC_FrmH_TV), WM_GETFONT, 0, 0)), sizeof font,
               &font);
  };
  fontOf(before);
  const RECT wanted{0, 0, 1000, 700};
  SendMessageW(handle(), WM_DPICHANGED, MAKEWPARAM(144, 144), reinterpret_cast<LPARAM>(&wanted));
  fontOf(after);
  EXPECT_NEAR(after.lfHeight, before.lfHeight * 1.5, 1);
  EXPECT_GT(height(placeOf(IDC_FrmH_TS)), height(strip) * 5 / 4);
  EXPECT_EQ(width(placeOf(IDC_FrmH_TV)), width(tree) * 3 / 2);
  RECT frame;
  GetWindowRect(handle(), &frame);
  EXPECT_EQ(width(frame), 1000);
}

TEST_F(MainWindow, ControlsHaveNamesForScreenReaders) {
  wchar_t name[64] = L"";
  GetWindowTextW(item(IDC_FrmH_TV), name, 64);
  EXPECT_STREQ(name, L"tree");
}

}  // namespace
