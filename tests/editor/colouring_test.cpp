#include "editor/colouring.h"

#include <gtest/gtest.h>

#include "editor/colour_ranges.h"
#include "editor/editor.h"
#include "tests/support/main_window.h"
#include "tests/support/random_html.h"

namespace {

constexpr int kF12 = 123;
using namespace std::string_literals;

// One letter a byte: Black, bLue, Red, Green.
std::string painted(std::size_t size, const std::vector<ui::ColourRange>& ranges) {
  std::string letters(size, 'B');
  for (const ui::ColourRange& range : ranges) {
    letters.replace(static_cast<std::size_t>(range.start), static_cast<std::size_t>(range.length),
                    static_cast<std::size_t>(range.length), "BLRG"[range.colour]);
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
    EXPECT_EQ(painted(golden.page.size(), editor::coloured(golden.page)), golden.colors) << golden.name;
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
  EXPECT_FALSE(T1.colours);
  T1.keyUp(kF12 - 1);
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  EXPECT_TRUE(colouring().coloured);
  EXPECT_EQ(painted(4, *T1.colours), "LLLB");
  EXPECT_EQ(platform.hourglass, (std::vector<bool>{true, false}));
  T1.keyDown('A');
  EXPECT_FALSE(colouring().coloured);
  EXPECT_FALSE(T1.colours);
  T1.keyUp('A');
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  T1.keyDown(kF12);
  EXPECT_FALSE(colouring().coloured);
  T1.keyUp(kF12);
  EXPECT_TRUE(colouring().coloured);
  // From the menu, which shows the key but must not act on it in the text.
  EXPECT_TRUE(H->commandChecked(mnuColouring));
  ASSERT_TRUE(H->runCommand(mnuColouring));
  EXPECT_FALSE(colouring().coloured);
  ASSERT_TRUE(H->runCommand(mnuColouring));
  EXPECT_TRUE(colouring().coloured);
}

TEST_F(Colouring, EverythingButTheLooksSurvives) {
  start();
  std::mt19937 random(3);  // NOLINT
  for (int run = 0; run < 200; ++run) {
    T1.load(tests::randomHtml(random, random() % 400));
    T1.select(0, 0);
    T1.replaceSelection("<A SRC=1>");
    const std::string text(T1.text());
    T1.select(static_cast<int>(random() % (text.size() + 1)), static_cast<int>(random() % 50));
    const int startBefore = T1.selStart(), length = T1.selLength();
    H->FileChanged = run % 2 == 0;
    for (int toggle = 0; toggle < 2; ++toggle) {
      colouring().ToggleColouring();
      ASSERT_EQ(colouring().coloured, toggle == 0);
      ASSERT_FALSE(colouring().busy);
      ASSERT_EQ(T1.text(), text);
      ASSERT_EQ(T1.selStart(), startBefore);
      ASSERT_EQ(T1.selLength(), length);
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

}  // namespace
