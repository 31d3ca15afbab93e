// Forms in their real windows: both ways between model and control, keys, closing, layout.
#include "platform/win32/window/dialog_host.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "platform/win32/system/clipboard.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/system/registry.h"
#include "platform/win32/system/strings.h"
#include "resources/ids.h"
#include "tests/platform/sample_ids.h"
#include "tests/platform/test_window.h"
#include "ui/controls.h"
#include "ui/picture.h"

namespace {

using namespace ui::literals;

class SampleForm : public ui::Form {
 public:
  SampleForm() : Form("frmsample", IDD_sample) {}
  ui::Label LBtext{*this, IDC_sample_LBtext};
  ui::TextBox Ttext{*this, IDC_sample_Ttext};
  ui::TextBox Tbytes{*this, IDC_sample_Tbytes, ui::TextBox::Holds::Bytes};
  ui::CheckBox CKcase{*this, IDC_sample_CKcase};
  ui::OptionButton OPone{*this, IDC_sample_OPone, 1};
  ui::OptionButton OPtwo{*this, IDC_sample_OPtwo, 1};
  ui::ListBox Llist{*this, IDC_sample_Llist};
  ui::ComboBox Lcombo{*this, IDC_sample_Lcombo};
  ui::ListView LV{*this, IDC_sample_LV};
  ui::TreeView TV{*this, IDC_sample_TV};
  ui::PictureBox Pfram{*this, IDC_sample_Pfram};
  ui::Button COK{*this, IDC_sample_COK};
  ui::Button CEXIT{*this, IDC_sample_CEXIT};

