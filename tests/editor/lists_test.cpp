#include <gtest/gtest.h>

#include <cstdio>
#include <map>

#include "base/error.h"
#include "convert/attach.h"
#include "editor/editor.h"
#include "editor/entities.h"
#include "editor/frmasos.h"
#include "editor/frmxascvla.h"
#include "editor/list_replace.h"
#include "tests/support/iconv.h"
#include "tests/support/main_window.h"
#include "tests/support/random_html.h"

namespace {

using namespace std::string_literals;
using Pairs = std::vector<editor::ReplacePair>;

std::string replace(const std::string& text, const Pairs& pairs, editor::ReplaceOptions options = {}) {
  std::vector<int> counts(pairs.size());
  return editor::replaceByList(text, pairs, base::lineEndOf(text), options, counts);
}

TEST(ListReplace, PairsWorkAtOnce) {
  std::vector<int> counts(3);
  EXPECT_EQ(
      editor::replaceByList("ab b A", {{"a", "b"}, {"b", "a"}, {"x", ""}}, base::LineEnd::CrLf, {}, counts),
      "ba a A");
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 0}));
  EXPECT_EQ(replace("aaa", {{"aa", "b"}, {"", "x"}}), "ba");
  EXPECT_EQ(replace("abab", {{"a", "1"}, {"ab", "2"}}), "1b1b") << "the list's order decides";
  EXPECT_EQ(replace("abab", {{"ab", "2"}, {"a", "1"}}), "22");
  for (const char* end : {"\r\n", "\n", "\r"}) {
    EXPECT_EQ(replace("a"s + end + "b" + end, {{"a\r\n", "\n\n"}}), ""s + end + end + "b" + end);
  }
}

TEST(ListReplace, CaseAndWholeWords) {
  EXPECT_EQ(replace("Font FONT font", {{"fOnt", "x"}}, {false, false}), "x x x");
  EXPECT_EQ(replace("\xE0 \xC0", {{"\xC0", "x"}}, {false, false}), "\xE0 x") << "only ASCII has two cases";
  EXPECT_EQ(replace("a ab <a> a_ 1a \xC0"
                    "a a",
                    {{"a", "x"}}, {true, true}),
            "x ab <x> a_ 1a \xC0"
            "a x");
  EXPECT_EQ(replace("aaba", {{"a", "x"}}, {true, true}), "aaba");
}

TEST(ListReplace, ListsAreKeptInFiles) {
  const Pairs pairs = {{"a\tb", "c\\d\r\n"}, {"\\t", ""}, {"\xC0\xFF", "\xE1\x83\x90"}};
  EXPECT_EQ(editor::formatPairs(pairs), "a\\tb\tc\\\\d\\r\\n\r\n\\\\t\t\r\n\xC0\xFF\t\xE1\x83\x90\r\n");
  EXPECT_EQ(editor::parsePairs(editor::formatPairs(pairs)), pairs);
  EXPECT_EQ(editor::parsePairs("a\tb\n\r\n\\q\\\tc"), (Pairs{{"a", "b"}, {"\\q\\", "c"}}));
  for (const char* wrong : {"a", "\tb", "a\tb\tc"})
    EXPECT_THROW(editor::parsePairs(wrong), base::Error) << wrong;
}

