// The menus of the whole program, put together as it ships.
#include <gtest/gtest.h>

#include <set>

#include "tests/support/whole_program.h"
#include "ui/icons/menu_icons.h"

namespace {

class Menus : public tests::WholeProgram {};

// The letters marked with "&", as the user reads them.
std::u32string marked(const std::string& caption) {
  std::u32string all;
  for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != '&') continue;
    ++at;
    if (caption[at] == '&') continue;
    // Georgian letters are three bytes and have no capitals on the keyboard.
    const auto lead = static_cast<unsigned char>(caption[at]);
    all += lead < 0x80 ? static_cast<char32_t>(std::toupper(lead))
                       : static_cast<char32_t>((static_cast<unsigned char>(caption[at + 1]) << 8) |
                                               static_cast<unsigned char>(caption[at + 2]));
  }
  return all;
}

TEST_F(Menus, EveryRowHasCaptionPictureNumberAndHelp) {
  int rows = 0;
  std::set<int> commands;
  each(program->window().menus, "bar", [&](const Items& items, const std::string& menu) {
    bool separator = true;
    for (const ui::MenuItem& item : items) {
      EXPECT_FALSE(separator && item.separator()) << menu << ": a separator first or beside another";
      separator = item.separator();
      if (separator) continue;
      ++rows;
      const std::string text = shown(item);
      EXPECT_FALSE(text.empty()) << menu;
      EXPECT_EQ(text.find('|'), std::string::npos) << text;
      const int icon = ui::menuCaption(item.caption).icon;
      EXPECT_TRUE(icon == 0 || !ui::menuIconDrawing(icon).empty()) << text << " names picture " << icon;
      EXPECT_TRUE(menu == "bar" || !item.help.empty()) << menu << ": " << text << " has no help";
      EXPECT_NE(item.command == 0, item.items.empty()) << text;
      EXPECT_TRUE(item.command == 0 || commands.insert(item.command).second) << text << " stands twice";
    }
    EXPECT_FALSE(separator) << menu << " is empty or ends with a separator";
  });
  EXPECT_GT(rows, 80);
}

TEST_F(Menus, NoTwoRowsOfAMenuShareAMarkedLetter) {
  each(program->window().menus, "bar", [&](const Items& items, const std::string& menu) {
    std::set<char32_t> taken;
    for (const ui::MenuItem& item : items) {
      const std::u32string letters = marked(shown(item));
      EXPECT_LE(letters.size(), 1U) << shown(item);
      EXPECT_TRUE(letters.empty() || taken.insert(letters[0]).second) << menu << ": " << shown(item);
    }
  });
}

TEST_F(Menus, NoTwoCommandsShareAKey) {
  std::set<std::string> keys;
  each(program->window().menus, "bar", [&](const Items& items, const std::string&) {
    for (const ui::MenuItem& item : items) {
      const std::string key = ui::shortcutText(item.shortcut);
      EXPECT_TRUE(key.empty() || keys.insert(key).second) << key << ": " << shown(item);
    }
  });
  EXPECT_GT(keys.size(), 12U);
}

TEST_F(Menus, RowsAreEnabledByWhatIsThere) {
  ui::MainForm& window = program->window();
  const auto enabled = [&](int command) {
    bool state = false;
    window.menuOpening();
    each(window.menus, "", [&](const Items& items, const std::string&) {
      for (const ui::MenuItem& item : items) {
        if (item.command == command) state = item.enabled;
      }
    });
    return state;
  };
  const int needText[] = {mnuUTF8, mnuQUIH, mnuSelectAll, mnulinelength};
  const int needSelection[] = {mnuCut, mnuCopy, mnuDelete, mnumtubers, mnumarkfinddel};
  for (const int id : needText) EXPECT_FALSE(enabled(id)) << id;
  for (const int id : {mnuCloseWEB, mnuUndo, mnuPaste, mnuNextDocument}) EXPECT_FALSE(enabled(id)) << id;
  T1.type("text");
  platform.clip.bytes = "x";
  for (const int id : needText) EXPECT_TRUE(enabled(id)) << id;
  for (const int id : needSelection) EXPECT_FALSE(enabled(id)) << id;
  T1.select(0, 2);
  for (const int id : needSelection) EXPECT_TRUE(enabled(id)) << id;
  EXPECT_TRUE(enabled(mnuPaste));
  EXPECT_TRUE(enabled(mnuSave));
  EXPECT_FALSE(enabled(mnuCloseWEB));
}

TEST_F(Menus, HelpStandsInTheStatusBarOnlyWhileAnItemIsMarked) {
  auto& H = dynamic_cast<app::FrmH&>(program->window());
  H.setPanel("kMain", "before");
  H.menuHighlighted("help");
  EXPECT_EQ(H.Status.whole(), ui::Text("help"));
  H.menuHighlighted({});
  EXPECT_TRUE(H.Status.whole().empty());
  EXPECT_EQ(H.Status.panel("kMain"), ui::Text("before"));
}

}  // namespace
