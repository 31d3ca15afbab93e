#include "editor/colouring.h"

#include <gtest/gtest.h>

#include "editor/colour_rtf.h"
#include "editor/editor.h"
#include "tests/support/colour_chain.h"
#include "tests/support/main_window.h"
#include "tests/support/random_html.h"
#include "tests/support/rtf_reader.h"
#include "ui/plain_rtf.h"

namespace {

constexpr int kF12 = 123;
using namespace std::string_literals;

tests::RtfText shown(const std::string& page) {
  return tests::readRtf(editor::coloured(ui::plainRtf(page, "\r\n", "Zervo ISO")));
}

// One letter a byte: Black, bLue, Red, Green.
std::string colorsOf(const tests::RtfText& rtf) {
  std::string letters;
  for (const int color : rtf.colors) {
    letters += color == 0          ? 'B'
               : color == 0x0000FF ? 'L'
               : color == 0xFF0000 ? 'R'
               : color == 0x009632 ? 'G'
                                   : '?';
  }
  return letters;
}

struct Golden {
  const char* name;
  std::string page;
  std::string colors;
};

TEST(Colours, OfPages) {
  const Golden cases[] = {
      {"anchor", "<A HREF=\"x\">y</A>",  //
       "LL"
       "RRRRRR"
       "BBB"
       "L"
       "B"
       "LLLL"},
      {"lower case", "<img src=a>",
       "LLLL"
       "RRRRR"
       "B"
       "L"},
      {"comment: green to its last bracket", "a<!-- b <c> -->d",  //
       "B"
       "GGGGG"
       "GG"
       "LL"
       "L"
       "BBB"
       "L"
       "B"},
      {"comment alone", "<!-- b -->d",
       "GGGG"
       "GGG"
       "GG"
       "L"
       "B"},
      {"arrow", "<--x", "GGGG"},
      {"mixed case stays", "<A Href=\"x\">",
       "LLLLLLLLLLL"
       "L"},
      {"first on a line", "<A\r\nHREF=x SRC=y>",
       "LL"
       "LL"
       "LLLLLL"
       "RRRRR"
       "B"
       "L"},
      {"behind a tab", "<A\tHREF=x>",
       "LL"
       "L"
       "LLLLLL"
       "L"},
      {"first of the page", "NAME=x", "BBBBBB"},
      {"name behind a name", "<A NAME=WIDTH=5>",
       "LL"
       "RRRRRR"
       "BBBBBBB"
       "L"},
      {"two blanks", "<A  SRC=x>",
       "LLL"
       "RRRRR"
       "B"
       "L"},
      {"in text too", "a SIZE=3",
       "B"
       "RRRRRR"
       "B"},
      {"not in the list", "<A id=x>",
       "LLLLLLL"
       "L"},
      {"longer name", "<A XSRC= SRCSET=>",
       "LLLLLLLLLLLLLLLL"
       "L"},
      {"closing mark alone", "x-->",
       "BBB"
       "L"},
      {"braces and backslashes", "{<B>\\}</B>",
       "B"
       "LL"
       "L"
       "BB"
       "LLLL"},
      {"high bytes", "<B>\xC0\x80\xFF</B>",
       "LL"
       "L"
       "BBB"
       "LLLL"},
      {"empty", "", ""},
  };
  for (const Golden& golden : cases) {
    const tests::RtfText rtf = shown(golden.page);
    EXPECT_EQ(rtf.text, golden.page) << golden.name;
    EXPECT_EQ(colorsOf(rtf), golden.colors) << golden.name;
    for (const int font : rtf.fonts) EXPECT_EQ(font, 2) << golden.name;
    for (const int size : rtf.halfPoints) EXPECT_EQ(size, 20) << golden.name;
  }
}

TEST(Colours, RtfOfAPageWordForWord) {
  EXPECT_EQ(
      editor::coloured(ui::plainRtf("<A NAME=\"\xC0\">\r\n\t{", "\r\n", "F;{x}")),
      "{\\rtf1\\ansi\\ansicpg1252\\deff2{\\fonttbl{\\f0\\fnil\\fcharset0 Fx;}{\\f1\\fnil\\fcharset0 Fx;}"
      "{\\f2\\fnil\\fcharset0 Fx;}}\r\n"
      "{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;\\red255\\green0\\blue0;"
      "\\red0\\green150\\blue50;}"
      "\r\n\\pard\\plain\\f2\\fs20\\cf0\r\n"
      "\\f2\\fs20\\cf1 <A\\f2\\fs20\\cf2  NAME=\\plain\\f2\\fs20\\cf0 \"\\'c0\""
      "\\f2\\fs20\\cf1 >\\plain\\f2\\fs20\\cf0 \\par\r\n\\tab\r\n\\{}");
}

TEST(Colours, AnotherTableGetsNoColours) {
  const std::string rtf = "{\\rtf1{\\colortbl;}<B>}";
  EXPECT_EQ(editor::coloured(rtf), tests::colourByChain(rtf));
  EXPECT_EQ(colorsOf(tests::readRtf(editor::coloured(rtf))), "BBB");
}

TEST(Colours, OnePassIsTheChainOfReplacements) {
  std::mt19937 random(7);  // NOLINT: the same pages in every run
  for (int run = 0; run < 3000; ++run) {
    const std::string text = tests::randomHtml(random, random() % 300);
    ASSERT_EQ(editor::coloured(text), tests::colourByChain(text)) << text;
    const std::string rtf = ui::plainRtf(text, "\r\n", "F");
    ASSERT_EQ(editor::coloured(rtf), tests::colourByChain(rtf)) << text;
    ASSERT_EQ(tests::readRtf(editor::coloured(rtf)).text, text);
  }
  // Names directly behind names: which one turns red depends on their order in the list.
  for (const char* chain : {" NAME=WIDTH=HEIGHT=", " WIDTH=NAME=HEIGHT=", " HEIGHT=WIDTH=", " SRC=SRC= SRC=",
                            " NAME=rel=NAME=bgproperties=<", " TEXT=TEXTAREA=>WIDTH="}) {
    EXPECT_EQ(editor::coloured(chain), tests::colourByChain(chain)) << chain;
  }
}

class Colouring : public tests::MainWindowTest {
 protected:
  editor::Editor editor_{*H};
  editor::Colouring& colouring() { return editor_.colouring; }
};

TEST_F(Colouring, KeysSwitchIt) {
  start();
  type("<B>x");
  EXPECT_TRUE(T1.shown.text.empty());
  T1.keyUp(kF12 - 1);
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  EXPECT_TRUE(colouring().coloured);
  EXPECT_EQ(colorsOf(T1.shown), "LLLB");
  EXPECT_EQ(platform.hourglass, (std::vector<bool>{true, false}));
  T1.keyDown('A');
  EXPECT_FALSE(colouring().coloured);
  EXPECT_TRUE(T1.shown.text.empty());
  T1.keyUp('A');
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  T1.keyDown(kF12);
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  EXPECT_TRUE(colouring().coloured);
}

TEST_F(Colouring, EverythingButTheLooksSurvives) {
  start();
  std::mt19937 random(3);  // NOLINT
  for (int run = 0; run < 200; ++run) {
    T1.load(tests::randomHtml(random, random() % 400));
    T1.select(0, 0);
    T1.replaceSelection("<A SRC=1>");
    const std::string text = T1.text();
    T1.select(static_cast<int>(random() % (text.size() + 1)), static_cast<int>(random() % 50));
    const int startBefore = T1.selStart(), length = T1.selLength();
    const int top = static_cast<int>(random() % text.size());
    T1.setScrollTop(top);
    H->FileChanged = run % 2 == 0;
    for (int toggle = 0; toggle < 2; ++toggle) {
      colouring().ToggleColouring();
      ASSERT_EQ(colouring().coloured, toggle == 0);
      ASSERT_FALSE(colouring().busy);
      ASSERT_EQ(T1.text(), text);
      ASSERT_EQ(T1.selStart(), startBefore);
      ASSERT_EQ(T1.selLength(), length);
      ASSERT_EQ(T1.scrollTop(), top);
      ASSERT_EQ(H->FileChanged, run % 2 == 0);
    }
    T1.undo();
    ASSERT_FALSE(T1.canUndo());
    T1.redo();
    ASSERT_EQ(T1.text(), text);
  }
}

TEST_F(Colouring, WhateverChangesTheTextMeetsPlainText) {
  start();
  type("<B>");
  T1.keyUp(kF12);
  ASSERT_TRUE(H->runCommand(mnuH1));
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  ASSERT_TRUE(H->runCommand(mnunewF));
  EXPECT_FALSE(colouring().coloured);
}

// A control that reads RTF otherwise than expected.
class WrongView : public tests::MemoryCodeView {
 public:
  void setRtf(std::string_view rtf) override {
    MemoryCodeView::setRtf(tests::entryByEntry(rtf, {"\\{"}, {""}));
  }
};

TEST(ColouringSafety, LostLettersComeBack) {
  tests::TempFolder folder;
  tests::FakePlatform platform;
  platform.folder = folder.path();
  WrongView T1;
  tests::FakeMainPeer peer;
  app::FrmH H(platform, T1);
  H.window = &peer;
  editor::Colouring colouring(H);
  T1.load("a{b");
  colouring.ToggleColouring();
  EXPECT_EQ(T1.text(), "a{b");
  EXPECT_FALSE(colouring.coloured);
}

}  // namespace
