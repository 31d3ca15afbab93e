// The main window around a form of its kind: panes, splitters, tabs, dragging, another density.
#include "platform/win32/main_window.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/code_view/code_view.h"
#include "platform/win32/drag.h"
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
  }
  ui::TreeView TV{*this, IDC_FrmH_TV};
  ui::TabStrip TS{*this, IDC_FrmH_TS};
  ui::TabStrip Tgroups{*this, IDC_FrmH_Ttags};
  ui::ListBox List{*this, IDC_FrmH_Ltags};
  ui::StatusBar Status{*this, IDC_FrmH_Status, {{"kMain", -1, {}, false}}};

  void menuOpening() override {}
  void command(int) override {}
  void menuHighlighted(const ui::Text&) override {}
  void filesDropped(const std::vector<std::string>&) override {}
  void idle() override {}
  void pause() override {}
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
  RECT placeOf(int id) {
    RECT place;
    GetWindowRect(item(id), &place);
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
  form.TS.setTabs({{"one.html *"}, {"two.html"}}, 1);
  EXPECT_EQ(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0), 2);
  EXPECT_EQ(SendMessageW(strip, TCM_GETCURSEL, 0, 0), 1);
  wchar_t text[64] = L"";
  TCITEMW wanted{};
  wanted.mask = TCIF_TEXT;
  wanted.pszText = text;
  wanted.cchTextMax = 64;
  SendMessageW(strip, TCM_GETITEMW, 0, reinterpret_cast<LPARAM>(&wanted));
  EXPECT_STREQ(wanted.pszText, L"one.html *");
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
  EXPECT_EQ(GetFocus(), view.hwnd());
  form.TV.setVisible(false);
  press(VK_F6);
  EXPECT_EQ(GetFocus(), item(IDC_FrmH_Ltags));
  press(VK_ESCAPE);
  EXPECT_EQ(GetFocus(), view.hwnd());
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
