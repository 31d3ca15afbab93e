#include "app/menus.h"
#include "base/text.h"
#include "convert/attach.h"
#include "tests/convert/tables.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"

namespace {

using namespace ui::literals;

// Latin, legacy, UTF-8, references, Khutsuri references of one text with markup that holds no small letters.
constexpr const char* kLatin = "<P> Tbilisi 1234, xajo";
constexpr const char* kLegacy = "<P> \xC8\xC1\xC9\xCB\xC9\xD3\xC9 1234, \xE1\xC0\xE3\xCF";
constexpr const char* kUtf8 = "<P> თბილისი 1234, ხაჯო";
constexpr const char* kReferences =
    "<P> &#4311;&#4305;&#4312;&#4314;&#4312;&#4321;&#4312; 1234, &#4334;&#4304;&#4335;&#4317;";
constexpr const char* kKhutsuri =
    "<P> &#4263;&#4257;&#4264;&#4266;&#4264;&#4273;&#4264; 1234, &#4286;&#4256;&#4287;&#4269;";
constexpr const char* kRussian = "<P> \xCF\xF0\xE8\xE2\xE5\xF2";
constexpr const char* kRussianReferences = "<P> &#1055;&#1088;&#1080;&#1074;&#1077;&#1090;";

class ConversionCommands : public tests::MainWindowTest {
 protected:
  ConversionCommands() {
    attached = convert::attach(*H);
    start();
  }
  std::string selected() { return T1.selText(); }

