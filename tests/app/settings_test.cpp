#include <gtest/gtest.h>

#include "app/mdlsaerto.h"
#include "app/props_record.h"
#include "app/web_file.h"
#include "base/error.h"
#include "tests/support/main_window.h"

namespace {

app::PropsRecord someProps() {
  app::PropsRecord props;
  props.RememberPosition = true;
  props.EditorFontName = "სილფაენი";
  props.EditorFontSize = -12;
  props.EditorBackColor = 0x00FEDCBA;
  props.ShowAtStart = 255;
  props.TypingFontName = {"a", "", "c\0d", "e"};
  props.BodyAttributes = "BGCOLOR=\"#FFFFFF\"\r\nTEXT=x";
  return props;
}

TEST(PropsRecord, ReadsBackWhatItWrote) {
  EXPECT_EQ(app::decodeProps(app::encodeProps(someProps())), someProps());
}

TEST(PropsRecord, NumbersAreLittleEndianAndBooleansMinusOne) {
  app::PropsRecord props;
  props.ReopenLastFile = true;
  // Header of ten bytes, then the first three booleans.
  EXPECT_EQ(app::encodeProps(props).substr(0, 6), std::string("ZRVP\x01\x00", 6));
  EXPECT_EQ(app::encodeProps(props).substr(10, 6), std::string("\0\0\0\0\xFF\xFF", 6));
}

TEST(PropsRecord, RefusesEveryCutAndEveryFlippedBit) {
  const std::string good = app::encodeProps(someProps());
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_THROW(app::decodeProps(good.substr(0, size)), base::Error) << size;
  }
  for (std::size_t at = 6; at < good.size(); ++at) {
    std::string bad = good;
    bad[at] = static_cast<char>(bad[at] ^ 0x10);
    EXPECT_THROW(app::decodeProps(bad), base::Error) << at;
  }
  EXPECT_THROW(app::decodeProps(good + "x"), base::Error);
}

using SettingsFile = tests::MainWindowTest;

TEST_F(SettingsFile, MissingGivesZeroSettingsWithoutAWord) {
  EXPECT_EQ(app::ReadProps(platform), app::PropsRecord());
}

TEST_F(SettingsFile, DamagedIsPutAsideEachTimeUnderAFreeName) {
  for (const char* name : {"props.ini.bad", "props.ini.bad2"}) {
    base::writeFile(base::joinPath(platform.folder, "props.ini"), std::string("ZRVP broken ") + name);
    expectBoxWith(name, app::kAnswerOk);
    EXPECT_EQ(app::ReadProps(platform), app::PropsRecord());
    EXPECT_FALSE(base::fileExists(base::joinPath(platform.folder, "props.ini")));
    EXPECT_EQ(base::readFile(base::joinPath(platform.folder, name)), std::string("ZRVP broken ") + name);
  }
  app::WriteProps(platform, someProps());
  EXPECT_EQ(app::ReadProps(platform), someProps());
}

TEST(SharedRoutines, ColorToHtmlDropsLeadingZerosOnly) {
  EXPECT_EQ(app::ColorToHtml(255), "#FF0000");
  EXPECT_EQ(app::ColorToHtml(5), "#50000");
  EXPECT_EQ(app::ColorToHtml(base::rgb(12, 11, 10)), "#CBA");
  EXPECT_EQ(app::ColorToHtml(base::rgb(0, 16, 160)), "#0010A0");
}

TEST(SharedRoutines, FileNamesThatCannotBe) {
  for (const char bad : std::string("\\/?:*<>|\"")) {
    EXPECT_TRUE(app::IsBadFileName(std::string("a") + bad + "b")) << bad;
  }
  EXPECT_FALSE(app::IsBadFileName("ინდექსი index.html"));
}

TEST_F(SettingsFile, HelpOpensOnlyWhenItsFileIsThere) {
  app::ShowHelp(platform, "a.htm");
  EXPECT_TRUE(platform.helped.empty());
  const std::string help = base::joinPath(platform.folder, "Zervo.chm");
  base::writeFile(help, "x");
  app::ShowHelp(platform, "");
  app::ShowHelp(platform, "a.htm");
  EXPECT_EQ(platform.helped, (std::vector<std::string>{help, help + "::a.htm"}));
  platform.showsHelp = false;
  expectBoxWith(help, app::kAnswerOk);
  app::ShowHelp(platform, "");
}

TEST(WebFile, ReadsFilesWrittenByHand) {
  const app::WebFile file = app::parseWebFile(
      "\xEF\xBB\xBF\r\n a.html \r\n  \r\nb\nc\r\n STOPF=x\r\nSTOPF= a.html \r\nnot this\r\n");
  EXPECT_EQ(file.names, (std::vector<std::string>{" a.html ", "b\nc", " STOPF=x"}));
  EXPECT_EQ(file.startPage, " a.html ");
  EXPECT_FALSE(app::parseWebFile("a.html").startPage.has_value());
  EXPECT_EQ(app::parseWebFile("a\n\nb\nSTOPF=b\n").names, (std::vector<std::string>{"a", "b"}));
}

TEST(WebFile, KnowsNamesThatLeadOutOfTheFolder) {
  for (const char* name : {"..\\a", "x/../../a", ".. \\a", "x\\..\\..\\x\\a"})
    EXPECT_TRUE(app::leavesFolder(name)) << name;
  for (const char* name : {"a", "x\\..\\a", ".\\a..b", "\\a", "..a\\b"})
    EXPECT_FALSE(app::leavesFolder(name)) << name;
}

TEST(WebFile, WritesSortedNamesThenTheStartPage) {
  EXPECT_EQ(app::webFileText({"b.css", "Index.HTML", "a.css"}, "Index.HTML"),
            "a.css\r\nb.css\r\nIndex.HTML\r\nSTOPF=Index.HTML\r\n");
}

TEST(WebFile, NamesKeepTheirLettersInTheEightBitFile) {
  // é fits the 8-bit code page; Georgian does not and stays UTF-8; "Ã©" as bytes would read as é, so it must
  // not.
  for (const std::string name : {"caf\xC3\xA9.html", "გვერდი.html", "\xC3\x83\xC2\xA9.html"}) {
    const std::string text = app::webFileText({name}, name);
    EXPECT_EQ(app::parseWebFile(text).names, std::vector<std::string>{name});
    EXPECT_EQ(app::parseWebFile(text).startPage, name);
  }
  EXPECT_EQ(app::webFileText({"caf\xC3\xA9"}, "x"), "caf\xE9\r\nSTOPF=x\r\n");
}

}  // namespace
