// Menus as the system knows them: the whole program's, walked by handle, and lines drawn into memory.
#include "platform/win32/window/menus.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "platform/win32/code_view/code_view.h"
#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/vector_icons.h"
#include "platform/win32/system/handles.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/window/main_window.h"
#include "program/program.h"
#include "resources/ids.h"
#include "ui/icons/menu_icons.h"

namespace {

class WholeProgram {
 public:
  WholeProgram() { program_.start("NOMAX"); }
  HWND window() { return FindWindowW(L"FrmH", nullptr); }
  ui::MainForm& form() { return program_.window(); }
  win32::CodeView view;

 private:
  // The window's end asks the thread to quit, which is not meant for the tests to come. Taken last.
  struct QuitTaken {
    ~QuitTaken() {
      MSG message;
      while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0) continue;
    }
  };

  QuitTaken quit_;
  win32::Win32Platform platform_;
  program::Program program_{platform_, view, nullptr};
  win32::MainWindow window_{program_.window(), view};
};

struct Seen {
  HMENU menu;
  UINT position;
  MENUITEMINFOW info;
  std::wstring text;
};

std::vector<Seen> walk(HMENU menu) {
  std::vector<Seen> all;
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    Seen item{menu, static_cast<UINT>(i), {}, std::wstring(300, L'\0')};
    item.info.cbSize = sizeof item.info;
    item.info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_DATA | MIIM_SUBMENU | MIIM_STATE | MIIM_STRING;
    item.info.dwTypeData = item.text.data();
    item.info.cch = 300;
    EXPECT_TRUE(GetMenuItemInfoW(menu, item.position, TRUE, &item.info));
    item.text.resize(item.info.cch);
    all.push_back(item);
    if (item.info.hSubMenu != nullptr) {
      for (const Seen& inner : walk(item.info.hSubMenu)) all.push_back(inner);
    }
  }
  return all;
}

