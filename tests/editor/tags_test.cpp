#include <gtest/gtest.h>

#include <set>
#include <sstream>

#include "base/line_ends.h"
#include "editor/editor.h"
#include "editor/frmTags.h"
#include "editor/frmabzac.h"
#include "editor/frmkod.h"
#include "editor/tag_list.h"
#include "markup/pieces.h"
#include "markup/tag_text.h"
#include "tests/support/main_window.h"

namespace {

using namespace std::string_literals;

std::string resource() {
  return tests::FakePlatform().resource("HTMLKODS");
}

constexpr const char* kNames =
    "<!-- !DOCTYPE A ABBR ACRONYM ADDRESS APPLET AREA B BASE BASEFONT BDO BIG BLOCKQUOTE BODY BR BUTTON "
    "CAPTION "
    "CENTER CITE CODE COL COLGROUP DD DEL DFN DIR DIV DL DT EM FIELDSET FONT FORM FRAME FRAMESET H1 H2 H3 H4 "
    "H5 H6 "
    "HEAD HR HTML I IFRAME IMG INPUT INS ISINDEX KBD LABEL LEGEND LI LINK MAP MENU META NOFRAMES NOSCRIPT "
    "OBJECT OL "
    "OPTGROUP OPTION P PARAM PRE Q S SAMP SCRIPT SELECT SMALL SPAN STRIKE STRONG STYLE SUB SUP TABLE TBODY "
    "TD "
    "TEXTAREA TFOOT TH THEAD TITLE TR TT U UL VAR";

// Reads the resource by the byte, with no regard to the program's reader.
TEST(TagList, ResourceHoldsWhatItMust) {
  const std::string bytes = resource();
  ASSERT_EQ(bytes.size(), 3032u);
  ASSERT_EQ(bytes.substr(bytes.size() - 10), "</VAR>\r\n\0\0"s);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\r'), std::count(bytes.begin(), bytes.end(), '\n'));
  std::istringstream wanted(kNames);
  std::set<std::string> without;
  int entries = 0;
  for (std::size_t at = 0; bytes.compare(at, 3, "#T=") == 0; ++entries) {
    const std::size_t nameEnd = bytes.find('\r', at);
    const std::string name = bytes.substr(at + 3, nameEnd - at - 3);
    std::string expected;
    wanted >> expected;
    EXPECT_EQ(name, expected);
    const std::size_t next = std::min(bytes.find("\n#T=", nameEnd + 1) + 1, bytes.size());
    const std::size_t end = next == 0 ? bytes.size() : next;
    const std::string code = bytes.substr(nameEnd + 2, end - nameEnd - 2);
    const std::size_t mark = code.find("^!");
    if (mark == std::string::npos) without.insert(name);
    EXPECT_EQ(mark, code.rfind("^!")) << name;
    EXPECT_TRUE(code.starts_with((name[0] == '<' ? "" : "<") + name)) << name;
    at = end;
  }
  EXPECT_EQ(entries, 93);
  EXPECT_EQ(without, (std::set<std::string>{"!DOCTYPE", "BR", "COL", "DD", "DT", "HR", "ISINDEX", "LI", "P",
                                            "TD", "TH", "TR"}));
}

TEST(TagList, ReaderFollowsItsRule) {
  const auto entries = editor::parseTagList("lost\r\n#T=A\r\nx\r\n\ty\r\n#T=\r\n#T=B\r\nz");
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0].name, "A");
  EXPECT_EQ(entries[0].code, "x\r\n\ty\r\n");
  EXPECT_EQ(entries[1].code, "");
  EXPECT_EQ(editor::pickedCode(entries[2]), "z");
}

class Tags : public tests::MainWindowTest {
 protected:
  editor::Editor editor_{*H};