class ListDialog : public tests::MainWindowTest {
 protected:
  editor::Editor editor_{*H};
  void show(const std::function<void(editor::frmxascvla&)>& act) {
    platform.modal.push_back([=](ui::Form& form) { act(dynamic_cast<editor::frmxascvla&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuparzuch));
  }
  static void add(editor::frmxascvla& dialog, const std::string& find, const std::string& with) {
    dialog.Tfind.userSet(find);
    dialog.Treplace.userSet(with);
    dialog.Cadd.click();
  }
};

TEST_F(ListDialog, SelectionDocumentAndAll) {
  start();
  open(folder.make("1.htm", "a 1 a"));
  open(folder.make("2.png", "a"));
  open(folder.make("3.htm", "a 3 a"));
  const std::string opened(T1.text());
  T1.select(0, 1);
  show([](auto& dialog) {
    EXPECT_EQ(dialog.caption(), "Replace");
    EXPECT_FALSE(dialog.Cadd.enabled());
    add(dialog, "a", "b");
    add(dialog, "b", "c");
    EXPECT_TRUE(dialog.OPselection.chosen());
    dialog.COK.click();
    EXPECT_EQ(dialog.LV.items()[0].subItems[1], "1");
  });
  EXPECT_EQ(T1.text(), "b 3 a");
  T1.select(3, 0);
  show([](auto& dialog) {
    ASSERT_EQ(dialog.LV.items().size(), 2u) << "kept";
    EXPECT_EQ(dialog.LV.items()[0].subItems[1], "");
    EXPECT_FALSE(dialog.OPselection.enabled());
    dialog.OPall.userChoose();
    dialog.COK.click();
    EXPECT_NE(dialog.Lresult.caption().bytes.find(" 4"), std::string::npos) << dialog.Lresult.caption().bytes;
  });
  EXPECT_EQ(T1.text(), "c 3 b");
  EXPECT_EQ(T1.selStart(), 3);
  EXPECT_EQ(H->WebProject.Item(0).Value, "b 1 b");
  EXPECT_TRUE(H->WebProject.Item(0).Changed);
  EXPECT_EQ(H->WebProject.Item(1).Value, app::kImageValue);
  EXPECT_FALSE(H->WebProject.Item(1).Changed);
  T1.undo();
  EXPECT_EQ(T1.text(), "b 3 a");
  clickNode("1.htm");  // changed while it was not shown: a step of its own history
  T1.undo();
  EXPECT_EQ(T1.text(), "a 1 a");
}

TEST_F(ListDialog, FieldsAndListShowTheLettersOfTheView) {
  const auto converting = convert::attach(*H);
  start();
  H->runCommand(mnuens1);
  show([this](auto& dialog) {
    EXPECT_EQ(dialog.Treplace.font(), T1.currentFont());
    add(dialog, dialog.Tfind.typed(U'ქ'), "ქ");
    EXPECT_EQ(dialog.LV.items()[0].text, "ქ");
    EXPECT_EQ(dialog.LV.items()[0].subItems[0], "ქ");
    dialog.OPdocument.userChoose();
    T1.load("\xD8\xD8");
    dialog.COK.click();
  });
  EXPECT_EQ(T1.text(), "ქქ");
}

TEST_F(ListDialog, ATypedPairNeedNotBeAdded) {
  T1.load("a b");
  show([this](auto& dialog) {
    dialog.Tfind.userSet("a");
    dialog.Treplace.userSet("1");
    dialog.COK.click();
    EXPECT_EQ(T1.text(), "1 b");
    dialog.Treplace.userSet("2");  // the same text once more: the row is changed
    dialog.COK.click();
    ASSERT_EQ(dialog.LV.items().size(), 1u);
    EXPECT_EQ(dialog.LV.items()[0].subItems[0], "2");
    dialog.Tfind.userSet("b");
    dialog.COK.click();
    EXPECT_EQ(T1.text(), "1 2");
    dialog.Cremove.click();
    dialog.Cremove.click();
    dialog.COK.click();
    EXPECT_TRUE(dialog.LV.items().empty()) << "what was removed does not come back";
  });
}

TEST_F(ListDialog, ListsAreLoadedAndSaved) {
  const std::string list = folder.make("list.txt", "x\ty\r\n<\t&lt;\r\n");
  const std::string copy = folder.file("copy.txt");
  T1.load("x<X");
  platform.openAnswers = {{list}, {folder.make("bad.txt", "nothing\r\n")}, {}};
  platform.saveAnswers = {copy};
  show([&](auto& dialog) {
    dialog.Cload.click();
    dialog.Csave.click();
    expectBoxWith("წყვილი", app::kAnswerOk);
    dialog.Cload.click();
    dialog.Cload.click();  // cancelled
    dialog.CKcase.userSet(false);
    dialog.COK.click();
  });
  EXPECT_EQ(base::readFile(copy), "x\ty\r\n<\t&lt;\r\n");
  EXPECT_EQ(T1.text(), "y&lt;y");
}

// Python's own table says which names HTML 4 has.
TEST(Entities, TableIsThatOfHtml4) {
  FILE* answer =
      popen("python3 -c 'from html.entities import *;[print(k,v) for k,v in name2codepoint.items()]'", "r");
  ASSERT_NE(answer, nullptr);
  std::map<std::string, unsigned> wanted;
  char name[32];
  unsigned number = 0;
  while (std::fscanf(answer, "%31s %u", name, &number) == 2) wanted[name] = number;
  if (pclose(answer) != 0) GTEST_SKIP() << "no Python here";
  std::map<std::string, unsigned> table;
  for (const editor::Entity& entity : editor::entities()) table[std::string(entity.name)] = entity.character;
  EXPECT_EQ(table, wanted);
  EXPECT_EQ(table.size(), editor::kEntities);
}

TEST(Entities, BothWays) {
  using editor::PageBytes;
  EXPECT_EQ(editor::encodeEntities("<\"\xC2\xA9 \xE1\x83\x90&\xE2\x82\xAC>", PageBytes::Utf8),
            "&lt;&quot;&copy; \xE1\x83\x90&amp;&euro;&gt;");
  EXPECT_EQ(editor::encodeEntities("\xA9\xC0\x80", PageBytes::EightBit), "&copy;\xC0&euro;")
      << "C0 is a letter";
  EXPECT_EQ(editor::decodeEntities("&copy;&nbsp&&;&lt;&nosuch;&Eacute;&thetasym;", PageBytes::Utf8),
            "\xC2\xA9&nbsp&&;<&nosuch;\xC3\x89\xCF\x91");
  EXPECT_EQ(editor::decodeEntities("&copy;&Eacute;&Alpha;&euro;", PageBytes::EightBit),
            "\xA9&Eacute;&Alpha;\x80");
  EXPECT_EQ(editor::pageBytes("\xE1\x83\x90", ui::CharacterSet::Russian), PageBytes::Utf8);
  EXPECT_EQ(editor::pageBytes("\xC0\xC1", ui::CharacterSet::Ansi), PageBytes::EightBit);
  std::mt19937 random(5);  // NOLINT
  for (int run = 0; run < 500; ++run) {
    const std::string text = tests::randomHtml(random, 100);
    for (const PageBytes page : {PageBytes::Utf8, PageBytes::EightBit, PageBytes::Russian}) {
      const std::string encoded = editor::encodeEntities(text, page);
      ASSERT_EQ(encoded.find_first_of("<>\""), std::string::npos);
      ASSERT_EQ(editor::decodeEntities(encoded, page), text);
    }
  }
}

// iconv says what a byte is in a Russian page: no letter may get the name of another character.
TEST(Entities, RussianLettersHaveNoNames) {
  for (int i = 0x80; i < 256; ++i) {
    const std::string byte(1, static_cast<char>(i));
    const std::string encoded = editor::encodeEntities(byte, editor::PageBytes::Russian);
    if (i == 0x98) continue;  // nothing in Windows-1251
    const std::string utf8 = tests::convertWithIconv(byte, "CP1251", "UTF-8");
    const std::string named = editor::encodeEntities(utf8, editor::PageBytes::Utf8);
    // The euro sign stands elsewhere than in Windows-1252, and stays.
    EXPECT_EQ(encoded, named == utf8 || i == 0x88 ? byte : named) << i;
  }
}

class EntityPicker : public tests::MainWindowTest {
 protected:
  editor::Editor editor_{*H};
  void show(const std::function<void(editor::frmasos&)>& act) {
    platform.modal.push_back([=](ui::Form& form) { act(dynamic_cast<editor::frmasos&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuasos));
  }
};

TEST_F(EntityPicker, FindsAndInserts) {
  T1.load("ab");
  T1.select(1, 0);
  show([](auto& dialog) {
    EXPECT_EQ(dialog.LV.items().size(), 252u);
    EXPECT_FALSE(dialog.Cencode.enabled());
    for (const char* typed : {"©", "copy", "U+00A9"}) {
      dialog.Tsearch.userSet(typed);
      ASSERT_FALSE(dialog.LV.items().empty()) << typed;
      EXPECT_EQ(dialog.LV.items()[0].subItems[0], "&copy;") << typed;
    }
    dialog.Tsearch.userSet("nothing");
    EXPECT_FALSE(dialog.COK.enabled());
    dialog.Tsearch.userSet("lt");
    dialog.LV.doubleClicked();
  });
  EXPECT_EQ(T1.text(), "a&lt;b");
}

TEST_F(EntityPicker, ConvertsTheSelection) {
  T1.load("\xC0\xB8 \xA9");
  T1.setFont({"", 0, false, false, ui::CharacterSet::Russian});
  T1.select(0, 4);
  show([](auto& dialog) { dialog.Cencode.click(); });
  EXPECT_EQ(T1.text(), "\xC0\xB8 &copy;");
  T1.load("<B> <I>");
  T1.select(4, 3);
  show([](auto& dialog) { dialog.Cencode.click(); });
  EXPECT_EQ(T1.text(), "<B> &lt;I&gt;");
  EXPECT_EQ(T1.selText(), "&lt;I&gt;");
  show([](auto& dialog) { dialog.Cdecode.click(); });
  EXPECT_EQ(T1.text(), "<B> <I>");
  T1.undo();
  EXPECT_EQ(T1.text(), "<B> &lt;I&gt;");
}

}  // namespace
