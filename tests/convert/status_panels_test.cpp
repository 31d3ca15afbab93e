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
  // Letters that no legacy font has, and a page in such a font.
  T1.load("„Жé“");
  T1.setView(ui::TextView::Utf8);
  T1.select(0, 10);
  EXPECT_EQ(panel("kPreview"), "„Жé“");
  T1.load("\xC0\xC1");
  T1.select(0, 2);
  EXPECT_EQ(panel("kPreview"), "აბ");
  T1.select(0, 0);
  EXPECT_EQ(panel("kPreview"), "");
  T1.select(0, 1);
  ASSERT_TRUE(H->runCommand(mnuPreviewPane));
  EXPECT_EQ(panel("kPreview"), "");
}

TEST(SelectionPreview, IsShortAndCutsNoLetter) {
  std::string letters;
  for (int i = 0; i < 100; ++i) letters += "ა";
  for (int lead = 0; lead < 3; ++lead) {
    const std::string text = std::string(static_cast<std::size_t>(lead), '.') + letters;
    const ui::Text shown = convert::selectionPreview(text, 0, static_cast<int>(text.size()),
                                                     ui::TextView::EightBit, tests::conversions());
    const auto whole = static_cast<std::size_t>((200 - lead) / 3 * 3 + lead);
    EXPECT_EQ(shown, ui::Text(text.substr(0, whole)));
  }
  EXPECT_EQ(convert::selectionPreview("a\r\nb\tc", 0, 6, ui::TextView::EightBit, tests::conversions()).bytes,
            "a  b c");
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
  H->runCommand(T1.view() == ui::TextView::Utf8 ? mnuView8Bit : mnuViewUtf8);
  EXPECT_EQ(panel("kCounts"), "ISO 0  UTF8 1  HEX 0  ASCII 3") << "and when a document comes to be shown";
  T1.load("\xC0&#4304;");
  H->pause();
  EXPECT_EQ(panel("kCounts"), "ISO 1  UTF8 0  HEX 1  ASCII 0");
}

}  // namespace