TEST(WholeMenu, EveryItemHasTextForScreenReadersHelpAndItsRulesState) {
  WholeProgram program;
  const HWND window = program.window();
  ASSERT_NE(window, nullptr);
  const auto open = [&] {
    SendMessageW(window, WM_INITMENU, reinterpret_cast<WPARAM>(GetMenu(window)), 0);
    return GetMenu(window);
  };
  int commands = 0;
  for (const Seen& item : walk(open())) {
    if ((item.info.fType & MFT_SEPARATOR) != 0) continue;
    EXPECT_FALSE(item.text.empty());
    const auto* row = reinterpret_cast<const win32::MenuRow*>(item.info.dwItemData);
    ASSERT_NE(row, nullptr);
    const auto* accessible = reinterpret_cast<const MSAAMENUINFO*>(item.info.dwItemData);
    EXPECT_EQ(accessible->dwMSAASignature, 0xAA0DF00D);
    EXPECT_EQ(std::wstring(accessible->pszWText, accessible->cchWText), item.text);
    if (item.menu == GetMenu(window)) continue;
    const bool submenu = item.info.hSubMenu != nullptr;
    const UINT number = submenu ? item.position : item.info.wID;
    const auto selected = MAKEWPARAM(number, MF_HILITE | MF_OWNERDRAW | (submenu ? MF_POPUP : 0U));
    EXPECT_FALSE(win32::menuHelp(selected, reinterpret_cast<LPARAM>(item.menu)).empty()) << number;
    if (submenu) continue;
    ++commands;
    EXPECT_GE(item.info.wID, 40000U);
  }
  EXPECT_GT(commands, 70);

  const auto grey = [&](UINT command) {
    return (GetMenuState(open(), command, MF_BYCOMMAND) & MF_GRAYED) != 0;
  };
  EXPECT_TRUE(grey(mnuCloseWEB));
  EXPECT_TRUE(grey(mnuUTF8));
  EXPECT_TRUE(grey(mnuCut));
  program.view.setText("text");
  EXPECT_FALSE(grey(mnuUTF8));
  EXPECT_TRUE(grey(mnuCut));
  program.view.select(0, 2);
  EXPECT_FALSE(grey(mnuCut));
  EXPECT_NE(GetMenuState(open(), mnuens3, MF_BYCOMMAND) & MF_CHECKED,
            GetMenuState(open(), mnuens0, MF_BYCOMMAND) & MF_CHECKED);

  // While the keyboard or the mouse marks an item, its help is in the status bar.
  const HWND bar = GetDlgItem(window, IDC_FrmH_Status);
  const auto status = [&] {
    wchar_t text[300] = L"";
    SendMessageW(bar, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
    return std::wstring(text);
  };
  const std::wstring before = status();
  const HMENU file = GetSubMenu(GetMenu(window), 0);
  SendMessageW(window, WM_MENUSELECT, MAKEWPARAM(mnuSave, MF_HILITE | MF_OWNERDRAW),
               reinterpret_cast<LPARAM>(file));
  EXPECT_EQ(status(), L"დოკუმენტის შენახვა");
  SendMessageW(window, WM_MENUSELECT, MAKEWPARAM(0, 0xFFFF), 0);
  EXPECT_EQ(status(), before);
}

// One line drawn on white, and what it consists of.
class Drawn {
 public:
  Drawn(const ui::MenuItem& item, UINT state, int dpi) : menu_({item}, win32::Menu::Kind::PopUp), dpi_(dpi) {
    const HDC screen = GetDC(nullptr);
    canvas_.reset(CreateCompatibleDC(screen));
    bitmap_.reset(CreateCompatibleBitmap(screen, kWidth, kHeight));
    ReleaseDC(nullptr, screen);
    SelectObject(canvas_.get(), bitmap_.get());
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_MENU;
    draw.itemState = state;
    draw.hDC = canvas_.get();
    draw.rcItem = {0, 0, kWidth, win32::scaled(22, dpi)};
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_DATA;
    GetMenuItemInfoW(menu_.handle(), 0, TRUE, &info);
    draw.itemData = info.dwItemData;
    win32::drawMenuRow(draw, dpi);
  }
  // Pixels of exactly that colour between two places at 96 to the inch.
  int count(COLORREF color, int from, int to) const {
    int found = 0;
    for (int y = 0; y < win32::scaled(22, dpi_); ++y) {
      for (int x = win32::scaled(from, dpi_); x < win32::scaled(to, dpi_); ++x) {
        if (GetPixel(canvas_.get(), x, y) == color) ++found;
      }
    }
    return found;
  }
  // What is drawn between two places. Smoothed letters have hardly a pixel of exactly their colour.
  int ink(COLORREF back, int from, int to) const {
    return win32::scaled(to - from, dpi_) * win32::scaled(22, dpi_) - count(back, from, to);
  }
  int marks(COLORREF back) const { return ink(back, 0, 28); }  // the icon's column

 private:
  static constexpr int kWidth = 600;
  static constexpr int kHeight = 60;
  win32::Menu menu_;
  int dpi_;
  win32::UniqueCanvas canvas_;
  win32::UniqueBitmap bitmap_;
};

TEST(MenuLine, IsDrawnInTheSystemsColoursAtAnyDensity) {
  ui::MenuItem save;
  save.caption = "|4|&შენახვა";
  save.command = 1;
  ui::MenuItem bare = save;
  bare.caption = "&შენახვა";
  const COLORREF menu = GetSysColor(COLOR_MENU);
  const COLORREF lit = GetSysColor(COLOR_HIGHLIGHT);
  const COLORREF grey = GetSysColor(COLOR_GRAYTEXT);
  int marks[2] = {};
  for (const int dpi : {96, 192}) {
    const int scale = dpi / 96;
    const Drawn normal(save, 0, dpi);
    marks[scale - 1] = normal.marks(menu);
    EXPECT_GT(marks[scale - 1], 100 * scale * scale);
    EXPECT_LT(marks[scale - 1], 256 * scale * scale);
    EXPECT_GT(normal.ink(menu, 28, 150), 60 * scale);
    EXPECT_GT(normal.count(GetSysColor(COLOR_MENUTEXT), 28, 150), 5 * scale);
    EXPECT_EQ(normal.count(grey, 28, 150), 0);
    EXPECT_EQ(Drawn(bare, 0, dpi).marks(menu), 0);

    const Drawn selected(save, ODS_SELECTED, dpi);
    EXPECT_EQ(selected.count(menu, 150, 250), 0);
    EXPECT_EQ(selected.count(lit, 150, 250), 100 * scale * 22 * scale);
    EXPECT_GT(selected.count(GetSysColor(COLOR_HIGHLIGHTTEXT), 0, 28), 20 * scale);

    const Drawn disabled(save, ODS_GRAYED | ODS_DISABLED, dpi);
    EXPECT_GT(disabled.ink(menu, 28, 150), 60 * scale);
    EXPECT_GT(disabled.count(grey, 28, 150), 5 * scale);
    EXPECT_GT(disabled.count(grey, 0, 28), 20 * scale);
    EXPECT_EQ(disabled.count(GetSysColor(COLOR_MENUTEXT), 28, 150), 0);

    const Drawn checked(bare, ODS_CHECKED, dpi);
    EXPECT_GT(checked.marks(menu), 15 * scale * scale);
    bare.radio = true;
    const Drawn bullet(bare, ODS_CHECKED, dpi);
    bare.radio = false;
    EXPECT_GT(bullet.marks(menu), 15 * scale * scale);
    EXPECT_NE(bullet.marks(menu), checked.marks(menu));
    EXPECT_GT(Drawn(save, ODS_CHECKED, dpi).marks(menu), marks[scale - 1] + 20 * scale);
  }
  // Drawn anew and not stretched: close to four times as many points, but not the same ones.
  EXPECT_NEAR(marks[1], 4 * marks[0], marks[0]);
}

// Sums of a picture over white: how dark it is.
long darkness(int number, int size, const win32::IconColors& colors, COLORREF back,
              std::vector<COLORREF>* seen) {
  const HDC screen = GetDC(nullptr);
  const win32::UniqueCanvas canvas(CreateCompatibleDC(screen));
  const win32::UniqueBitmap bitmap(CreateCompatibleBitmap(screen, size, size));
  ReleaseDC(nullptr, screen);
  SelectObject(canvas.get(), bitmap.get());
  const win32::UniqueBrush ground(CreateSolidBrush(back));
  const RECT all{0, 0, size, size};
  FillRect(canvas.get(), &all, ground.get());
  win32::drawIcon(canvas.get(), ui::menuIconDrawing(number), {0, 0}, size, colors);
  long sum = 0;
  for (int y = 0; y < size; ++y) {
    for (int x = 0; x < size; ++x) {
      const COLORREF color = GetPixel(canvas.get(), x, y);
      sum += std::abs(GetRValue(color) - GetRValue(back)) + std::abs(GetGValue(color) - GetGValue(back)) +
             std::abs(GetBValue(color) - GetBValue(back));
      if (seen != nullptr) seen->push_back(color);
    }
  }
  return sum;
}

TEST(VectorIcons, EveryOneIsSeenOnLightAndDarkAndIsOneColourInHighContrast) {
  constexpr COLORREF kBlack = RGB(0, 0, 0);
  constexpr COLORREF kWhite = RGB(255, 255, 255);
  constexpr COLORREF kYellow = RGB(255, 255, 0);
  for (const auto& icon : ui::menuIconDrawings()) {
    const int number = static_cast<int>(icon.icon);
    EXPECT_GT(darkness(number, 16, {kBlack, kWhite}, kWhite, nullptr), 3000) << number;
    EXPECT_GT(darkness(number, 16, {kWhite, kBlack}, kBlack, nullptr), 3000) << number;
    std::vector<COLORREF> seen;
    EXPECT_GT(darkness(number, 24, {kYellow, kBlack, true}, kBlack, &seen), 3000) << number;
    for (const COLORREF color : seen) {
      EXPECT_EQ(GetRValue(color), GetGValue(color)) << number;
      EXPECT_EQ(GetBValue(color), 0) << number;
    }
  }
}

TEST(MenuLetters, MarkedOnesWinAndEqualOnesTakeTurns) {
  ui::MenuItem row;
  row.command = 1;
  std::vector<ui::MenuItem> items(4, row);
  items[0].caption = "სია";  // begins with it, not marked
  items[1].caption = "&სათაური";
  items[2].caption = "ა&ბზაცი";
  items[3].caption = "გვერ&დი";
  const win32::Menu menu(items, win32::Menu::Kind::PopUp);
  EXPECT_EQ(win32::menuCharacter(menu.handle(), L'ს'), MAKELRESULT(1, MNC_EXECUTE));
  EXPECT_EQ(win32::menuCharacter(menu.handle(), L's'), MAKELRESULT(1, MNC_EXECUTE));  // its key
  EXPECT_EQ(win32::menuCharacter(menu.handle(), L'გ'), MAKELRESULT(0, MNC_IGNORE));   // another is marked
  items[2].caption = "&ს";
  const win32::Menu twice(items, win32::Menu::Kind::PopUp);
  EXPECT_EQ(win32::menuCharacter(twice.handle(), L'ს'), MAKELRESULT(1, MNC_SELECT));
  MENUITEMINFOW state{};
  state.cbSize = sizeof state;
  state.fMask = MIIM_STATE;
  state.fState = MFS_HILITE;
  SetMenuItemInfoW(twice.handle(), 1, TRUE, &state);
  EXPECT_EQ(win32::menuCharacter(twice.handle(), L'ს'), MAKELRESULT(2, MNC_SELECT));
}

}  // namespace
