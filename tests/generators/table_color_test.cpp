// The table and colour picker: markup of tables, the two modes by mouse and keyboard, what enters the page.
#include <gtest/gtest.h>

#include <set>

#include "app/mdlsaerto.h"
#include "base/line_ends.h"
#include "generators/frmTabColor.h"
#include "generators/generators.h"
#include "markup/palette.h"
#include "tests/support/fake_canvas.h"
#include "tests/support/main_window.h"

namespace {

using generators::frmTabColor;
using generators::tableMarkup;

int occurrences(const std::string& text, const std::string& what) {
  int count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

TEST(TableMarkup, ExactForTheThreeBorders) {
  EXPECT_EQ(
      tableMarkup("1|0|2"),
      "<TABLE WIDTH=\"100%\">\r\n<TR>\r\n<TD WIDTH=\"50%\">\xC2 </TD>\r\n<TD WIDTH=\"50%\">\xC2 </TD>\r\n"
      "</TR>\r\n</TABLE>\r\n");
  EXPECT_EQ(tableMarkup("0|1|0"),
            "<TABLE BORDER=\"1\" WIDTH=\"100%\">\r\n<TR>\r\n<TD WIDTH=\"100%\">\xC2 </TD>\r\n</TR>\r\n"
            "<TR>\r\n<TD WIDTH=\"100%\">\xC2 </TD>\r\n</TR>\r\n</TABLE>\r\n");
  EXPECT_TRUE(tableMarkup("2|2|1").starts_with(
      "<TABLE BORDER=\"1\" CELLSPACING=\"0\" BORDERCOLOR=\"#000000\" WIDTH=\"100%\">\r\n"));
  EXPECT_EQ(occurrences(tableMarkup("2|2|1"), "<TD WIDTH=\"33%\">"), 9);
}

TEST(TableMarkup, OddChoices) {
  for (const char* none :
       {"", "1|1", "1|1|", "12345", "12|45", "-1|0|0", "0|-1|0", "1000|0|0", "0|99999999999|0"}) {
    EXPECT_EQ(tableMarkup(none), "") << none;
  }
  // Only the number a part begins with counts; no number is 0.
  EXPECT_EQ(tableMarkup("x|y|z"), tableMarkup("0|0|0"));
  EXPECT_EQ(tableMarkup(" 1a|0|2.7|9"), tableMarkup("1|0|2"));
  EXPECT_EQ(tableMarkup("1|0|300"), tableMarkup("1|0|2"));
  EXPECT_EQ(occurrences(tableMarkup("999|0|2"), "<TD WIDTH=\"0%\">"), 1000);
}

TEST(Palette, HasTheWebColoursAndTheNamedOnes) {
  std::set<base::Color> web;
  for (std::size_t i = 0; i < 216; ++i) web.insert(markup::palette()[i].color);
  EXPECT_EQ(web.size(), 216u);
  for (const base::Color color : web) {
    for (const int part : {base::red(color), base::green(color), base::blue(color)})
      EXPECT_EQ(part % 0x33, 0);
  }
  EXPECT_EQ(markup::palette().size(), 232u);
  EXPECT_EQ(markup::colorFromHtml(" navy "), base::rgb(0, 0, 128));
  EXPECT_EQ(markup::colorFromHtml("#1a2B3c"), base::rgb(0x1A, 0x2B, 0x3C));
  EXPECT_EQ(markup::colorFromHtml("f0A"), base::rgb(255, 0, 170));
  for (const char* bad : {"", "#", "#12", "#12345", "#1234567", "#12345g", "+12345", "reddish", "# 123"}) {
    EXPECT_FALSE(markup::colorFromHtml(bad)) << bad;
  }
}

class TabColor : public tests::MainWindowTest {
 protected:
  void SetUp() override {
    generators_ = generators::attach(*H);
    start();
  }
  // What the mouse does in the picture of the picker that comes next.
  void pick(int command, const std::function<void(frmTabColor&)>& act) {
    platform.modal.push_back([act](ui::Form& form) {
      auto& picker = dynamic_cast<frmTabColor&>(form);
      picker.PP.userSize({234, 190});
      act(picker);
    });
    ASSERT_TRUE(H->runCommand(command));
  }
  std::unique_ptr<generators::Generators> generators_;
};

TEST_F(TabColor, TableIsDraggedOverTheGrid) {
  T1.setText("ab");
  T1.select(1, 0);
  pick(mnuTable, [](frmTabColor& picker) {
    picker.PP.mouseMove({55, 55});
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("1/1")) << "no button is held";
    picker.PP.mouseDown({0, 0});
    picker.PP.mouseMove({25, 19});
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("3/2"));
    tests::FakeCanvas canvas;
    picker.PP.paint(canvas);
    EXPECT_EQ(canvas.at({29, 19}), canvas.systemColor(ui::SystemColor::Highlight));
    EXPECT_EQ(canvas.at({30, 19}), canvas.systemColor(ui::SystemColor::Window));
    picker.PP.mouseMove({230, 19});  // right of the last whole cell: nothing changes
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("3/2"));
    picker.PP.mouseMove({-1, 19});
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("0/0"));
    picker.PP.mouseUp({-1, 19});
    EXPECT_FALSE(picker.closed());
    picker.Op1_2.userChoose();
    picker.PP.mouseUp({15, 5});
    EXPECT_TRUE(picker.closed());
  });
  EXPECT_EQ(T1.text(), "a" + tableMarkup("1|0|2") + "b");
  T1.undo();
  EXPECT_EQ(T1.text(), "ab");
}

