#include <gtest/gtest.h>

#include "resources/ids.h"
#include "tests/support/iconv.h"
#include "ui/controls.h"
#include "ui/menu.h"
#include "ui/text.h"

namespace {

using namespace ui::literals;

TEST(InterfaceText, BothGeorgianKindsReadAsUnicodeGeorgian) {
  EXPECT_EQ(ui::display("faili Seicvala. 1|&"_keyboard), "ფაილი შეიცვალა. 1|&");
  EXPECT_EQ(ui::display("h"_keyboard), "ჰ");
  EXPECT_EQ(ui::display("×ÀÉËÉÓ UTF8 ä"_legacy), "ფაილის UTF8 ჰ");
  EXPECT_EQ(ui::display("faili ფ"), "faili ფ");
}

TEST(InterfaceText, LegacyLettersAgreeWithTheSystemsTable) {
  std::string all;
  for (int byte = 0xC0; byte <= 0xE4; ++byte) {
    if (byte != 0xC7 && byte != 0xCE && byte != 0xD5 && byte != 0xE2) all += static_cast<char>(byte);
  }
  EXPECT_EQ(ui::display({all, ui::TextKind::Legacy}), tests::convertWithIconv(all, "GEORGIAN-PS", "UTF-8"));
}

TEST(MenuCaption, PrefixIsTheIconNumber) {
  EXPECT_EQ(ui::menuCaption("|19|UTF8"_keyboard).icon, 19);
  EXPECT_EQ(ui::menuCaption("|19|UTF8"_keyboard).text, "UTF8"_keyboard);
  for (const char* plain : {"|x|a", "|", "||a", "a|1|", "|12"}) {
    EXPECT_EQ(ui::menuCaption(plain).icon, 0) << plain;
    EXPECT_EQ(ui::menuCaption(plain).text, ui::Text(plain));
  }
}

TEST(ShortcutText, NamesTheKeys) {
  EXPECT_EQ(ui::shortcutText(ui::ctrlShift('S')), "Ctrl+Shift+S");
  EXPECT_EQ(ui::shortcutText({ui::kKeyF1 + 11, false, false, false}), "F12");
  EXPECT_EQ(ui::shortcutText({}), "");
  EXPECT_EQ(ui::shortcutText({ui::kKeyMinus, true, false, false}), "Ctrl+-");
  // Plus is plus, wherever it is pressed; without Ctrl the keys stay what they are.
  const ui::Shortcut plus{ui::kKeyPlus, true, false, false}, bare{ui::kKeyNumberPlus, false, false, false};
  EXPECT_EQ(ui::asMenusNameIt({ui::kKeyNumberPlus, true, false, false}), plus);
  EXPECT_EQ(ui::asMenusNameIt({ui::kKeyPlus, true, true, false}), plus);
  EXPECT_EQ(ui::asMenusNameIt({ui::kKeyNumber0, true, false, false}), ui::ctrl('0'));
  EXPECT_EQ(ui::asMenusNameIt(bare), bare);
}

TEST(Controls, OnlyTheUsersActsRaiseEvents) {
  ui::Form form("f", 1);
  ui::TextBox box(form, 2);
  ui::Button button(form, 3);
  ui::OptionButton one(form, 4, 1), two(form, 5, 1), other(form, 6, 2);
  int events = 0;
  box.changed.connect([&] { ++events; });
  two.changed.connect([&] { ++events; });
  button.clicked.connect([&] { ++events; });
  box.setText("a");
  two.choose();
  one.choose();
  other.choose();
  EXPECT_FALSE(two.chosen());
  EXPECT_TRUE(other.chosen());
  EXPECT_EQ(events, 0);
  box.userSet("b");
  two.userChoose();
  EXPECT_FALSE(one.chosen());
  button.setEnabled(false);
  button.click();
  EXPECT_EQ(events, 2);
}

}  // namespace