  void set(const std::string& text, int start, int length) {
    T1.load(text);
    T1.select(start, length);
  }
  void pick(const std::string& name) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& dialog = dynamic_cast<editor::frmTags&>(form);
      const auto& items = dialog.List1.items();
      const auto at = std::find(items.begin(), items.end(), ui::Text(name));
      ASSERT_NE(at, items.end()) << name;
      dialog.List1.userSelect(static_cast<int>(at - items.begin()));
      dialog.MBOK.click();
    });
    ASSERT_TRUE(H->runCommand(mnutags));
  }
  void expect(const std::string& text, int start, int length, const std::string& what = {}) {
    EXPECT_EQ(T1.text(), text) << what;
    EXPECT_EQ(T1.selStart(), start) << what;
    EXPECT_EQ(T1.selLength(), length) << what;
  }
};

TEST_F(Tags, PickedCodesAsStored) {
  struct Case {
    const char* name;
    std::string before, behind;  // the selection
  };
  const Case cases[] = {
      {"<!--", "<!-- ", " -->"},
      {"A", "<A HREF=\"\">", "</A>"},
      {"APPLET", "<APPLET CODE=\"", "\" WIDTH=\"\" HEIGHT=\"\">\r\n</APPLET>"},
      {"BODY", "<BODY>\r\n", "\r\n</BODY>"},
      {"DIV", "<DIV STYLE=\"position: absolute; top: 0; left: 0; width: 100; height: 100\">", "</DIV>"},
      {"DL", "<DL>\r\n\t<DT>", "\r\n\t<DD>\r\n</DL>"},
      {"FRAMESET", "<FRAMESET ROWS=\"",
       ",\" COLS=\",\">\r\n\t<FRAME SRC=\"\" NAME=\"\">\r\n\t<FRAME SRC=\"\" NAME=\"\">\r\n</FRAMESET>"},
      {"FORM", "<FORM METHOD=POST ACTION=\"\">\r\n", "\r\n</FORM>"},
      {"VAR", "<VAR>", "</VAR>\r\n\0\0"s},
  };
  for (const Case& c : cases) {
    set("a S\r\nT b", 2, 4);
    pick(c.name);
    expect("a " + c.before + "S\r\nT" + c.behind + " b", 2 + static_cast<int>(c.before.size()), 4, c.name);
  }
}

TEST_F(Tags, SelectionLandsAtTheMark) {
  set("a word b", 2, 4);
  pick("B");
  expect("a <B>word</B> b", 5, 4);
  set("a w\r\nd b", 2, 4);
  pick("P");
  expect("a <P> b", 5, 0, "no mark: the selection is lost");
  set("", 0, 0);
  pick("BODY");
  expect("<BODY>\r\n\r\n</BODY>", 8, 0);
  set("x", 0, 1);
  platform.modal.push_back([](ui::Form& form) { dynamic_cast<editor::frmTags&>(form).MBexit.click(); });
  ASSERT_TRUE(H->runCommand(mnutags));
  expect("x", 0, 1, "left without a choice");
}

TEST_F(Tags, CodesEnterWithThePagesLineEnds) {
  using enum base::LineEnd;
  const auto run = [this](base::LineEnd end, const std::function<void()>& insert) {
    set(base::withLineEnds("1\r\nxy\r\n", end), 2 + static_cast<int>(base::bytesOf(end).size()), 1);
    insert();
  };
  std::vector<std::function<void()>> inserts;
  for (const char* name : {"BODY", "FRAMESET", "DL", "VAR"}) inserts.emplace_back([=, this] { pick(name); });
  for (const int id : {mnulist, mnuform, mnuaplet, mnuImap, mnuscript})
    inserts.emplace_back([=, this] { H->runCommand(id); });
  for (const auto& insert : inserts) {
    run(CrLf, insert);
    const std::string text(T1.text());
    const std::string before = text.substr(0, static_cast<std::size_t>(T1.selStart()));
    const int length = T1.selLength();
    for (const base::LineEnd end : {Lf, Cr}) {
      run(end, insert);
      expect(base::withLineEnds(text, end), static_cast<int>(base::withLineEnds(before, end).size()), length,
             text);
    }
  }
}