TEST_F(TabColor, TableByKeyboardAndClosedWithoutOne) {
  pick(mnuTable, [](frmTabColor& picker) {
    for (const int key : {ui::kKeyRight, ui::kKeyRight, ui::kKeyDown, ui::kKeyLeft})
      EXPECT_TRUE(picker.PP.keyDown(key));
    EXPECT_EQ(picker.PP.caption(), ui::Text("2/2"));
    picker.Op1_1.userChoose();
    picker.PP.keyDown(ui::kKeyReturn);
  });
  EXPECT_EQ(T1.text(), tableMarkup("1|1|1"));
  T1.load("\n");
  pick(mnuTable, [](frmTabColor& picker) { picker.MBklose.click(); });
  EXPECT_EQ(T1.text(), "\n");
  pick(mnuTable, [](frmTabColor& picker) { picker.PP.otherMouseUp({15, 5}); });
  EXPECT_EQ(T1.text(), base::withLineEnds(tableMarkup("1|0|0"), base::LineEnd::Lf) + "\n");
}

TEST_F(TabColor, ColourFromThePaletteInTheChosenForm) {
  std::vector<base::Color> told;
  H->colorChosen.connect([&told](base::Color color) { told.push_back(color); });
  T1.setText("one two");
  T1.select(4, 3);
  pick(mnuTabColor, [](frmTabColor& picker) {
    tests::FakeCanvas canvas;
    picker.PP.paint(canvas);
    const ui::Point pointer{4 * 13 + 6, 7 * 13 + 6};
    picker.PP.mouseMove(pointer);
    // What is told is what is drawn there.
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text(app::ColorToHtml(canvas.at(pointer))));
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("#99CC33"));
    picker.PP.mouseUp(pointer);
  });
  EXPECT_EQ(T1.text(), "one <FONT COLOR=\"#99CC33\">two</FONT>");
  EXPECT_EQ(T1.selText(), "two");
  EXPECT_EQ(told, std::vector<base::Color>{base::rgb(0x99, 0xCC, 0x33)});

  const std::pair<ui::OptionButton frmTabColor::*, const char*> forms[] = {
      {&frmTabColor::OPbgcolor, "BGCOLOR=\"#99CC33\""},
      {&frmTabColor::OPcolor, "COLOR=\"#99CC33\""},
      {&frmTabColor::Opnotag, "#99CC33"}};
  for (const auto& [option, text] : forms) {
    T1.setText("");
    pick(mnuTabColor, [option](frmTabColor& picker) {
      (picker.*option).userChoose();
      picker.Ckolor.click();
    });
    EXPECT_EQ(T1.text(), text);
    T1.setText("");
    pick(mnuTabColor, [](frmTabColor& picker) { picker.Ckolor.click(); });
    EXPECT_EQ(T1.text(), text) << "as the last time";
  }
}

TEST_F(TabColor, ColourFromFieldKeyboardAndSystem) {
  pick(mnuTabColor, [this](frmTabColor& picker) {
    picker.Opnotag.userChoose();
    picker.Thex.userSet("#05000");
    EXPECT_FALSE(picker.Ckolor.enabled());
    picker.Thex.userSet("#050000");
    EXPECT_EQ(picker.LBtabcount.caption(), ui::Text("#50000"));
    platform.colorAnswers.push_back(base::rgb(0x33, 0x66, 0x99));
    picker.Cmore.click();
    EXPECT_EQ(picker.Thex.text(), "#336699");
    picker.PP.keyDown(ui::kKeyDown);  // more blue
    EXPECT_EQ(picker.PP.caption(), ui::Text("#3366CC"));
    picker.PP.keyDown(ui::kKeyEnd);
    EXPECT_EQ(picker.PP.caption(), ui::Text("#FF00FF Fuchsia"));
    picker.PP.keyDown(ui::kKeyRight);
    picker.Thex.userSet("teal");
    picker.Ckolor.click();
  });
  EXPECT_EQ(T1.text(), "#008080");
}

}  // namespace
