#include "convert/status_panels.h"

#include "app/mdlsaerto.h"
#include "convert/attach.h"
#include "convert/encoding_counts.h"
#include "tests/convert/tables.h"
#include "tests/support/main_window.h"

namespace {

class StatusPanels : public tests::MainWindowTest {
 protected:
  StatusPanels() {
    attached = convert::attach(*H);
    start();
  }
  std::string panel(const char* key) { return ui::display(H->Status.panel(key)); }

  std::unique_ptr<convert::Attached> attached;
};

TEST_F(StatusPanels, PreviewShowsTheDecodedSelectionWhileSwitchedOn) {
  T1.load("<P>ხაჯო</P>");
  T1.select(3, 12);
  EXPECT_EQ(panel("kPreview"), "");
  ASSERT_TRUE(H->runCommand(mnuPreviewPane));
  EXPECT_TRUE(H->commandChecked(mnuPreviewPane));
  EXPECT_TRUE(app::ReadProps(platform).SelectionPreview);
  EXPECT_EQ(panel("kPreview"), "ხაჯო");
  T1.select(3, 6);
  EXPECT_EQ(panel("kPreview"), "ხა");
  T1.select(3, 0);
  EXPECT_EQ(panel("kPreview"), "");
  T1.select(3, 6);
  ASSERT_TRUE(H->runCommand(mnuPreviewPane));
  EXPECT_EQ(panel("kPreview"), "");
}

TEST(SelectionPreview, IsShortAndCutsNoLetter) {
  std::string letters;
  for (int i = 0; i < 100; ++i) letters += "ა";
  for (int lead = 0; lead < 3; ++lead) {
    const std::string text = std::string(static_cast<std::size_t>(lead), '.') + letters;
    const std::string shown =
        convert::selectionPreview(text, 0, static_cast<int>(text.size()), tests::conversions());
    EXPECT_EQ(shown, std::string(static_cast<std::size_t>(lead), '.') +
                         std::string(static_cast<std::size_t>((200 - lead) / 3), '\xC0'));
  }
  EXPECT_EQ(convert::selectionPreview("a\r\nb\tc", 0, 6, tests::conversions()), "a  b c");
}

TEST(EncodingCounts, CountLettersOfEachEncoding) {
  struct Case {
    std::string text;
    convert::EncodingCounts counts;
  };
  const Case table[] = {
      {"", {0, 0, 0, 0}},
      {"Abz 12@[`{", {0, 0, 0, 3}},
      {"\xC0\xC1\xE4", {3, 0, 0, 0}},
      {"\xC7\xCE\xD5\xE2\xE5\xBF", {0, 0, 0, 0}},
      {"ჰა, Ж é", {0, 2, 0, 0}},
      {"\xE1\x83", {1, 0, 0, 0}},
      {"&#4304;&#4336;&#4256;&#4288;", {0, 0, 4, 0}},
      {"&#4303;&#4337;&#1040;&#430;&#4304", {0, 0, 0, 0}},
      {"&&#4304;a\xD7ფ", {1, 1, 1, 1}},
  };
  for (const Case& row : table) {
    EXPECT_EQ(convert::countEncodings(row.text), row.counts) << testing::PrintToString(row.text);
  }
}

TEST_F(StatusPanels, CountsFollowTheTextWhenNothingElseIsToDo) {
  T1.load("ab ც");
  H->pause();
  EXPECT_EQ(panel("kCounts"), "ISO 0  UTF8 1  HEX 0  ASCII 2");
  T1.type("c");
  EXPECT_EQ(panel("kCounts"), "ISO 0  UTF8 1  HEX 0  ASCII 2");
  T1.load("\xC0&#4304;");
  H->pause();
  EXPECT_EQ(panel("kCounts"), "ISO 1  UTF8 0  HEX 1  ASCII 0");
}

}  // namespace
