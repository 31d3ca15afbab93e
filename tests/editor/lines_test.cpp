#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>

#include "base/line_ends.h"
#include "editor/editor.h"
#include "editor/line_group.h"
#include "editor/reflow.h"
#include "markup/pieces.h"
#include "tests/support/main_window.h"
#include "tests/support/random_html.h"

namespace {

using ui::operator""_keyboard;

const ui::Text kHowMany = "mieci xazebis raodenoba."_keyboard;
const ui::Text kTooFew = "xazebis raodenoba naklebia dayofis raodenobaze."_keyboard;

std::string withoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
  return text;
}

std::string rewrapAll(const std::string& text, int length) {
  return editor::rewrap(text, {0, text.size()}, length);
}

TEST(LineGroup, SeparatorAfterEveryNthLine) {
  using editor::groupLines;
  EXPECT_EQ(groupLines("1\r\n2\r\n3\r\n4", 2, "<HR>"), "1\r\n2\r\n<HR>\r\n3\r\n4\r\n<HR>");
  EXPECT_EQ(groupLines("1\r\n2\r\n3\r\n4\r\n5", 2, "-"), "1\r\n2\r\n-\r\n3\r\n4\r\n-\r\n5");
  EXPECT_EQ(groupLines("1\r\n2", 1, "-"), "1\r\n-\r\n2\r\n-");
  EXPECT_EQ(groupLines("1\r\n2\r\n", 2, "-"), "1\r\n2\r\n-\r\n");
  EXPECT_EQ(groupLines("1\r\n2", 2, "-"), std::nullopt) << "as many lines as asked for are too few";
  EXPECT_EQ(groupLines("1\n2\r\n3\r\n4", 2, "-"), "1\n2\r\n3\r\n-\r\n4") << "the page's lines end with CR LF";
  EXPECT_EQ(groupLines("1\n2\r\n3\n4", 2, "-"), "1\n2\n-\r\n3\n4\n-") << "with LF";
}

TEST(LineGroup, AnswersAsNumbers) {
  for (const auto& [answer, number] : std::vector<std::pair<const char*, int>>{{"5", 5},
                                                                               {" 7 ", 7},
                                                                               {"x", 0},
                                                                               {"", 0},
                                                                               {"5x", 0},
                                                                               {"-3", 0},
                                                                               {"2.6", 3},
                                                                               {"2.5", 2},
                                                                               {"99999", 32767},
                                                                               {"nan", 0}}) {
    EXPECT_EQ(editor::lineCount(answer), number) << answer;
  }
}

TEST(Reflow, GoldenCases) {
  struct Case {
    const char* name;
    int length;
    std::string before, after;
  };
  const Case cases[] = {
      {"long line", 10, "aaa bbb ccc ddd", "aaa bbb\r\nccc ddd"},
      {"exactly as long", 11, "aaa bbb ccc", "aaa bbb ccc"},
      {"short lines are joined", 20, "aaa\r\nbbb\r\nccc", "aaa bbb ccc"},
      {"long word alone", 10, "a bbbbbbbbbbbbbb c", "a\r\nbbbbbbbbbbbbbb\r\nc"},
      {"empty line parts", 20, "aaa\r\n\r\nbbb\r\nccc", "aaa\r\n\r\nbbb ccc"},
      {"never in a tag", 10, "x <A HREF=\"a b\" NAME=c>y z</A>", "x\r\n<A HREF=\"a b\" NAME=c>y\r\nz</A>"},
      {"inline tags flow", 12, "aa <B>bb</B>\r\ncc <I>d</I>", "aa <B>bb</B>\r\ncc <I>d</I>"},
      {"block tags keep their lines", 40, "<TR>\r\n<TD>a\r\nb\r\n</TR>", "<TR>\r\n<TD>a b\r\n</TR>"},
      {"line break tag ends a line", 40, "a<BR>\r\nb\r\nc", "a<BR>\r\nb c"},
      {"preformatted stays", 10, "<PRE>a b c d e f g h\r\ni</PRE>\r\nx",
       "<PRE>a b c d e f g h\r\ni</PRE>\r\nx"},
      {"script stays", 10, "<SCRIPT>\r\n// aa bb cc dd\r\nx;\r\n</SCRIPT>",
       "<SCRIPT>\r\n// aa bb cc dd\r\nx;\r\n</SCRIPT>"},
      {"comment stays", 10, "<!-- aa bb cc dd ee -->\r\nf\r\ng", "<!-- aa bb cc dd ee -->\r\nf g"},
      {"indent goes on", 12, "   aaa bbb ccc", "   aaa bbb\r\n   ccc"},
      {"second line's indent", 12, "   aaa bbb\r\nccc ddd eee", "   aaa bbb\r\nccc ddd eee"},
      {"inner blanks stay", 20, "a  b\tc", "a  b\tc"},
      {"LF page", 10, "aaa bbb ccc\nddd", "aaa bbb\nccc ddd"},
      {"blanks at the end", 10, "aaa  \r\n", "aaa  \r\n"},
      {"only blanks", 10, " \r\n ", " \r\n "},
  };
  for (const Case& c : cases) EXPECT_EQ(rewrapAll(c.before, c.length), c.after) << c.name;
}

