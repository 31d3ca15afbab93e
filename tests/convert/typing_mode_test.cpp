#include "convert/typing_mode.h"

#include "base/utf8.h"
#include "convert/attach.h"
#include "convert/frmrusaso.h"
#include "convert/russian.h"
#include "tests/convert/tables.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"

namespace {

class Typing : public tests::MainWindowTest {
 protected:
  Typing() {
    attached = convert::attach(*H);
    start();
  }
  std::string typed(const std::string& keys) {
    T1.load("");
    T1.type(keys);
    return T1.text();
  }

  std::unique_ptr<convert::Attached> attached;
};

std::string allBytes(int first, int last) {
  std::string all;
  for (int byte = first; byte <= last; ++byte) all += static_cast<char>(byte);
  return all;
}

TEST_F(Typing, EachModeHasItsKeys) {
  // At start and in the mode that shows Latin codes as Georgian, keys stay as they are.
  EXPECT_EQ(typed(allBytes(32, 255)), allBytes(32, 255));
  H->runCommand(mnuens2);
  EXPECT_EQ(typed(allBytes(32, 255)), allBytes(32, 255));

  H->runCommand(mnuens1);
  EXPECT_EQ(tests::convertWithIconv(typed("abgdevzTiklmnopJrstufqRySCcZwWxj"), "GEORGIAN-PS", "UTF-8"),
            "აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯ");
  const std::string noKeys = "hABDEFGHIKLMNOPQUVXY 0123<>&;\xC0\xE4";
  EXPECT_EQ(typed(noKeys), noKeys);

  H->runCommand(mnuens0);
  EXPECT_EQ(tests::convertWithIconv(typed("ABVGDEZIKLMNOPRSTUFXCQWHJY"), "CP1251", "UTF-8"),
            "АБВГДЕЗИКЛМНОПРСТУФХЦЧШЮЯЖ");
  EXPECT_EQ(tests::convertWithIconv(typed("abvgdeziklmnoprstufxcqwhjy"), "CP1251", "UTF-8"),
            "абвгдезиклмнопрстуфхцчшюяж");
  EXPECT_EQ(typed("1 <>&\xC0"), "1 <>&\xC0");
}

TEST_F(Typing, CtrlBAndCtrlYReplaceTheSelectionInEveryMode) {
  for (const int mode : {mnuens0, mnuens1, mnuens2, mnuens3}) {
    H->runCommand(mode);
    for (const bool reference : {false, true}) {
      H->Props.NoBreakSpaceAsReference = reference;
      T1.load("one two");
      T1.select(3, 1);
      EXPECT_EQ(T1.keyPress(25), 25);
      EXPECT_EQ(T1.text(), reference ? "one&nbsp;two" : "one\xC2\xA0two");
    }
    T1.load("one two");
    EXPECT_EQ(T1.keyPress(2), 2);
    EXPECT_EQ(T1.text(), "<BR>one two");
  }
}

TEST_F(Typing, ExactlyOneModeIsCheckedAndSetsTheFontOfTheView) {
  H->Props.EditorFontSize = 11;
  H->Props.EditorFontBold = true;
  H->Props.TypingFontName[1] = "My Georgian";
  const int ids[] = {mnuens0, mnuens1, mnuens2, mnuens3};
  const std::string fonts[] = {"Zervo RUS", "My Georgian", "Zervo ASCII", "Zervo ISO"};
  const std::string names[] = {"რუსული", "ქართული ISO", "ქართული ASCII", "ლათინური"};
  EXPECT_TRUE(H->commandChecked(mnuens3));
  EXPECT_EQ(ui::display(H->Status.panel("kMode")), names[3]);
  for (std::size_t k = 0; k < 4; ++k) {
    ASSERT_TRUE(H->runCommand(ids[k]));
    for (std::size_t other = 0; other < 4; ++other) EXPECT_EQ(H->commandChecked(ids[other]), other == k);
    EXPECT_EQ(T1.font, (ui::Font{fonts[k], 11, true, false,
                                 k == 0 ? ui::CharacterSet::Russian : ui::CharacterSet::Ansi}));
    EXPECT_EQ(ui::display(H->Status.panel("kMode")), names[k]);
  }
}

TEST_F(Typing, UnicodeTextBecomesBytesOfTheModeAndNothingIsLost) {
  struct Case {
    int mode;
    std::string utf8, bytes;
  };
  const std::string alphabet = "აბგდევზთიკლმნოპჟრსტუფქღყშჩცძწჭხჯჰ";
  const std::string russian = "Съешь ещё Їжак №5";
  const Case table[] = {
      {mnuens1, alphabet, tests::convertWithIconv(alphabet, "UTF-8", "GEORGIAN-PS")},
      {mnuens2, alphabet, "abgdevzTiklmnopJrstufqRySCcZwWxjh"},
      {mnuens0, russian, tests::convertWithIconv(russian, "UTF-8", "CP1251")},
      {mnuens0, alphabet, alphabet},
      {mnuens3, alphabet + russian, alphabet + russian},
      {mnuens1, "ქ Ж", "\xD8 Ж"},
      // A character of the Western code page is its byte in every mode; others are their UTF-8.
      {mnuens3, "é€“ა中😀", "\xE9\x80\x93ა中😀"},
      {mnuens2, "é€“ა中😀",
       "\xE9\x80\x93"
       "a中😀"},
      // Letters beyond the modern alphabet have no form of a byte; broken UTF-8 stays as it is.
      {mnuens1, "ჱჲ\xE1\x83", "ჱჲ\xE1\x83"},
  };
  for (const Case& row : table) {
    H->runCommand(row.mode);
    T1.load("");
    T1.typeUnicode(row.utf8);
    EXPECT_EQ(T1.text(), row.bytes) << row.mode << " " << row.utf8;
  }
}

TEST(CyrillicByte, IsTheByteOfWindows1251ForEveryLetter) {
  int letters = 0;
  for (char32_t character = 0x80; character < 0x2200; ++character) {
    const auto byte = convert::cyrillicByte(character);
    std::string utf8;
    base::appendUtf8(utf8, character);
    if (byte) {
      ++letters;
      EXPECT_EQ(tests::convertWithIconv(std::string(1, static_cast<char>(*byte)), "CP1251", "UTF-8"), utf8);
    } else if (character >= 0x400 && character < 0x500) {
      EXPECT_THROW(tests::convertWithIconv(utf8, "UTF-8", "CP1251"), std::runtime_error) << utf8;
    }
  }
  EXPECT_EQ(letters, 95);
}

TEST_F(Typing, TheDialogShowsTheRussianKeys) {
  platform.modal.push_back([](ui::Form& form) {
    auto& dialog = dynamic_cast<convert::frmrusaso&>(form);
    EXPECT_EQ(ui::display(dialog.caption()), "რუსული ასოები");
    ASSERT_EQ(dialog.LV.items().size(), 52U);
    EXPECT_EQ(dialog.LV.items()[25].text.bytes, "Y");
    EXPECT_EQ(dialog.LV.items()[25].subItems[0].bytes, "Ж");
    EXPECT_EQ(dialog.LV.items()[49].subItems[0].bytes, "ю");
    EXPECT_EQ(dialog.cancelButton, &dialog.CEXIT);
    dialog.CEXIT.click();
    EXPECT_TRUE(dialog.closed());
  });
  ASSERT_TRUE(H->runCommand(mnurusaso));
}

}  // namespace
