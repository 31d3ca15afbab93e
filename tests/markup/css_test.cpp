// CSS in sheets and pages: what stands at the caret, and what is written back.
#include <gtest/gtest.h>

#include <random>

#include "base/files.h"
#include "markup/css_edit.h"
#include "markup/css_tokens.h"

namespace {

using markup::CssEdit;
using markup::CssPlace;
using Kind = CssPlace::Kind;
using Why = CssPlace::Why;

struct Wish {
  std::string name;
  std::string value;
  bool important = false;
};

// The document after the wishes, where "|" marks the caret (two: the selection).
std::string after(std::string text, bool sheet, const std::vector<Wish>& wishes,
                  const std::string& selector = {}) {
  const std::size_t start = text.find('|');
  text.erase(start, 1);
  const std::size_t second = text.find('|', start);
  if (second != std::string::npos) text.erase(second, 1);
  const std::size_t length = second == std::string::npos ? 0 : second - start;
  const CssPlace place = markup::cssPlace(text, start, length, sheet);
  if (place.kind == Kind::Nothing) return "why " + std::to_string(static_cast<int>(place.why));
  CssEdit edit(text, place);
  if (place.kind == Kind::NewRule || place.kind == Kind::NewElement) edit.selector = selector;
  for (const Wish& wish : wishes) {
    const int at = edit.find(wish.name);
    if (at < 0) edit.entries.push_back({wish.name, wish.value, wish.important, -1});
    if (at >= 0) edit.entries[static_cast<std::size_t>(at)].value = wish.value;
    if (at >= 0) edit.entries[static_cast<std::size_t>(at)].important = wish.important;
  }
  const std::string written = edit.written();
  EXPECT_LE(edit.caret(), written.size());
  return text.substr(0, place.start) + written + text.substr(place.end);
}

struct Case {
  std::string before;  // with the caret
  std::vector<Wish> wishes;
  std::string expected;
};

TEST(Css, RulesOfASheetAreEditedInPlace) {
  const std::vector<Case> cases = {
      // values; all else stays
      {"a { col|or: red; x: y }", {{"color", "blue"}}, "a { color: blue; x: y }"},
      {"a{color:red;COLOR:green}|", {{"color", "blue"}}, "a{color:red;COLOR:blue}"},
      {"A { /* x: y; */ color : /*1*/ red /*2*/ ; }|\r\n",
       {},
       "A { /* x: y; */ color : /*1*/ red /*2*/ ; }\r\n"},
      {"|a { color : /*1*/ red /*2*/ ; }", {{"color", "blue"}}, "a { color : /*1*/ blue /*2*/ ; }"},
      {"a { |*zoom: 1; filter: progid:D.X(a='b;c',d=e); b: url(data:x;y,}) }",
       {{"b", "c"}},
       "a { *zoom: 1; filter: progid:D.X(a='b;c',d=e); b: c }"},
      {"a { content: \"}\\\"|;\"; x: 1 } b { x: 2 }",
       {{"x", "3"}},
       "a { content: \"}\\\";\"; x: 3 } b { x: 2 }"},
      {"a { x: 1 ! IMPORTANT|; y: 2 }", {{"x", "2", true}}, "a { x: 2 ! IMPORTANT; y: 2 }"},
      {"a { x: 1 !important|; y: 2 }", {{"x", "2"}, {"y", "2", true}}, "a { x: 2; y: 2 !important }"},
      {"a { color|: }", {{"color", "red"}}, "a { color:red }"},
      // two rules that touch; rules in braces of others; statements
      {"a{x:1}|b{x:1}", {{"x", "2"}}, "a{x:1}b{x:2}"},
      {"@media print { a { x: 1 }|\n b { x: 1 } }", {{"x", "2"}}, "@media print { a { x: 2 }\n b { x: 1 } }"},
      {"@import 'x{}'; @font-face { src: x| }", {{"src", "y"}}, "@import 'x{}'; @font-face { src: y }"},
      {"a { x: 1; &:hover { x: 2 } |y: 3 }", {{"x", "4"}, {"y", ""}}, "a { x: 4; &:hover { x: 2 } }"},
      {"@-moz-keyframes k { from { x: 1 } |to { x: 2 } }",
       {{"x", "3"}},
       "@-moz-keyframes k { from { x: 1 } to { x: 3 } }"},
      {"@starting-style { a { x: 1| } b { x: 2 } }",
       {{"x", "3"}},
       "@starting-style { a { x: 3 } b { x: 2 } }"},
      // the innermost rule; one that ends at the caret, as among those of the sheet
      {"a { x: 1; |&:hover { x: 2 } x: 3 }", {{"x", "4"}}, "a { x: 1; &:hover { x: 4 } x: 3 }"},
      {"a { x: 1; &:hover { x: 2 }|\n}", {{"x", "4"}}, "a { x: 1; &:hover { x: 4 }\n}"},
      {"@media tv { a { @media (w: 1) { x: 2; b { x: 3 } | } } }",
       {{"x", "4"}},
       "@media tv { a { @media (w: 1) { x: 4; b { x: 3 }  } } }"},
      {"a{b{c{|}}x:1}", {{"x", "2"}}, "a{b{c{ x: 2; }}x:1}"},
      {"@page { x: 1; @top-left { x: |2 } }", {{"x", "3"}}, "@page { x: 1; @top-left { x: 3 } }"},
      // braces in custom properties
      {"a { --m: { x: 1; y: 2 }; |x: 3 }", {{"x", "4"}, {"--m", "{z:0}"}}, "a { --m: {z:0}; x: 4 }"},
      {"a { --m: { x|: 1 } }", {{"--m", "{}"}}, "a { --m: {} }"},
      // new ones, as the others are written
      {"a {|}", {{"x", "1"}}, "a { x: 1; }"},
      {"a {| }", {{"x", "1"}, {"y", "2", true}}, "a { x: 1; y: 2 !important; }"},
      {"a{x:1|}", {{"y", "2"}}, "a{x:1;y:2}"},
      {"a { x: 1|}", {{"y", "2"}}, "a { x: 1; y: 2}"},
      {"a\n{\n|}\n", {{"x", "1"}}, "a\n{\n\tx: 1;\n}\n"},
      {"a {\r\n  x : 1; /* why */\r\n}|", {{"y", "2"}}, "a {\r\n  x : 1; /* why */\r\n  y : 2;\r\n}"},
      {"a {\n\tx: 1 /* why */\n}|", {{"y", "2"}}, "a {\n\tx: 1; /* why */\n\ty: 2\n}"},
      {"a { /* x */|\n}", {{"x", "1"}}, "a { /* x */\n\tx: 1;\n}"},
      // gone
      {"a { |x: 1; y: 2; z: 3 }", {{"y", ""}}, "a { x: 1; z: 3 }"},
      {"a { |x: 1; y: 2; z: 3 }", {{"z", ""}, {"y", ""}}, "a { x: 1; }"},
      {"a { |x: 1 }", {{"x", ""}}, "a { }"},
      {"a {|\n  x: 1;\n  y: 2; /* two */\n  z: 3\n}",
       {{"x", ""}, {"y", ""}, {"z", ""}},
       "a {\n  /* two */\n}"},
      // not closed
      {"a { x: 1|", {{"y", "2"}}, "a { x: 1; y: 2 }"},
      {"a {\n  x: 1;\n|\n", {{"y", "2"}}, "a {\n  x: 1;\n  y: 2;\n}\n\n"},
      {"a { x: |'1; y: 2;\n w: 0; z: 3 }", {{"z", "4"}}, "a { x: '1; y: 2;\n w: 0; z: 4 }"},
      {"a { x: calc(|1; y: 2 } b { z: 3) }", {{"y", "4"}}, "a { x: calc(1; y: 4 } b { z: 3) }"},
      // Georgian bytes, legacy and UTF-8
      {"/*\xC0\xC1*/ a| { f: \"\xE1\x83\x90\", \xC4\xC5; x: 1 }",
       {{"x", "2"}},
       "/*\xC0\xC1*/ a { f: \"\xE1\x83\x90\", \xC4\xC5; x: 2 }"},
  };
  for (const Case& one : cases) EXPECT_EQ(after(one.before, true, one.wishes), one.expected) << one.before;
}

TEST(Css, WhereNoRuleIsANewOneIsMade) {
  const std::vector<Case> cases = {
      {"|", {{"x", "1"}}, "p {\r\n\tx: 1;\r\n}\r\n"},
      {"a { x: 1 }\n|\nb {\n  x: 1;\n}\n", {{"y", "2"}}, "a { x: 1 }\np { y: 2; }\nb {\n  x: 1;\n}\n"},
      {"|\nb {\n  x: 1;\n}\n", {{"y", "2"}}, "p {\n  y: 2;\n}\nb {\n  x: 1;\n}\n"},
      {"/* a|b */ b{x:1}", {{"y", "2"}}, "/* ab */\r\np{y:2;}\r\n b{x:1}"},
      {"@media print {\n  |\n  b {\n    x: 1;\n  }\n}",
       {{"y", "2"}},
       "@media print {\n  p {\n    y: 2;\n  }\n  b {\n    x: 1;\n  }\n}"},
      {"@import u|rl(x);", {{"y", "2"}}, "@import url(x);\r\np {\r\n\ty: 2;\r\n}\r\n"},
  };
  for (const Case& one : cases)
    EXPECT_EQ(after(one.before, true, one.wishes, "p"), one.expected) << one.before;
}

TEST(Css, PagesHaveStyleElementsAttributesAndSelections) {
  const std::vector<Case> cases = {
      {"<STYLE><!--\r\nP { x: 1 }|\r\n--></STYLE>", {{"x", "2"}}, "<STYLE><!--\r\nP { x: 2 }\r\n--></STYLE>"},
      {"<STYLE>|</STYLE><P>", {{"x", "2"}}, "<STYLE>\r\np {\r\n\tx: 2;\r\n}\r\n</STYLE><P>"},
      {"<P STYLE=\"x: 1|\">", {{"x", "2"}, {"y", "3"}}, "<P STYLE=\"x: 2; y: 3\">"},
      {"<P Style='x:1' class=a|>", {{"y", "3"}}, "<P Style='x:1; y:3' class=a>"},
      {"<p style=x:1;y:2 cl|ass=a>", {{"y", "3 4"}}, "<p style=\"x:1;y:3 4\" class=a>"},
      {"<p style=f:\"a\" cl|ass=a>", {{"y", "3"}}, "<p style='f:\"a\"; y:3' class=a>"},
      {"<p style| class=a>", {{"y", "3"}}, "<p style=\"y: 3\" class=a>"},
      {"<p style=\"f: &quot;A;B&quot;; x: &eacute;|\">",
       {{"y", "3"}},
       "<p style=\"f: &quot;A;B&quot;; x: &eacute;; y: 3\">"},
      {"<p style=\"x: 1|\">", {{"f", "\"A B\""}}, "<p style=\"x: 1; f: 'A B'\">"},
      {"<p style=\"x: 1|\">",
       {{"f", "\"A B\", 'c&amp'"}},
       "<p style=\"x: 1; f: &quot;A B&quot;, 'c&amp;amp'\">"},
      {"<p style='x: 1|'>", {{"f", "'A'"}}, "<p style='x: 1; f: \"A\"'>"},
      // blocks of servers, whatever quotes and brackets they hold
      {"<P TITLE='<?= t('>') ?>' STYLE=\"w: <% c[\"a\"] %>; x: 1|\" ID=a>",
       {{"x", "2"}, {"w", "1 <? d[\"b\"] ?> &amp;"}},
       "<P TITLE='<?= t('>') ?>' STYLE=\"w: 1 <? d[\"b\"] ?> &amp;amp;; x: 2\" ID=a>"},
      {"<P <? a(\"'>\") ?> STYLE=\"f: '<? c['\"'] ?>', url(<? u(\")\") ?>); x: 1|\">",
       {{"x", "2"}},
       "<P <? a(\"'>\") ?> STYLE=\"f: '<? c['\"'] ?>', url(<? u(\")\") ?>); x: 2\">"},
      {"<BR|>", {{"x", "1"}}, "<BR STYLE=\"x: 1\">"},
      {"<img src=a |/>", {{"x", "1"}}, "<img src=a style=\"x: 1\" />"},
      {"<P>|text", {{"x", "1"}}, "<P STYLE=\"x: 1\">text"},
      {"<P STYLE=\"x: 1|\" ID=a>", {{"x", ""}}, "<P ID=a>"},
      {"<P>te|xt|</P>", {{"x", "1"}}, "<P>te<SPAN STYLE=\"x: 1\">xt</SPAN></P>"},
      {"<PRE>a <B|>", {{"x", "1"}}, "<PRE>a <B STYLE=\"x: 1\">"},
      {"<HEAD>\n|\n</HEAD>",
       {{"x", "1"}},
       "<HEAD>\n<STYLE TYPE=\"text/css\">\np {\n\tx: 1;\n}\n</STYLE>\n</HEAD>"},
  };
  for (const Case& one : cases)
    EXPECT_EQ(after(one.before, false, one.wishes, "p"), one.expected) << one.before;
}

TEST(Css, WhatCannotBeEditedSaysWhy) {
  const auto why = [](const std::string& text, bool sheet) { return after(text, sheet, {}); };
  const auto number = [](Why reason) { return "why " + std::to_string(static_cast<int>(reason)); };
  EXPECT_EQ(why("a { x: 1| \n b { y: 2 }", true), number(Why::UnclosedRule));
  EXPECT_EQ(why("a { b { y: 2| }", true), number(Why::UnclosedRule));
  EXPECT_EQ(why("a { x: 1; /* | } b { y: 2 }", true), number(Why::UnclosedComment));
  EXPECT_EQ(why("a {| x: 1; /* } b { y: 2 }", true), number(Why::UnclosedComment));
  EXPECT_EQ(why("<P>x</P|>", false), number(Why::EndTag));
  EXPECT_EQ(why("<TITLE|>x</TITLE>", false), number(Why::TagWithoutStyle));
  EXPECT_EQ(why("<SCRIPT>a|</SCRIPT>", false), number(Why::OtherCode));
  EXPECT_EQ(why("<!-- <P |> -->", false), number(Why::OtherCode));
  EXPECT_EQ(why("<P STYLE='x: |1>", false), number(Why::UnclosedQuote));
}

TEST(Css, ValuesAndSelectorsThatWouldSpillAreRefused) {
  for (const char* good : {"red", "1px solid", "url(a;b)", "\"a;b}\"", "a(b;c)", "a\\;b", ""}) {
    EXPECT_TRUE(markup::fitsDeclaration(good)) << good;
  }
  for (const char* bad : {"red; x: y", "a}", "a{}", "\"a", "a /* b", "rgb(1", "a)", "a!b", "a\\", "f(})"}) {
    EXPECT_FALSE(markup::fitsDeclaration(bad)) << bad;
  }
  EXPECT_TRUE(markup::fitsDeclaration("{a: b; c{}} d", "--m"));
  EXPECT_FALSE(markup::fitsDeclaration("{a}; b", "--m"));
  for (const char* good : {"a", "a[b=\";\"]:not(c)", "@font-face"}) EXPECT_TRUE(markup::fitsSelector(good));
  for (const char* bad : {"", " ", "/* a */", "a{", "a;b", "[a", "'a"})
    EXPECT_FALSE(markup::fitsSelector(bad));
}

// What a document becomes; the bytes outside of the place stay by themselves.
std::string put(const std::string& text, const CssEdit& edit) {
  return text.substr(0, edit.place().start) + edit.written() + text.substr(edit.place().end);
}

// Each change of one entry, and that the others are read back as they were.
void expectOneChange(const std::string& text, const CssPlace& place) {
  const CssEdit before(text, place);
  const auto again = [&](const CssEdit& edit) {
    const std::string changed = put(text, edit);
    return CssEdit(changed, markup::cssPlace(changed, place.blockStart, 0, true)).entries;
  };
  const auto same = [](const markup::CssEntry& a, const markup::CssEntry& b) {
    return a.name == b.name && a.value == b.value && a.important == b.important;
  };
  for (std::size_t i = 0; i < before.entries.size(); ++i) {
    CssEdit edit(text, place);
    edit.entries[i].value = "Q(q;)";
    std::string wanted = edit.text();
    const std::string block = text.substr(place.blockStart, place.blockEnd - place.blockStart);
    // The last word of that value in the rule's own text is where it must have gone.
    const auto declaration = markup::readDeclarations(block, markup::CssSpelling::Sheet)[i];
    ASSERT_EQ(block.substr(declaration.valueStart, before.entries[i].value.size()), before.entries[i].value);
    wanted.replace(place.blockStart - place.start + declaration.valueStart, before.entries[i].value.size(),
                   "Q(q;)");
    ASSERT_EQ(edit.written(), wanted);
    edit.entries[i].value.clear();
    const auto left = again(edit);
    ASSERT_EQ(left.size() + 1, before.entries.size()) << edit.written();
    for (std::size_t k = 0; k < left.size(); ++k)
      ASSERT_TRUE(same(left[k], before.entries[k + (k >= i ? 1 : 0)]));
  }
  CssEdit edit(text, place);
  edit.entries.push_back({"new", "1", true, -1});
  const auto more = again(edit);
  ASSERT_EQ(more.size(), before.entries.size() + 1) << edit.written();
  ASSERT_TRUE(same(more.back(), edit.entries.back()));
}

TEST(Css, RealSheetsStayWhereverTheCaretIs) {
  struct Sheet {
    const char* name;
    std::size_t rules;  // as another program counts them
    std::size_t declarations;
    std::size_t step;  // of the caret
  };
  for (const auto& [name, rules, declarations, step] :
       {Sheet{"report.css", 86, 147, 7}, Sheet{"slides.css", 78, 154, 1}}) {
    const std::string text = base::readFile(std::string(ZERVO_SOURCE "/tests/markup/sheets/") + name);
    std::size_t found = 0;
    std::size_t entries = 0;
    std::size_t last = text.size();
    for (std::size_t caret = 0; caret <= text.size(); caret += step) {
      const CssPlace place = markup::cssPlace(text, caret, 0, true);
      ASSERT_NE(place.kind, Kind::Nothing) << name << " at " << caret;
      const CssEdit edit(text, place);
      ASSERT_FALSE(edit.changed());
      if (place.kind != Kind::Rule) continue;
      ASSERT_EQ(edit.written(), edit.text()) << name << " at " << caret;
      if (place.start == last) continue;
      last = place.start;
      ++found;
      entries += edit.entries.size();
      expectOneChange(text, place);
      if (HasFatalFailure()) return;
    }
    EXPECT_EQ(found, rules) << name;
    EXPECT_EQ(entries, declarations) << name;
  }
}

TEST(Css, BracketsThatNeverCloseTakeNoLonger) {
  for (const char* part : {"(", "[", "{", "/*", "url(", "\"", "<P STYLE='", "a{"}) {
    std::string text;
    while (text.size() < 200000) text += part;
    for (const bool sheet : {true, false}) markup::cssPlace(text, text.size() / 2, 0, sheet);
  }
}

}  // namespace