TEST(Reflow, LinesHaveTheLength) {
  std::string text;
  for (int i = 0; i < 2000; ++i) text += "word" + std::to_string(i) + (i % 7 == 0 ? "\r\n" : " ");
  for (const int length : {10, 40, 300}) {
    const std::string wrapped = rewrapAll(text, length);
    std::size_t from = 0;
    for (std::size_t end; (end = wrapped.find("\r\n", from)) != std::string::npos; from = end + 2) {
      ASSERT_LE(end - from, static_cast<std::size_t>(length));
      // The next word would not have fitted.
      const std::size_t next = wrapped.find_first_of(" \r", end + 2);
      if (next != std::string::npos) {
        ASSERT_GT(end - from + 1 + next - end - 2, static_cast<std::size_t>(length));
      }
    }
    EXPECT_EQ(rewrapAll(wrapped, length), wrapped);
  }
}

TEST(Reflow, HardPagesTakeNoLonger) {
  for (const char* part : {"<a x=\"", "<a x='>\" ", "<", "<a=\">\" '", "</", "<!--", "\r\n<b"}) {
    std::string text;
    while (text.size() < (1U << 19)) text += part;
    EXPECT_EQ(withoutBlanks(rewrapAll(text, 80)).size(), withoutBlanks(text).size());
  }
  std::string lines;  // which of the ends is the page's own must not be asked for every line
  while (lines.size() < (1U << 22)) lines += "word word word word\n";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(rewrapAll(lines, 80).find('\r'), std::string::npos);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
}

TEST(ParagraphIndent, FirstLinesOnly) {
  const auto indent = [](const std::string& text, int spaces) {
    return editor::indentParagraphs(text, {0, text.size()}, spaces);
  };
  EXPECT_EQ(indent("aa\r\nbb\r\n\r\n\tcc\r\ndd", 3), "   aa\r\nbb\r\n\r\n   cc\r\ndd");
  EXPECT_EQ(indent("\r\n     aa", 4), "\r\n    aa");
  EXPECT_EQ(indent("<PRE>a\r\n\r\nb</PRE>", 3), "   <PRE>a\r\n\r\nb</PRE>");
  EXPECT_EQ(indent("<!-- a -->\r\n\r\nb", 3), "<!-- a -->\r\n\r\n   b");
  EXPECT_EQ(indent("   aa", 3), "   aa");
  EXPECT_EQ(editor::indentParagraphs("aa\r\nbb\r\ncc", {4, 6}, 3), "aa\r\n   bb\r\ncc");
}

class Lines : public tests::MainWindowTest {
 protected:
  editor::Editor editor_{*H};
};

TEST_F(Lines, GroupingAsksTwice) {
  T1.load("1\r\n2\r\n3\r\n4");
  T1.select(4, 0);
  platform.modal.push_back([](ui::Form& form) {
    auto& box = dynamic_cast<app::frmBOXa&>(form);
    EXPECT_EQ(box.LBtext.caption(), kHowMany);
    box.Tanswer.userSet("2");
    box.COK.click();
  });
  expectInput(" <HR> Ü");
  ASSERT_TRUE(H->runCommand(mnulinesnaid));
  EXPECT_EQ(T1.text(), "1\r\n2\r\n <HR> \xDC\r\n3\r\n4\r\n <HR> \xDC");
  EXPECT_EQ(T1.selStart(), 4);
  EXPECT_EQ(T1.selLength(), 7);
  T1.undo();
  EXPECT_EQ(T1.text(), "1\r\n2\r\n3\r\n4");

  expectInput("3");
  expectInput(" ");
  H->runCommand(mnulinesnaid);
  EXPECT_EQ(T1.text(), "1\r\n2\r\n3\r\n \r\n4") << "blanks are a separator";
  T1.undo();
  expectInput("x");
  H->runCommand(mnulinesnaid);  // no number: silence
  expectInput("4");
  expectInput("-");
  expectBox("სტრიქონების დაყოფა", kTooFew, app::kAnswerOk);
  H->runCommand(mnulinesnaid);
  EXPECT_EQ(T1.text(), "1\r\n2\r\n3\r\n4");
  T1.load("");
  EXPECT_FALSE(H->runCommand(mnulinesnaid));
}