TEST_F(Tags, ListFollowsTheTyping) {
  const auto search = [this](std::vector<const char*> texts) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& dialog = dynamic_cast<editor::frmTags&>(form);
      for (const char* text : texts) dialog.Tsearch.userSet(text);
      dialog.MBOK.click();
    });
    ASSERT_TRUE(H->runCommand(mnutags));
  };
  set("x", 0, 1);
  search({});
  search({"BR", ""});
  expect("x", 0, 1, "nothing was chosen");
  search({"BR"});
  expect("<BR>", 4, 0);

  T1.load("");
  platform.modal.push_back([](ui::Form& form) {
    auto& dialog = dynamic_cast<editor::frmTags&>(form);
    EXPECT_EQ(dialog.List1.selected(), 0);
    dialog.Tsearch.userSet("te");
    EXPECT_EQ(dialog.List1.items()[static_cast<std::size_t>(dialog.List1.selected())], "TEXTAREA");
    dialog.Tsearch.userSet("h3");
    dialog.Tsearch.userSet("h3x");  // nothing begins so
    EXPECT_FALSE(dialog.keyPressed({'A', false, false, false}));
    EXPECT_TRUE(dialog.keyPressed({0x28, false, false, false}));  // the down key
    dialog.List1.doubleClicked();
    EXPECT_TRUE(dialog.closed());
  });
  ASSERT_TRUE(H->runCommand(mnutags));
  expect("<H4></H4>", 4, 0);
}

TEST_F(Tags, WrapsKeepTheirOffsets) {
  struct Case {
    int command;
    std::string open, close;
    int k;
  };
  std::vector<Case> cases = {
      {mnuFtag2, "<FONT>", "</FONT>", 6},
      {mnuFS, "<FONT SIZE=\"\">", "</FONT>", 14},
      {mnuFF, "<FONT FACE=\"\">", "</FONT>", 14},
      {mnuFC, "<FONT COLOR=\"\">", "</FONT>", 15},
      {mnuFtag, "<FONT FACE=\"\" SIZE=\"\" COLOR=\"\">", "</FONT>", 31},
      {mnucenter, "<P style=\"text-align:justify; margin-left:1.0cm; margin-right:1.0cm\">", "</P>", 69},
      {mnurecht, "<P style=\"text-align:right; margin-right:1.0cm\">", "</P>", 46},
      {mnulink, "<A HREF=\"\">", "</A>", 11},
      {mnuH1, "<H1>", "</H1>", 4},
      {mnuH6, "<H6>", "</H6>", 4},
      {PHTbar + 0, "<B>", "</B>", 3},
      {PHTbar + 1, "<I>", "</I>", 3},
      {PHTbar + 2, "<U>", "</U>", 3},
      {PHTbar + 7, "<P>", "</P>", 3},
      {PHTbar + 12, "<!-- ", " -->", 5},
      {PHTbar + 14, "<CENTER>", "</CENTER>", 8},
      {PHTbar + 15, "<BLOCKQUOTE>", "</BLOCKQUOTE>", 12},
      {PHTbar + 16, "<PRE>", "</PRE>", 5},
      {PHTbar + 19, "<FONT COLOR=\"#FF0000\">", "</FONT>", 22},
      {PHTbar + 20, "<FONT COLOR=\"#0000FF\">", "</FONT>", 22},
  };
  for (const Case& c : cases) {
    set("a b\r\nc d", 2, 5);
    ASSERT_TRUE(H->runCommand(c.command));
    expect("a " + c.open + "b\r\nc " + c.close + "d", 2 + c.k, 5, c.open);
    T1.undo();
    EXPECT_EQ(T1.text(), "a b\r\nc d") << "one step";
  }
  set("12345", 0, 5);
  H->runCommand(mnurecht);
  EXPECT_EQ(T1.selText(), "\">123");
  set("", 0, 0);
  H->runCommand(mnuH3);
  expect("<H3></H3>", 4, 0);
}