  std::function<void()> onLoad;
  bool closes = true;
  void load() override {
    LV.columns = {{"one", 60}, {"two", 40}};
    LV.checkBoxes = true;
    if (onLoad) onLoad();
  }
  bool queryClose() override { return closes; }
};

class DialogHost : public testing::Test {
 protected:
  void open() {
    host_.emplace(form_, owner_.hwnd(), win32::DialogHost::Kind::Modeless);
    host_->show();
  }
  HWND item(int id) { return GetDlgItem(host_->window(), id); }
  LRESULT send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(item(id), message, wParam, lParam);
  }
  void press(HWND window, WPARAM key) {
    PostMessageW(window, WM_KEYDOWN, key, 1);
    win32::pumpMessages();
  }
  RECT place(int id) {
    RECT rect;
    GetWindowRect(item(id), &rect);
    MapWindowPoints(nullptr, host_->window(), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
  }

  tests::TestWindow owner_;
  SampleForm form_;
  std::optional<win32::DialogHost> host_;
};

TEST_F(DialogHost, ShowsWhatTheFormHolds) {
  form_.setCaption("faili"_keyboard);
  form_.Ttext.setText("ქართული");
  form_.onLoad = [this] {
    form_.LBtext.setCaption("×ÀÉËÉ"_legacy);
    form_.Tbytes.setText("\xC0\x81 a");
    form_.CKcase.setChecked(true);
    form_.OPtwo.choose();
    form_.Llist.setItems({"a", "b", "g"_keyboard});
    form_.Llist.setSelected(2);
    form_.LV.setItems({{"x", {"y"}, "", 0, false}, {"z", {"w"}, "", 0, true}});
    form_.LV.setSelected(1);
    form_.TV.setNodes({{-1, "r", "root", "", 0}, {0, "c", "child", "0", 0}});
    form_.CEXIT.setEnabled(false);
  };
  open();
  EXPECT_EQ(win32::windowText(host_->window()), L"ფაილი");
  EXPECT_EQ(win32::windowText(item(IDC_sample_LBtext)), L"ფაილი");
  EXPECT_EQ(win32::windowText(item(IDC_sample_Ttext)), L"ქართული");
  EXPECT_EQ(win32::windowText(item(IDC_sample_Tbytes)), L"\xC0\x81 a");
  EXPECT_EQ(send(IDC_sample_CKcase, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(send(IDC_sample_OPone, BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(send(IDC_sample_OPtwo, BM_GETCHECK), BST_CHECKED);
  EXPECT_EQ(send(IDC_sample_Llist, LB_GETCOUNT), 3);
  EXPECT_EQ(send(IDC_sample_Llist, LB_GETCURSEL), 2);
  EXPECT_EQ(send(IDC_sample_LV, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
  EXPECT_NE(ListView_GetCheckState(item(IDC_sample_LV), 1), 0U);
  EXPECT_EQ(ListView_GetCheckState(item(IDC_sample_LV), 0), 0U);
  EXPECT_EQ(send(IDC_sample_TV, TVM_GETCOUNT), 2);
  EXPECT_EQ(IsWindowEnabled(item(IDC_sample_CEXIT)), FALSE);
  // A window class of the form's own name, for scripts.
  EXPECT_EQ(FindWindowW(L"frmsample", nullptr), host_->window());

  form_.CEXIT.setEnabled(true);
  form_.CKcase.setGreyed(true);
  form_.Lcombo.setItems({"p", "q"});
  form_.Lcombo.setSelected(1);
  form_.TV.setNodeText(1, "renamed");
  EXPECT_EQ(IsWindowEnabled(item(IDC_sample_CEXIT)), TRUE);
  EXPECT_EQ(send(IDC_sample_CKcase, BM_GETCHECK), BST_INDETERMINATE);
  send(IDC_sample_CKcase, BM_CLICK);
  EXPECT_FALSE(form_.CKcase.greyed());
  EXPECT_EQ(send(IDC_sample_CKcase, BM_GETCHECK), BST_UNCHECKED);
  EXPECT_EQ(send(IDC_sample_Lcombo, CB_GETCURSEL), 1);
}

TEST_F(DialogHost, TellsTheFormWhatTheUserDoesAndOnlyThat) {
  int told = 0;
  form_.Ttext.changed.connect([&] { ++told; });
  form_.Tbytes.changed.connect([&] { ++told; });
  form_.CKcase.changed.connect([&] { ++told; });
  form_.OPtwo.changed.connect([&] { ++told; });
  form_.Llist.selectionChanged.connect([&] { ++told; });
  form_.Lcombo.selectionChanged.connect([&] { ++told; });
  form_.LV.selectionChanged.connect([&] { ++told; });
  int node = -1;
  form_.TV.nodeClicked.connect([&](int i) { node = i; });
  open();
  form_.Llist.setItems({"a", "b"});
  form_.Lcombo.setItems({"a", "b"});
  form_.LV.setItems({{"x", {}, "", 0, false}, {"y", {}, "", 0, false}});
  form_.LV.setSelected(0);
  form_.TV.setNodes({{-1, "r", "root", "", 0}, {0, "c", "child", "0", 0}});
  form_.TV.setSelected(0);
  form_.Ttext.setText("program");
  win32::pumpMessages();
  EXPECT_EQ(told, 0);
  EXPECT_EQ(node, -1);

  SetWindowTextW(item(IDC_sample_Ttext), L"\u10D0x");
  EXPECT_EQ(form_.Ttext.text(),
            "ა"
            "x");
  form_.Tbytes.keyPress = [](int key) {
    return std::string(1, key == 'a' ? '\xC0' : static_cast<char>(key));
  };
  send(IDC_sample_Tbytes, WM_CHAR, 'a', 1);
  send(IDC_sample_Tbytes, WM_CHAR, 0x10D1, 1);  // no byte: its UTF-8 enters
  EXPECT_EQ(form_.Tbytes.text(), "\xC0\u10D1");
  send(IDC_sample_CKcase, BM_CLICK);
  EXPECT_TRUE(form_.CKcase.checked());
  send(IDC_sample_OPtwo, BM_CLICK);
  EXPECT_TRUE(form_.OPtwo.chosen());
  send(IDC_sample_Llist, WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(form_.Llist.selected(), 0);
  send(IDC_sample_Lcombo, WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(form_.Lcombo.selected(), 0);
  ListView_SetItemState(item(IDC_sample_LV), 1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(form_.LV.selected(), 1);
  ListView_SetCheckState(item(IDC_sample_LV), 0, TRUE);
  EXPECT_TRUE(form_.LV.items()[0].checked);
  const auto root = send(IDC_sample_TV, TVM_GETNEXTITEM, TVGN_ROOT);
  const auto child = send(IDC_sample_TV, TVM_GETNEXTITEM, TVGN_CHILD, root);
  send(IDC_sample_TV, TVM_SELECTITEM, TVGN_CARET, child);
  win32::pumpMessages();
  EXPECT_EQ(node, 1);
  EXPECT_GE(told, 8);
}

TEST_F(DialogHost, ARenamedRowStaysSelected) {
  form_.LV.labelEdited = [](int, std::string&) { return true; };
  open();
  form_.LV.setItems({{"x", {}, "", 0, false}, {"y", {}, "", 0, false}});
  form_.LV.setSelected(1);
  const auto edit = reinterpret_cast<HWND>(send(IDC_sample_LV, LVM_EDITLABELW, 1));
  ASSERT_NE(edit, nullptr);
  SetWindowTextW(edit, L"z");
  press(edit, VK_RETURN);
  EXPECT_EQ(form_.LV.items()[1].text.bytes, "z");
  EXPECT_EQ(send(IDC_sample_LV, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 1);
}

TEST_F(DialogHost, NoTipCoversTheEntriesOfAList) {
  form_.Ttext.hint = form_.Lcombo.hint = form_.Llist.hint = form_.LV.hint = "hint";
  open();
  LRESULT tools = 0;
  for (HWND tips = nullptr; (tips = FindWindowExW(nullptr, tips, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
    if (GetWindow(tips, GW_OWNER) == host_->window()) tools += SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0);
  }
  EXPECT_EQ(tools, 2) << "of the text field and the closed drop-down list";
}

TEST_F(DialogHost, GoesAsideForWhatItCovers) {
  open();
  const auto frame = [this] {
    RECT rect;
    GetWindowRect(host_->window(), &rect);
    return rect;
  };
  const RECT before = frame();
  form_.moveOff({before.left - 20, before.top, before.left, before.top + 10});
  EXPECT_EQ(frame().left, before.left) << "beside it";
  const RECT hit{before.left + 30, before.bottom - 40, before.left + 90, before.bottom - 20};
  form_.moveOff({hit.left, hit.top, hit.right, hit.bottom});
  const RECT after = frame();
  RECT common;
  EXPECT_EQ(IntersectRect(&common, &after, &hit), FALSE);
  EXPECT_EQ(after.right - after.left, before.right - before.left);
  EXPECT_EQ(IntersectRect(&common, &after, &before), TRUE) << "no farther than it must";
  form_.moveOff({-10000, -10000, 10000, 10000});
  EXPECT_EQ(frame().left, after.left) << "there is no room anywhere";
}

TEST_F(DialogHost, EnterAndEscPressTheFormsButtons) {
  int ok = 0;
  int cancel = 0;
  form_.defaultButton = &form_.COK;
  form_.cancelButton = &form_.CEXIT;
  form_.COK.clicked.connect([&] { ++ok; });
  form_.CEXIT.clicked.connect([&] { ++cancel; });
  open();
  press(item(IDC_sample_Ttext), VK_RETURN);
  EXPECT_EQ(ok, 1);
  form_.COK.setEnabled(false);
  press(item(IDC_sample_Ttext), VK_RETURN);
  EXPECT_EQ(ok, 1);
  press(item(IDC_sample_Ttext), VK_ESCAPE);
  EXPECT_EQ(cancel, 1);
  // A script's command by id, without the control's window.
  SendMessageW(host_->window(), WM_COMMAND, IDC_sample_CEXIT, 0);
  EXPECT_EQ(cancel, 2);
}

TEST_F(DialogHost, TheFormDecidesWhetherItsWindowCloses) {
  open();
  form_.closes = false;
  SendMessageW(host_->window(), WM_CLOSE, 0, 0);
  EXPECT_NE(host_->window(), nullptr);
  form_.closes = true;
  SendMessageW(host_->window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(form_.closed());
  EXPECT_EQ(host_->window(), nullptr);
  form_.Ttext.setText("no window any more");
}

TEST_F(DialogHost, ABytesBoxPastesAndSelectsInBytes) {
  open();
  win32::putClip(owner_.hwnd(), {"", "\u10D0z\u20AC"});
  send(IDC_sample_Tbytes, WM_PASTE);
  EXPECT_EQ(form_.Tbytes.text(), "\u10D0z\x80");
  form_.Tbytes.select(3, 1);
  EXPECT_EQ(form_.Tbytes.selection().start, 3);
  EXPECT_EQ(form_.Tbytes.selection().length, 1);
  form_.Tbytes.insert("QQ");
  EXPECT_EQ(win32::bytesFromWide(win32::windowText(item(IDC_sample_Tbytes))), "\u10D0QQ\x80");
  EXPECT_EQ(form_.Tbytes.selection().start, 5);
}

TEST_F(DialogHost, ABytesBoxReadsUtf8AsLettersAndKeepsOtherBytes) {
  using namespace std::string_literals;
  const std::string odd = "ა\xE1\x83 \0\xEE\x82\x80😀\xFFé"s;
  form_.Tbytes.setText(odd);
  open();
  form_.Tbytes.setFont({"", 0, false, false, ui::CharacterSet::Utf8});
  EXPECT_EQ(win32::windowText(item(IDC_sample_Tbytes)), L"ა\xE0E1\xE083 \xE000\xE0EE\xE082\xE080😀\xE0FFé");
  const auto units = static_cast<WPARAM>(GetWindowTextLengthW(item(IDC_sample_Tbytes)));
  send(IDC_sample_Tbytes, EM_SETSEL, units, static_cast<LPARAM>(units));
  EXPECT_EQ(form_.Tbytes.selection().start, static_cast<int>(odd.size()));
  for (const wchar_t unit : {L'ბ', L'q', L'\xD83D', L'\xDE01'}) send(IDC_sample_Tbytes, WM_CHAR, unit, 1);
  EXPECT_EQ(form_.Tbytes.text(), odd + "ბq😁");
  win32::putClip(owner_.hwnd(), {"", "\uE041Ж—"});
  send(IDC_sample_Tbytes, WM_PASTE);
  EXPECT_EQ(form_.Tbytes.text(), odd + "ბq😁\uE041Ж—");
  win32::putClip(owner_.hwnd(), {"\xE1", "?", static_cast<int>(ui::TextView::Utf8), 7});
  send(IDC_sample_Tbytes, WM_PASTE);
  EXPECT_EQ(form_.Tbytes.text(), odd + "ბq😁\uE041Ж—\xE1") << "bytes of such a view, whole";

  // The same bytes in a font of one byte a letter; what has no byte there is somebody else's to say.
  const std::string now = form_.Tbytes.text();
  form_.Tbytes.setFont({});
  form_.Tbytes.typed = [](char32_t character) { return character == U'ბ' ? "\xC1"s : "?"s; };
  EXPECT_EQ(form_.Tbytes.text(), now);
  form_.Tbytes.setText("");
  send(IDC_sample_Tbytes, WM_CHAR, L'ბ', 1);
  send(IDC_sample_Tbytes, WM_CHAR, L'é', 1);
  win32::putClip(owner_.hwnd(), {"", "ბ€"});
  send(IDC_sample_Tbytes, WM_PASTE);
  EXPECT_EQ(form_.Tbytes.text(), "\xC1\xE9\xC1\x80");
}

TEST_F(DialogHost, LabelsGrowAndHiddenControlsLeaveNoGap) {
  form_.LBtext.autosize = true;
  form_.LBtext.setCaption("short");
  open();
  const RECT text = place(IDC_sample_Ttext);
  const RECT button = place(IDC_sample_COK);
  const RECT right = place(IDC_sample_CEXIT);
  RECT before;
  GetClientRect(host_->window(), &before);

  form_.LBtext.setCaption("one\r\ntwo\r\nthree\r\nfour\r\nfive\r\nsix");
  const LONG growth = place(IDC_sample_Ttext).top - text.top;
  EXPECT_GT(growth, 30);
  RECT client;
  GetClientRect(host_->window(), &client);
  EXPECT_EQ(client.bottom - before.bottom, growth);
  EXPECT_EQ(place(IDC_sample_COK).top - button.top, growth);
  form_.LBtext.setCaption("short");
  EXPECT_EQ(place(IDC_sample_COK).top, button.top);

  // The row of buttons closes up to the right.
  form_.CEXIT.setVisible(false);
  EXPECT_EQ(place(IDC_sample_COK).right, right.right);
  // Both columns empty down to the combo box: what is below moves up.
  for (ui::Control* control : form_.controls()) {
    if (control != &form_.COK && control != &form_.LBtext) control->setVisible(false);
  }
  EXPECT_LT(place(IDC_sample_COK).top, button.top - 100);
  GetClientRect(host_->window(), &client);
  EXPECT_LT(client.bottom, before.bottom - 100);
}

TEST_F(DialogHost, WhatStretchesTakesTheRoomAndTheSizeIsKept) {
  win32::setRegistryValue("dialogs", "frmsample", "");
  form_.LBtext.autosize = true;
  form_.LV.stretches = form_.Llist.stretches = true;
  open();
  const std::vector<int> all = {IDC_sample_LBtext, IDC_sample_Ttext, IDC_sample_Llist, IDC_sample_Lcombo,
                                IDC_sample_LV,     IDC_sample_TV,    IDC_sample_COK,   IDC_sample_CEXIT};
  std::map<int, RECT> before;
  for (const int id : all) before[id] = place(id);
  RECT frame;
  GetWindowRect(host_->window(), &frame);
  const auto size = [this, &frame](int width, int height) {
    SetWindowPos(host_->window(), nullptr, 0, 0, frame.right - frame.left + width,
                 frame.bottom - frame.top + height, SWP_NOMOVE | SWP_NOZORDER);
  };
  // The lists stand one below the other, and beside each other.
  const auto check = [&] {
    const auto grown = [&](int id) {
      return place(id).right - place(id).left - before[id].right + before[id].left;
    };
    const auto taller = [&](int id) {
      return place(id).bottom - place(id).top - before[id].bottom + before[id].top;
    };
    EXPECT_NEAR(grown(IDC_sample_Llist) + grown(IDC_sample_LV), 100, 2);
    EXPECT_NEAR(taller(IDC_sample_Llist) + taller(IDC_sample_LV), 60, 2);
    EXPECT_NEAR(grown(IDC_sample_Ttext), grown(IDC_sample_Llist), 1);
    EXPECT_EQ(place(IDC_sample_CEXIT).right - before[IDC_sample_CEXIT].right, 100);
    EXPECT_EQ(place(IDC_sample_COK).top - before[IDC_sample_COK].top, 60);
    EXPECT_EQ(place(IDC_sample_Lcombo).top - place(IDC_sample_Llist).bottom,
              before[IDC_sample_Lcombo].top - before[IDC_sample_Llist].bottom);
    EXPECT_EQ(place(IDC_sample_Ttext).top, before[IDC_sample_Ttext].top);
  };
  size(100, 60);
  check();
  // Another layout keeps what the user has added.
  form_.LBtext.setCaption("1\r\n2\r\n3\r\n4");
  form_.LBtext.setCaption("");
  check();
  size(-50, -50);
  EXPECT_EQ(place(IDC_sample_COK).top, before[IDC_sample_COK].top);
  size(100, 60);
  host_.reset();
  open();
  check();
  host_.reset();
  win32::setRegistryValue("dialogs", "frmsample", "");
}

// Acts in the middle of a modal run, as the user would.
std::function<void()> duringTheRun;
void CALLBACK actDuringTheRun(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  duringTheRun();
}

TEST_F(DialogHost, AModalRunDisablesTheOthersAndEndsWithTheForm) {
  open();  // a modeless one beside it
  SampleForm modal;
  bool disabled = false;
  modal.cancelButton = &modal.CEXIT;
  modal.CEXIT.clicked.connect([&] { modal.close(); });
  duringTheRun = [&] {
    disabled = IsWindowEnabled(host_->window()) == FALSE;
    SendMessageW(FindWindowW(L"frmsample", nullptr), WM_COMMAND, IDCANCEL, 0);
  };
  SetTimer(nullptr, 0, 1, actDuringTheRun);
  win32::runModal(modal);
  EXPECT_TRUE(disabled);
  EXPECT_TRUE(modal.closed());
  EXPECT_NE(IsWindowEnabled(host_->window()), FALSE);
}

// What the picture draws, read back from its window's own painting.
COLORREF pixelOf(HWND window, int x, int y) {
  RECT area;
  GetClientRect(window, &area);
  const HDC screen = GetDC(nullptr);
  const win32::UniqueCanvas memory(CreateCompatibleDC(screen));
  const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, area.right, area.bottom));
  ReleaseDC(nullptr, screen);
  const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
  SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory.get()), PRF_CLIENT);
  const COLORREF color = GetPixel(memory.get(), x, y);
  SelectObject(memory.get(), before);
  return color;
}

TEST_F(DialogHost, PictureIsDrawnByItsForm) {
  constexpr base::Color kRed = base::rgb(200, 0, 0);
  constexpr base::Color kBlue = base::rgb(0, 0, 200);
  form_.Pfram.setCaption("two areas");
  form_.Pfram.paint = [](ui::Canvas& canvas) {
    canvas.fill({0, 0, 30, 20}, kRed);
    canvas.frame({30, 0, 30, 20}, kBlue, 2);
  };
  open();
  const HWND picture = item(IDC_sample_Pfram);
  EXPECT_EQ(win32::windowText(picture), L"two areas");
  EXPECT_EQ(pixelOf(picture, 29, 19), kRed);
  EXPECT_EQ(pixelOf(picture, 31, 10), kBlue);
  EXPECT_NE(pixelOf(picture, 33, 10), kBlue);
  EXPECT_EQ(pixelOf(picture, 30, 20), GetSysColor(COLOR_BTNFACE));
}

TEST_F(DialogHost, PictureTellsWhatMouseAndKeyboardDo) {
  std::vector<ui::Point> down;
  std::vector<ui::Point> moved;
  std::vector<ui::Point> others;
  std::vector<int> keys;
  form_.Pfram.otherMouseUp.connect([&](ui::Point point) { others.push_back(point); });
  form_.Pfram.mouseDown.connect([&](ui::Point point) { down.push_back(point); });
  form_.Pfram.mouseMove.connect([&](ui::Point point) { moved.push_back(point); });
  form_.Pfram.keyDown = [&](int key) {
    keys.push_back(key);
    return key == VK_RIGHT;
  };
  open();
  const HWND picture = item(IDC_sample_Pfram);
  EXPECT_GT(form_.Pfram.size().width, 40);
  SendMessageW(picture, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(7, 9));
  EXPECT_EQ(GetFocus(), picture);
  EXPECT_TRUE(form_.Pfram.focused());
  EXPECT_EQ(GetCapture(), picture);
  SendMessageW(picture, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-3, 4));
  SendMessageW(picture, WM_LBUTTONUP, 0, MAKELPARAM(-3, 4));
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(down, (std::vector<ui::Point>{{7, 9}}));
  ASSERT_FALSE(moved.empty());
  EXPECT_EQ(moved.front(), (ui::Point{-3, 4}));
  for (const UINT up : {WM_RBUTTONUP, WM_MBUTTONUP, WM_XBUTTONUP})
    SendMessageW(picture, up, 0, MAKELPARAM(5, 6));
  EXPECT_EQ(others, (std::vector<ui::Point>{{5, 6}, {5, 6}})) << "all but the right one";
  press(picture, VK_RIGHT);
  EXPECT_EQ(GetFocus(), picture);
  press(picture, VK_LEFT);  // not used: the dialog moves the focus
  EXPECT_NE(GetFocus(), picture);
  EXPECT_EQ(keys, (std::vector<int>{VK_RIGHT, VK_LEFT}));
}

}  // namespace
