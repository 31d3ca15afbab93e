// The window that shows a page's conversion before it is done.
#include "convert/frmletters.h"

#include "base/utf8.h"
#include "convert/attach.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"

namespace {

using convert::frmletters;

class Letters : public tests::MainWindowTest {
 protected:
  Letters() {
    attached = convert::attach(*H);
    start();
  }
  // Opens the window by its command; `act` is the user.
  void look(const std::function<void(frmletters&)>& act) {
    platform.modal.push_back([act](ui::Form& form) { act(dynamic_cast<frmletters&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuletters));
  }
  static int rowWith(const frmletters& form, const std::string& part) {
    const auto& items = form.LV.items();
    for (std::size_t i = 0; i < items.size(); ++i) {
      for (const ui::Text& text : items[i].subItems) {
        if (text.bytes.find(part) != std::string::npos) return static_cast<int>(i);
      }
    }
    ADD_FAILURE() << "no row with " << part;
    return -1;
  }
  static std::string old(const std::string& utf8) {
    return tests::convertWithIconv(utf8, "UTF-8", "GEORGIAN-PS");
  }
  static constexpr const char* kFirst = "საქართველო მშვენიერი ქვეყანაა და აქ ქართულად წერენ";
  static constexpr const char* kSecond = "ძველი გვერდი ახალი ასოებით უნდა წავიკითხოთ";
  const std::string page = "<HTML><HEAD><TITLE>x</TITLE></HEAD><BODY>\r\n<P><FONT FACE=\"Geo_Times\">" +
                           old(kFirst) + "</FONT>\r\n<P><FONT FACE=\"Geo_Times\">" + old(kSecond) +
                           "</FONT> English words stand here\r\n</BODY></HTML>";

  std::unique_ptr<convert::Attached> attached;
};

TEST_F(Letters, ThePageBecomesWhatIconvSaysInOneStepAndTheCaretStays) {
  T1.load(page);
  const auto caret = static_cast<int>(page.find("English"));
  T1.select(caret, 0);
  look([](frmletters& form) {
    EXPECT_TRUE(form.LV.items()[static_cast<std::size_t>(rowWith(form, kFirst))].checked);
    form.COK.click();
  });
  const std::string made(T1.text());
  EXPECT_EQ(made, "<HTML><HEAD>\r\n<META CHARSET=\"UTF-8\"><TITLE>x</TITLE></HEAD><BODY>\r\n<P><FONT>" +
                      std::string(kFirst) + "</FONT>\r\n<P><FONT>" + kSecond +
                      "</FONT> English words stand here\r\n</BODY></HTML>");
  EXPECT_EQ(T1.selStart(), static_cast<int>(made.find("English")));
  EXPECT_EQ(T1.view(), ui::TextView::Utf8);
  T1.undo();
  EXPECT_EQ(T1.text(), page);
  EXPECT_FALSE(T1.canUndo());
  T1.redo();
  look([](frmletters& form) {
    EXPECT_TRUE(form.LV.items().empty());
    EXPECT_FALSE(form.COK.enabled());
  });
  EXPECT_EQ(T1.text(), made);
}

TEST_F(Letters, WhatHasNoTickStaysAndSoDoesTheFontAroundIt) {
  T1.load("<FONT FACE=\"Geo_Times\"><P>" + old(kFirst) + "<P>" + old(kSecond) + "</FONT>");
  look([](frmletters& form) {
    form.LV.userCheck(rowWith(form, kSecond), false);
    EXPECT_FALSE(form.LV.items()[0].checked) << "the heading of a group that is ticked in part";
    form.COK.click();
  });
  EXPECT_EQ(T1.text(), "<FONT FACE=\"Geo_Times\"><P>" + std::string(kFirst) + "<P>" +
                           tests::convertWithIconv(old(kSecond), "WINDOWS-1252", "UTF-8") + "</FONT>");
}

TEST_F(Letters, TheFormOfAGroupIsTheUsersToSay) {
  T1.load(page);
  look([](frmletters& form) {
    const int heading = 0;
    form.LV.userSelect(heading);
    form.CBform.userSelect(2);  // the order of Unicode
    form.COK.click();
  });
  const std::string made(T1.text());
  EXPECT_NE(made.find(tests::convertWithIconv(old(kFirst), "GEORGIAN-ACADEMY", "UTF-8")), std::string::npos)
      << made;
}

TEST_F(Letters, OfASelectionOnlyThatIsConverted) {
  T1.load(page);
  const auto begin = static_cast<int>(page.find(old(kSecond)));
  const auto size = static_cast<int>(old(kSecond).size());
  T1.select(begin, size);
  look([](frmletters& form) {
    form.CBto.userSelect(1);
    form.COK.click();
  });
  std::string expected = page;
  std::string references;
  for (std::size_t at = 0; at < std::string(kSecond).size();) {
    const char32_t c = *base::nextUtf8(kSecond, at);
    references += c < 0x80 ? std::string(1, static_cast<char>(c)) : "&#" + std::to_string(unsigned(c)) + ";";
  }
  expected.replace(static_cast<std::size_t>(begin), static_cast<std::size_t>(size), references);
  EXPECT_EQ(T1.text(), expected);
  EXPECT_EQ(T1.selText(), references);
}

TEST_F(Letters, WhatNobodyKnowsStandsFirstAndStaysUntilItIsTicked) {
  T1.load(
      "<P><FONT FACE=\"AcadNusx\">romelman Seqmna samyaro ZaliTa miT ZlieriTa zegardmo arsni</FONT>"
      "<P>kargi<P>English words are here too and there are many of them so far");
  look([](frmletters& form) {
    const int row = rowWith(form, "kargi");
    if (row < 0) return;
    EXPECT_EQ(row, 1);
    EXPECT_FALSE(form.LV.items()[1].checked);
    form.LV.userCheck(row, true);
    EXPECT_TRUE(form.LV.items()[1].checked) << "it keeps its place";
    form.COK.click();
  });
  EXPECT_NE(T1.text().find("<P>კარგი<P>English words"), std::string::npos) << T1.text();
}

TEST_F(Letters, WhatIsNoPageIsRefusedWithAWord) {
  T1.load(std::string("MZ\0\0\1\2\3\0\0\0\0\0\0\0\0\0\0\0\0\0", 20));
  expectBoxWith("ორობითი", app::kAnswerOk);
  ASSERT_TRUE(H->runCommand(mnuletters));
  T1.load(
      std::string("\xFF\xFE"
                  "a\0b\0c\0",
                  8));
  expectBoxWith("UTF-16", app::kAnswerNo);
  ASSERT_TRUE(H->runCommand(mnuletters));
  EXPECT_FALSE(T1.canUndo());
}

TEST_F(Letters, ManyTextsAreShownInPartAndConvertedInWhole) {
  std::string many;
  for (int i = 0; i < 3000; ++i) many += "<P>" + old(kFirst) + "\n";
  T1.load(many);
  look([](frmletters& form) {
    const std::size_t before = form.LV.items().size();
    EXPECT_LT(before, 300U);
    form.LV.userSelect(rowWith(form, "კიდევ"));
    EXPECT_GT(form.LV.items().size(), before);
    form.COK.click();
  });
  std::size_t found = 0;
  for (std::size_t at = 0; (at = T1.text().find(kFirst, at)) != std::string::npos; ++at) ++found;
  EXPECT_EQ(found, 3000U);
}

TEST_F(Letters, TheStatusBarNamesTheFormAndOffersOnce) {
  const std::string path = folder.make("old.htm", page);
  open(path);
  H->pause();
  const auto panel = [&] { return ui::display(H->Status.panel("kForm")); };
  EXPECT_NE(panel().find("ძველი შრიფტი (ISO)"), std::string::npos) << panel();
  EXPECT_NE(panel().find("Ctrl+Shift+U"), std::string::npos);
  T1.type("a");
  H->pause();
  EXPECT_NE(panel().find("ძველი შრიფტი (ISO)"), std::string::npos) << panel();
  EXPECT_EQ(panel().find("Ctrl+Shift+U"), std::string::npos);
  open(folder.make("new.htm", "<P>საქართველო"));
  H->pause();
  EXPECT_EQ(panel(), "UTF-8");
}

TEST_F(Letters, FontsBesideTheProgramAreKnown) {
  base::writeFile(platform.folder + "/FONTS.txt", "keyboard: Our Letters\n");
  T1.load("<FONT FACE=\"Our Letters\">dila mSvidobisa</FONT>");
  look([](frmletters& form) { form.COK.click(); });
  EXPECT_NE(T1.text().find("დილა მშვიდობისა"), std::string::npos) << T1.text();
}

}  // namespace