TEST_F(Tags, BlocksDropTheSelection) {
  struct Case {
    int command;
    std::string block;
    int k;
  };
  const Case cases[] = {
      {mnuform, "<FORM METHOD=POST ACTION=\"\">\r\n|\r\n</FORM>", 30},
      {mnuaplet, "<APPLET CODE=\"|\" WIDTH=\"\" HEIGHT=\"\">\r\n</APPLET>", 14},
      {mnuImap, "<MAP NAME=\"|\">\r\n\t<AREA SHAPE=\"\" HREF=\"\" COORDS=\"\" ALT=\"\">\r\n</MAP>", 11},
      {mnuscript, "<SCRIPT LANGUAGE=\"JavaScript\">\r\n<!--\r\n|\r\n//-->\r\n</SCRIPT>", 38},
      {mnuImageTag, "<IMG BORDER=\"0\" SRC=\"\" WIDTH=\"\" HEIGHT=\"\" ALIGN=\"\" ALT=\"\">|", 58},
      {PHTbar + 5, "\xC2\xA0|", 2},
      {PHTbar + 6, "<BR>|", 4},
      {PHTbar + 11, "<HR>|", 4},
  };
  for (const Case& c : cases) {
    set("a\r\nb", 1, 2);
    ASSERT_TRUE(H->runCommand(c.command));
    std::string block = c.block;
    EXPECT_EQ(static_cast<int>(block.find('|')), c.k);
    block.erase(block.find('|'), 1);
    expect("a" + block + "b", 1 + c.k, 0, block);
  }
  H->Props.NoBreakSpaceAsReference = true;
  set("", 0, 0);
  H->runCommand(PHTbar + 5);
  EXPECT_EQ(T1.text(), "&nbsp;");
}

TEST_F(Tags, EveryButtonDoesSomething) {
  // Behind the five of files and changes, and a gap.
  const std::vector<ui::ToolBarButton>& bar = H->toolBar;
  ASSERT_EQ(bar.size(), 6u + 27u);
  const auto button = [&bar](int i) { return bar[static_cast<std::size_t>(6 + i)]; };
  std::set<std::string> hints;
  for (int i = 0; i < 27; ++i) {
    hints.insert(button(i).hint.bytes);
    EXPECT_EQ(button(i).command, PHTbar + i);
    // Windows that are tested by themselves; colours come from one of them.
    if (i == 4) H->colorChosen(base::rgb(5, 0, 171));
    if (i == 4 || i == 13 || i == 25 || i == 26) continue;
    set("", 0, 0);
    if (i == 3) {
      platform.fonts = {"Arial", "Zervo ISO"};
      platform.modal.push_back([](ui::Form& form) {
        auto& dialog = dynamic_cast<editor::frmTags&>(form);
        dialog.List1.userSelect(1);
        dialog.MBOK.click();
      });
    }
    if (i == 8) {
      platform.modal.push_back([](ui::Form& form) {
        auto& dialog = dynamic_cast<editor::frmabzac&>(form);
        dialog.OPcenter.userChoose();
        dialog.COK.click();
      });
    }
    ASSERT_TRUE(H->runCommand(PHTbar + i));
    EXPECT_NE(T1.text(), "") << i;
    if (i == 3) expect("<FONT FACE=\"Zervo ISO\"></FONT>", 23, 0);
    if (i == 8) expect("<P ALIGN=\"CENTER\"></P>", 18, 0);
    if (i == 19) {
      EXPECT_EQ(T1.text(), "<FONT COLOR=\"#0500AB\"></FONT>") << "chosen last";
      EXPECT_EQ(button(19).color, base::rgb(5, 0, 171)) << "as its picture shows";
    }
    if (i == 20) {
      EXPECT_EQ(T1.text(), "<FONT COLOR=\"#FF0000\"></FONT>") << "chosen before";
      EXPECT_EQ(button(20).color, base::rgb(255, 0, 0));
    }
  }
  EXPECT_EQ(hints.size(), 27u);
  set("x", 0, 0);
  editor_.tags.htmlbarklick(27);
  editor_.tags.htmlbarklick(-1);
  EXPECT_EQ(T1.text(), "x");
}