  std::unique_ptr<convert::Attached> attached;
};

struct Case {
  int id;
  bool hourglass;
  std::string from, to;
};

TEST_F(ConversionCommands, ConvertTheWholeTextInOneUndoableStep) {
  const Case table[] = {
      {mnuUTF8, false, kLatin, kUtf8},
      {mnuTut8dekod, false, kUtf8, kLatin},
      {mnuTkod, false, kLatin, kLegacy},
      {mnuTfonkod, false, kLegacy, kLatin},
      {mnuhinu, true, kRussianReferences, kRussian},
      {mnuUinH, true, kRussian, kRussianReferences},
      {mnuQHIU, true, kReferences, kLegacy},
      {mnuQUIH, true, kLegacy, kReferences},
      {mnuQUTFIH, true, kUtf8, kReferences},
      {mnuQHIUTF, true, kReferences, kUtf8},
      {mnuxuc, true, kLegacy, kKhutsuri},
  };
  for (const Case& row : table) {
    SCOPED_TRACE(row.id);
    T1.load(row.from);
    platform.hourglass.clear();
    ASSERT_TRUE(H->runCommand(row.id));
    EXPECT_EQ(T1.text(), row.to);
    EXPECT_EQ(platform.hourglass, row.hourglass ? (std::vector<bool>{true, false}) : std::vector<bool>());
    T1.undo();
    EXPECT_EQ(T1.text(), row.from);
    EXPECT_FALSE(T1.canUndo());

    // The last letter of every alphabet stays, and so does what is in no table.
    const std::string kept = row.id == mnuUinH ? "\xB8 abg" : "\xE4\xC7 h ABDE &#4336;&#4288;&#1105; &#430";
    T1.load(kept);
    ASSERT_TRUE(H->runCommand(row.id));
    EXPECT_EQ(T1.text(), kept);

    T1.load("");
    platform.hourglass.clear();
    EXPECT_FALSE(H->runCommand(row.id));
    EXPECT_TRUE(platform.hourglass.empty());
  }
}

TEST_F(ConversionCommands, ConvertTheSelectionAndSelectTheResult) {
  const Case table[] = {
      {mnumtubers, false, kLatin, kUtf8},
      {mnuUTF8dekod, false, kUtf8, kLatin},
      {mnukod, false, kLatin, kLegacy},
      {mnuMfonkod, false, kLegacy, kLatin},
  };
  for (const Case& row : table) {
    SCOPED_TRACE(row.id);
    const std::string text = "abg\xC0\r\n";
    const std::string before = base::join({text, row.from, text}, "");
    T1.load(before);
    EXPECT_FALSE(H->runCommand(row.id)) << "nothing is selected";
    EXPECT_FALSE(T1.canUndo());
    T1.select(6, static_cast<int>(row.from.size()));
    ASSERT_TRUE(H->runCommand(row.id));
    EXPECT_EQ(T1.text(), base::join({text, row.to, text}, ""));
    EXPECT_EQ(T1.selStart(), 6);
    EXPECT_EQ(selected(), row.to);
    EXPECT_TRUE(platform.hourglass.empty());
    T1.undo();
    EXPECT_EQ(T1.text(), before);
  }
}

TEST_F(ConversionCommands, CopyingLeavesTheDocumentAlone) {
  platform.clip.bytes = "before";
  T1.load("xajo abg");
  EXPECT_FALSE(H->runCommand(mnuUbendkopi));
  EXPECT_FALSE(H->runCommand(mnuCopy));
  EXPECT_EQ(platform.clip.bytes, "before");
  T1.select(5, 3);
  ASSERT_TRUE(H->runCommand(mnuUbendkopi));
  EXPECT_EQ(platform.clip.bytes, "აბგ");
  ASSERT_TRUE(H->runCommand(mnuCopy));
  EXPECT_EQ(platform.clip.bytes, "abg");
  EXPECT_EQ(T1.text(), "xajo abg");
  EXPECT_EQ(selected(), "abg");
  EXPECT_FALSE(T1.canUndo());
}

TEST_F(ConversionCommands, StandInTheEditMenuWithTheirCaptionsAsStored) {
  const auto top = std::find_if(H->menus.begin(), H->menus.end(), [](const ui::MenuItem& item) {
    return item.caption == app::kEditMenu.caption;
  });
  ASSERT_NE(top, H->menus.end());
  std::vector<int> ids;
  const ui::MenuItem* submenu = nullptr;
  for (const ui::MenuItem& item : top->items) {
    if (item.command >= mnuUTF8 && item.command <= mnuxuc) ids.push_back(item.command);
    if (!item.items.empty()) submenu = &item;
  }
  EXPECT_EQ(ids, (std::vector<int>{mnuUTF8, mnumtubers, mnuTut8dekod, mnuUTF8dekod, mnuUbendkopi, mnuTkod,
                                   mnukod, mnuTfonkod, mnuMfonkod}));
  ASSERT_NE(submenu, nullptr);
  EXPECT_EQ(ui::display(submenu->caption), "კონვერტირების ფუნქციები");
  ASSERT_EQ(submenu->items.size(), 7U);
  EXPECT_EQ(submenu->items[6].caption.bytes,
            "|28|\xD8\xC0\xD2\xC8\xD6\xCB\xC9 \xE1\xD6\xDD\xD6\xD2\xC9 ISO-BYN \xC3\xC0\xCD  UTF8-HEX");
}

TEST(Conversions, GiveIconvsAnswerForAWholeText) {
  const std::string sample = "ნუთუ ეს ქვეყანა ჩემია? Ж — 1881";
  const std::string georgian = "ვეფხისტყაოსანი, ქართული ღმერთი; წიგნი ჯერ არ დაწყებულა ძველად ჟამს შჩცჭ";
  const std::string legacy = tests::convertWithIconv(georgian, "UTF-8", "GEORGIAN-PS");
  const convert::Conversions& by = tests::conversions();
  EXPECT_EQ(by.Utf8Convert(georgian, 1, true), legacy);
  EXPECT_EQ(by.Utf8Convert(georgian, 2, true), legacy);
  EXPECT_EQ(by.Utf8Convert(by.Transliterate(legacy, "T"), 1, false), georgian);
  EXPECT_EQ(by.Transliterate(by.Utf8Convert(georgian, 2, false), "U"), legacy);
  EXPECT_EQ(by.referencesToUtf8(by.utf8ToReferences(sample)), sample);
  const std::string russian = tests::convertWithIconv("Съешь же ещё этих мягких булок", "UTF-8", "CP1251");
  const std::string references = by.russianToReferences(russian);
  EXPECT_NE(references.find("\xB8 &#1101;"), std::string::npos) << "the last letter stays";
  EXPECT_EQ(by.referencesToRussian(references), russian);
}

}  // namespace