TEST_F(Lines, LengthIsOneStepAndKeepsThePlace) {
  T1.load("aaa bbb ccc ddd");
  T1.select(9, 0);
  expectInput("10");
  ASSERT_TRUE(H->runCommand(mnulinelength));
  EXPECT_EQ(T1.text(), "aaa bbb\r\nccc ddd");
  EXPECT_EQ(T1.selStart(), 10);
  T1.undo();
  EXPECT_EQ(T1.text(), "aaa bbb ccc ddd");
  for (const char* wrong : {"9", "301", "x"}) {
    expectInput(wrong);
    expectBoxWith("10-დან 300-მდე", app::kAnswerOk);
    H->runCommand(mnulinelength);
  }
  EXPECT_EQ(T1.text(), "aaa bbb ccc ddd");
  T1.load("one\r\ntwo\r\nthree\r\nfour");
  T1.select(6, 6);  // in "two" and "three"
  expectInput("40");
  H->runCommand(mnulinelength);
  EXPECT_EQ(T1.text(), "one\r\ntwo three\r\nfour");
  EXPECT_EQ(T1.selText(), "two three");
}

// What each tool makes of a page with CR LF, it makes of the same page with other ends, in those.
TEST_F(Lines, EachToolKeepsThePagesLineEnds) {
  struct Tool {
    int command;
    std::vector<const char*> answers;
    std::string before, after;
  };
  const Tool tools[] = {
      {mnulinesnaid, {"1", "-"}, "a\r\nb", "a\r\n-\r\nb\r\n-"},
      {mnulinelength, {"10"}, "aaa\r\nbbb ccc ddd\r\n\r\ne\r\nf", "aaa bbb\r\nccc ddd\r\n\r\ne f"},
      {mnuparindent, {"3"}, "a\r\nb\r\n\r\n c\r\n", "   a\r\nb\r\n\r\n   c\r\n"},
  };
  for (const base::LineEnd end : {base::LineEnd::CrLf, base::LineEnd::Lf, base::LineEnd::Cr}) {
    for (const Tool& tool : tools) {
      T1.load(base::withLineEnds(tool.before, end));
      for (const char* answer : tool.answers) expectInput(answer);
      ASSERT_TRUE(H->runCommand(tool.command));
      EXPECT_EQ(T1.text(), base::withLineEnds(tool.after, end)) << base::nameOf(end);
    }
  }
}

TEST_F(Lines, TheStatusBarNamesTheEndsAndExchangesThem) {
  const auto panel = [this] { return H->Status.panel("kLineEnds").bytes; };
  start();
  EXPECT_EQ(panel(), "CR LF") << "what Enter writes";
  EXPECT_FALSE(H->runCommand(mnuToLf)) << "nothing to exchange";
  open(folder.make("mixed.txt", "one\r\ntwo\rthree\nfour\r\n"));
  EXPECT_EQ(panel(), "შერეული");
  T1.select(7, 4);  // "o", a lone CR and "th"
  platform.popupAnswers.push_back(mnuToLf);
  H->Status.userClick(7);  // the last of its panels
  ASSERT_EQ(platform.popup.size(), 3U);
  EXPECT_TRUE(platform.popup[1].enabled && !platform.popup[1].checked);
  EXPECT_EQ(T1.text(), "one\ntwo\nthree\nfour\n");
  EXPECT_EQ(T1.selText(), "o\nth");
  EXPECT_EQ(panel(), "LF");
  EXPECT_TRUE(H->commandChecked(mnuToLf) && H->FileChanged);
  T1.select(8, 0);
  ASSERT_TRUE(H->runCommand(mnuToCrLf));
  EXPECT_EQ(T1.selStart(), 10);
  EXPECT_EQ(panel(), "CR LF");
  T1.undo();
  T1.undo();
  EXPECT_EQ(T1.text(), "one\r\ntwo\rthree\nfour\r\n") << "one step each";
  EXPECT_EQ(panel(), "შერეული");
  T1.select(0, 10);
  T1.replaceSelection("");
  EXPECT_EQ(panel(), "შერეული") << "not counted on a key";
  H->pause();
  EXPECT_EQ(panel(), "შერეული");
  T1.select(0, 5);
  T1.replaceSelection("");
  H->pause();
  EXPECT_EQ(panel(), "CR LF");
  open(folder.make("wide.txt", std::string("\xFF\xFE\r\0\n\0", 6)));
  EXPECT_EQ(panel(), "");
  EXPECT_FALSE(H->runCommand(mnuToLf)) << "halves of characters";
}

TEST_F(Lines, IndentHasItsLimits) {
  T1.load("a\r\n\r\nb");
  expectInput("20");
  ASSERT_TRUE(H->runCommand(mnuparindent));
  EXPECT_EQ(T1.text(), std::string(20, ' ') + "a\r\n\r\n" + std::string(20, ' ') + "b");
  for (const char* wrong : {"2", "21"}) {
    expectInput(wrong);
    expectBoxWith("3-დან 20-მდე", app::kAnswerOk);
    H->runCommand(mnuparindent);
  }
}

}  // namespace
