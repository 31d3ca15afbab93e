#include "markup/scanner.h"

#include <gtest/gtest.h>

#include "markup/entities.h"

namespace {

using markup::RunKind;

// The runs of a page, one after the other: a letter for the kind, and the bytes.
std::string runsOf(std::string_view page, markup::StartsIn startsIn = markup::StartsIn::Markup) {
  static const std::map<RunKind, char> letters = {
      {RunKind::Text, 'T'},    {RunKind::RawText, 'R'},      {RunKind::Tag, '<'},
      {RunKind::Comment, 'C'}, {RunKind::Declaration, 'D'},  {RunKind::Server, 'S'},
      {RunKind::Script, 's'},  {RunKind::ScriptString, '"'}, {RunKind::ScriptComment, 'c'},
      {RunKind::Style, 'Y'},   {RunKind::Instruction, 'I'}};
  markup::Scanner scanner(page, startsIn);
  markup::Run run;
  std::string found;
  std::size_t end = 0;
  while (scanner.next(run)) {
    EXPECT_EQ(run.range.begin, end);
    EXPECT_GT(run.range.end, end);
    end = run.range.end;
    found += std::string(found.empty() ? "" : "|") + letters.at(run.kind) + std::string(run.range.of(page));
  }
  EXPECT_EQ(end, page.size());
  return found;
}

TEST(Scanner, TakesPagesApart) {
  EXPECT_EQ(runsOf("a < b<B>c</B >d"), "Ta < b|<<B>|Tc|<</B >|Td");
  EXPECT_EQ(runsOf("<!DOCTYPE x><!-- <B> --><?xml version='1'?><? echo '<b>' ?>x<%= 1 %>y<% z"),
            "D<!DOCTYPE x>|C<!-- <B> -->|I<?xml version='1'?>|S<? echo '<b>' ?>|Tx|S<%= 1 %>|Ty<% z");
  EXPECT_EQ(runsOf("<A TITLE='x > y' B=\"<? \"' ?>\" C=d<e>f"),
            "<<A TITLE='x > y' B=\"<? \"' ?>\" C=d<e>|Tf");
  EXPECT_EQ(runsOf("<TITLE>a<B></TITLE>b<TITLE>c<I>"), "<<TITLE>|Ta<B>|<</TITLE>|Tb|<<TITLE>|Tc|<<I>");
  EXPECT_EQ(runsOf("<style>p{}</b></STYLE >x<XMP>&amp;<B></XMP>"),
            "<<style>|Yp{}</b>|<</STYLE >|Tx|<<XMP>|R&amp;<B>|<</XMP>");
  EXPECT_EQ(runsOf("<!-- open <P>a"), "C<!-- open <P>a");
  EXPECT_EQ(runsOf(std::string("a\0<\0<b\0>c", 9)), std::string("Ta\0<\0|<<b\0>|Tc", 14));
}

TEST(Scanner, KnowsTheStringsOfScripts) {
  EXPECT_EQ(runsOf("<SCRIPT>a='b\\'c'; // 'x'\n/* \"y\" */ r=/['\"]/; d=\"e<?p()?>f\"</script>"),
            "<<SCRIPT>|sa='|\"b\\'c|s'; |c// 'x'|s\n|c/* \"y\" */|s r=/['\"]/; "
            "d=\"|\"e|S<?p()?>|\"f|s\"|<</script>");
  EXPECT_EQ(runsOf("a = 'open\nb = '';", markup::StartsIn::Script), "sa = '|\"open|s\nb = '|s';");
  EXPECT_EQ(runsOf("<script language=VBScript>a=\"b\" ' \"c\n</script>"),
            "<<script language=VBScript>|sa=\"|\"b|s\" |c' \"c|s\n|<</script>");
}

// Each would take minutes if any byte were looked at once for every other.
TEST(Scanner, IsLinearOnHostilePages) {
  constexpr std::size_t kTimes = 1 << 20;
  for (const char* piece :
       {"<", "<!", "<!--", "<a b=\"", "<a '", "<?", "<%", "</", "<title>", "<script>", "<style>", "<script>'",
        "<a \"<?\"", "&#", "<script>=/[", "<script>/*", "<a b=<%"}) {
    std::string page;
    for (std::size_t i = 0; i < kTimes; ++i) page += piece;
    markup::Scanner scanner(page);
    markup::Run run;
    std::size_t end = 0;
    while (scanner.next(run)) end = run.range.end;
    EXPECT_EQ(end, page.size()) << piece;
  }
}

TEST(References, AreReadAsBrowsersDoAndPutTogetherWhereSplit) {
  const auto read = [](std::string_view text) {
    const auto found = markup::referenceAt(text);
    return found ? std::to_string(found->character) + "/" + std::to_string(found->size) +
                       (found->sound ? "" : "!")
                 : "none";
  };
  EXPECT_EQ(read("&#4304;x"), "4304/7");
  EXPECT_EQ(read("&#x10D0;"), "4304/8");
  EXPECT_EQ(read("&#4304x"), "4304/6!");
  EXPECT_EQ(read("&Agrave;"), "192/8");
  EXPECT_EQ(read("&Agrave&#1"), "192/7!");
  EXPECT_EQ(read("&Agraves"), "none");
  EXPECT_EQ(read("&ndash x"), "none");
  EXPECT_EQ(read("&#43\r\n04;"), "4304/9!");
  EXPECT_EQ(read("&#4304\r\n5;"), "4304/6!");  // no letter would come of both lines
  EXPECT_EQ(read("&#99999999;"), "none");
  EXPECT_EQ(read("&#55296;"), "none");
  EXPECT_EQ(read("&;"), "none");
}

}  // namespace
