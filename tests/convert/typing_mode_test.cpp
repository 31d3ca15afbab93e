#include "convert/typing_mode.h"

#include "base/cp1252.h"
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
  // `keys` are the bytes that a Western keyboard gives.
  std::string typed(const std::string& keys) {
    T1.load("");
    T1.type(base::utf8FromBytes(keys));
    return std::string(T1.text());
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
      T1.typeCharacter(25);
      EXPECT_EQ(T1.text(), reference ? "one&nbsp;two" : "one\xC2\xA0two");
    }
    T1.load("one two");
    T1.typeCharacter(2);
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
      // Letters beyond the modern alphabet where the font draws them.
      {mnuens1, "ჱჲჳჴ", tests::convertWithIconv("ჱჲჳჴ", "UTF-8", "GEORGIAN-PS")},
  };
  for (const Case& row : table) {
    H->runCommand(row.mode);
    T1.load("");
    T1.type(row.utf8);
    EXPECT_EQ(T1.text(), row.bytes) << row.mode << " " << row.utf8;
  }
}

TEST_F(Typing, InTheUtf8ViewEverythingEntersAsUtf8) {
  struct Case {
    int mode;
    std::string typed, entered;
  };
  const Case table[] = {{mnuens1, "saqarTvelo h„“—№é", "საქართველო h„“—№é"},
                        {mnuens0, "Privet №é", "Привет №é"},
                        {mnuens2, "saქЖ", "saქЖ"},
                        {mnuens3, "aé€ჰ", "aé€ჰ"}};
  T1.load("ა");
  T1.setView(ui::TextView::Utf8);
  for (const Case& row : table) {
    H->runCommand(row.mode);
    T1.setText("");
    T1.setView(ui::TextView::Utf8);
    T1.type(row.typed);
    EXPECT_EQ(T1.text(), row.entered) << row.mode;
  }
}

TEST_F(Typing, WhatIsPastedEntersByTheViewAndIsAskedAboutWhereNoByteStandsForIt) {
  const std::string phrase = "„საქართველო“ — №5";
  H->runCommand(mnuens1);
  H->mnunewF_Click(".HTML", "ქართული\nx\n");
  T1.clipboard = phrase + "\r\n";
  T1.paste();
  EXPECT_EQ(T1.text(), "ქართული\nx\n" + phrase + "\n");  // the page's own line ends

  H->mnunewF_Click(".HTML", "");
  H->runCommand(mnuens1);
  T1.clipboard = "ქ№";
  expectBoxWith("1 ნიშანია", app::kAnswerYes);
  T1.paste();
  EXPECT_EQ(T1.text(), "\xD8&#8470;");
  expectBoxWith("1 ნიშანია", app::kAnswerCancel);
  T1.paste();
  EXPECT_EQ(T1.text(), "\xD8&#8470;");
}

TEST_F(Typing, TheClipboardGetsTheLettersThatAreSeenAndTheBytesWhole) {
  const std::string old = "\xC0\xC7\xE4 <B>\x93\x81\r";
  H->mnunewF_Click(".HTML", old);
  H->runCommand(mnuens1);
  T1.select(0, static_cast<int>(old.size()));
  H->runCommand(mnuCopy);
  EXPECT_EQ(platform.clip.bytes, old);
  EXPECT_EQ(platform.clip.letters, "აჱჰ <B>“\xC2\x81\r");
  const ui::TextClip own = platform.clip;
  T1.enterClip(own);
  EXPECT_EQ(T1.text(), old);

  H->runCommand(mnuens0);
  T1.setText("\xCF\xE8\xB9");
  T1.select(0, 3);
  H->runCommand(mnuCopy);
  EXPECT_EQ(platform.clip.letters, tests::convertWithIconv("\xCF\xE8\xB9", "CP1251", "UTF-8"));

  H->mnunewF_Click(".HTML", "ა");  // the bytes of the font as letters
  T1.select(0, 3);
  T1.enterClip(own);
  EXPECT_EQ(T1.text(), "აჱჰ <B>“\xC2\x81\r\n");
}

TEST_F(Typing, TheModeBelongsToTheDocument) {
  H->Props.ModeOfPage = true;
  const std::string old = tests::convertWithIconv("რომელმან შექმნა სამყარო", "UTF-8", "GEORGIAN-PS");
  const std::string russian = tests::convertWithIconv("Как закалялась сталь", "UTF-8", "CP1251");
  folder.make("a.html", old);
  folder.make("b.html", russian);
  folder.make("c.html", "plain");
  for (const char* name : {"a.html", "b.html", "c.html"}) open(folder.file(name));
  EXPECT_TRUE(H->commandChecked(mnuens3));
  H->runCommand(mnuens2);
  clickNode("b.html");
  EXPECT_TRUE(H->commandChecked(mnuens0));
  clickNode("a.html");
  EXPECT_TRUE(H->commandChecked(mnuens1));
  clickNode("c.html");
  EXPECT_TRUE(H->commandChecked(mnuens2));
}

TEST(Reencoded, KeepsTheLettersOrDoesNothing) {
  using convert::TypingMode;
  constexpr convert::ReadAs kUtf8{ui::TextView::Utf8, TypingMode::Latin};
  const auto eightBit = [](TypingMode mode) { return convert::ReadAs{ui::TextView::EightBit, mode}; };
  const std::string russian = "Съешь №5 <b>";
  const std::string georgian = "ქართული ჰ <b>é";
  const auto made = [](const std::string& bytes, convert::ReadAs from, convert::ReadAs to) {
    return convert::reencoded(bytes, from, to, tests::letterTables()).value_or("none");
  };
  EXPECT_EQ(made(russian, kUtf8, eightBit(TypingMode::Russian)),
            tests::convertWithIconv(russian, "UTF-8", "CP1251"));
  EXPECT_EQ(made(tests::convertWithIconv(russian, "UTF-8", "CP1251"), eightBit(TypingMode::Russian), kUtf8),
            russian);
  EXPECT_EQ(made(georgian, kUtf8, eightBit(TypingMode::GeorgianISO)),
            "\xD8\xC0\xD2\xC8\xD6\xCB\xC9 \xE4 <b>\xE9");
  EXPECT_EQ(made("\xD8\xC0\xD2 \xE4", eightBit(TypingMode::GeorgianISO), kUtf8), "ქარ ჰ");
  EXPECT_EQ(made("\xD8\xC0\xD2 \xE4", eightBit(TypingMode::GeorgianISO), eightBit(TypingMode::GeorgianASCII)),
            "qar h");
  // Letters that are not there, Latin ones that would be read as Georgian, bytes that are no letters.
  EXPECT_EQ(made(russian, kUtf8, eightBit(TypingMode::GeorgianISO)), "none");
  EXPECT_EQ(made("ა <b>", kUtf8, eightBit(TypingMode::GeorgianASCII)), "none");
  EXPECT_EQ(made("<b>", eightBit(TypingMode::GeorgianASCII), kUtf8), "none");
  EXPECT_EQ(made("\xE1\x83", kUtf8, eightBit(TypingMode::GeorgianISO)), "none");
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