TEST(Markup, TagAtAPlace) {
  struct Case {
    const char* text;
    std::size_t at;
    const char* tag;  // empty: none
  };
  const Case cases[] = {
      {"a<B>c", 0, ""},
      {"a<B>c", 1, "<B>"},
      {"a<B>c", 4, "<B>"},
      {"<B><I>", 3, "<I>"},
      {"<A T='>'>x", 6, "<A T='>'>"},
      {"<A T=\"x>y", 2, "<A T=\"x>"},
      {"1 < 2 > 1", 3, ""},
      {"<!-- <B> -->", 6, ""},
      {"<PRE><I>x</I></PRE>", 6, "<I>"},
      {"<script>'<b>'</SCRIPT>", 10, "<b>"},
      {"<? <B> ?><U>", 4, ""},
      {"<B", 1, ""},
      {"</P >", 2, "</P >"},
      {"", 0, ""},
  };
  for (const Case& c : cases) {
    const auto found = markup::tagAt(c.text, c.at);
    EXPECT_EQ(found ? std::string(c.text).substr(found->start, found->end - found->start) : "", c.tag)
        << c.text;
  }
}

TEST(TagText, UnchangedTagsKeepTheirSpelling) {
  for (const char* tag :
       {"<B>", "</B>", "<A  HREF = 'x'\r\n\tTARGET=_top >", "<IMG SRC=a/b/>", "<BR />", "<HR NOSHADE>",
        "<!DOCTYPE HTML PUBLIC \"a b\" \"c\">", "<A =x>", "<A B=\"x y\"C='1'/>", "<A X=>"}) {
    EXPECT_EQ(markup::formatTag(markup::parseTag(tag)), tag);
  }
  const auto parsed = markup::parseTag("<A  HREF = 'x y' NOSHADE C=>");
  ASSERT_EQ(parsed.attributes.size(), 3u);
  EXPECT_EQ(parsed.attributes[0].name, "HREF");
  EXPECT_EQ(parsed.attributes[0].value, "x y");
  EXPECT_FALSE(parsed.attributes[1].hasValue);
  EXPECT_TRUE(parsed.attributes[2].hasValue);
}

TEST_F(Tags, AttributesAreEditedInPlace) {
  set("x<IMG SRC=a  NOSHADE ALT='b'>y", 8, 0);
  platform.modal.push_back([](ui::Form& form) {
    auto& dialog = dynamic_cast<editor::frmkod&>(form);
    ASSERT_EQ(dialog.LV.items().size(), 3u);
    EXPECT_EQ(dialog.Tvalue.text(), "a");
    EXPECT_FALSE(dialog.Cup.enabled());
    dialog.Tvalue.userSet("say \"hi\"");
    dialog.Cchange.click();
    dialog.LV.userSelect(1);
    dialog.Cremove.click();
    EXPECT_EQ(dialog.Tname.text(), "ALT");
    dialog.Cup.click();
    dialog.Tname.userSet("WIDTH");
    dialog.Tvalue.userSet("5");
    dialog.Cadd.click();
    dialog.Tvalue.userSet("50");  // not confirmed by the change button
    dialog.COK.click();
  });
  ASSERT_TRUE(H->runCommand(mnutagkod));
  expect("x<IMG ALT='b' SRC='say \"hi\"' WIDTH=\"50\">y", 1, 39);
  T1.undo();
  EXPECT_EQ(T1.text(), "x<IMG SRC=a  NOSHADE ALT='b'>y");

  platform.modal.push_back([](ui::Form& form) { dynamic_cast<editor::frmkod&>(form).CEXIT.click(); });
  T1.select(3, 0);
  H->runCommand(mnutagkod);
  EXPECT_EQ(T1.text(), "x<IMG SRC=a  NOSHADE ALT='b'>y");
  T1.select(0, 0);
  expectBoxWith("ტეგი არ არის", app::kAnswerOk);
  H->runCommand(mnutagkod);
}

}  // namespace
