// The CSS style builder: its property list, values by choice, and the dialog.
#include "generators/frmCSSstile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "base/path.h"
#include "generators/generators.h"
#include "markup/css_value.h"
#include "tests/support/main_window.h"

namespace {

using generators::frmCSSstile;
using markup::CssProperties;

CssProperties shipped() {
  return markup::parseCssProperties(tests::FakePlatform().resource("CSSKODS"));
}

TEST(CssProperties, TheShippedListIsWholeAndBadOnesAreRefused) {
  const CssProperties list = shipped();
  ASSERT_GE(list.groups.size(), 6u);
  std::set<std::string> names;
  for (const auto& group : list.groups) {
    EXPECT_FALSE(group.properties.empty()) << group.label;
    for (const auto& property : group.properties) {
      EXPECT_TRUE(names.insert(property.name).second) << property.name << " stands there twice";
      for (const auto& choice : property.choices) {
        for (const std::string& word : choice) EXPECT_TRUE(markup::fitsDeclaration(word)) << word;
      }
    }
  }
  for (const char* name :
       {"font-family", "COLOR", "margin-left", "border-top", "background-image", "z-index"}) {
    EXPECT_NE(list.find(name), nullptr) << name;
  }
  EXPECT_EQ(list.find("zoom"), nullptr);
  for (const char* bad : {"color|a||", "#G=x\ncolor", "#G=x\ncolor|l|number|", "#G=x\n|l||", "#X=1"}) {
    EXPECT_ANY_THROW(markup::parseCssProperties(bad)) << bad;
  }
  EXPECT_EQ(
      markup::parseCssProperties("; x\r\n#G=g\r\na|l|several url|x / y z\r\n").find("a")->choices[1].size(),
      2u);
}

TEST(CssValues, AChoiceTakesItsPlaceAmongWhatIsThere) {
  const CssProperties list = shipped();
  const markup::CssProperty& border = *list.find("border");
  const markup::CssProperty& align = *list.find("text-align");
  EXPECT_EQ(markup::withKeyword(border, "1px SOLID red", "dashed"), "1px dashed red");
  EXPECT_EQ(markup::withKeyword(border, "red ", "dashed"), "red dashed");
  EXPECT_EQ(markup::withKeyword(border, "none", "thin"), "thin");
  EXPECT_EQ(markup::withKeyword(align, "left", "right"), "right");
  EXPECT_EQ(markup::withColor(border, "1px rgb(1, 2, 3) solid", "#FF00000"), "1px #FF00000 solid");
  EXPECT_EQ(markup::withColor(border, "1px", "#FF00000"), "1px #FF00000");
  EXPECT_EQ(markup::withColor(border, "thin TOMATO solid", "#ABC"), "thin #ABC solid");
  EXPECT_EQ(markup::withColor(*list.find("color"), "red", "blue"), "blue");
  EXPECT_EQ(markup::withUrl(*list.find("background"), "red URL( a b ) fixed", "c.png"),
            "red url(c.png) fixed");

  EXPECT_EQ(markup::unitOf("auto -1.5EM 2px"), "EM");
  EXPECT_EQ(markup::unitOf("12"), "");
  EXPECT_EQ(markup::unitOf("solid a1"), std::nullopt);
  EXPECT_EQ(markup::withUnit("0 -1.5px auto 3%", "em"), "0 -1.5em auto 3em");
  EXPECT_EQ(markup::withUnit("12", "px"), "12px");

  EXPECT_EQ(markup::colorOf("1px #fA0"), base::rgb(255, 170, 0));
  EXPECT_EQ(markup::colorOf("#010203"), base::rgb(1, 2, 3));
  EXPECT_EQ(markup::colorOf("rgb(100%, 300, 3)"), base::rgb(255, 255, 3));
  EXPECT_EQ(markup::colorOf("Navy"), base::rgb(0, 0, 128));
  for (const char* none : {"", "#50000", "#xyz", "rgb(1,2)", "1px"})
    EXPECT_FALSE(markup::colorOf(none)) << none;

  EXPECT_EQ(markup::withFont("", "Arial Black", list.fonts), "\"Arial Black\"");
  EXPECT_EQ(markup::withFont("Arial, sans-serif", "BPG Glaho", list.fonts),
            "Arial, \"BPG Glaho\", sans-serif");
  EXPECT_EQ(markup::withFont("Arial, 'A B'", "A B", list.fonts), "Arial, 'A B'");
  EXPECT_EQ(markup::withFont("\"A, B\"", "serif", list.fonts), "\"A, B\", serif");

  EXPECT_EQ(markup::typedValue(" red ! Important ").value, "red");
  EXPECT_TRUE(markup::typedValue(" red ! Important ").important);
  EXPECT_EQ(markup::typedValue("unimportant").value, "unimportant");
}

class StyleDialog : public tests::MainWindowTest {
 protected:
  StyleDialog() : part(generators::attach(*H)) {
    start();
    platform.fonts = {"Arial", "BPG Glaho"};
  }
  // "|" is the caret.
  void build(std::string text, const std::function<void(frmCSSstile&)>& act) {
    const std::size_t caret = text.find('|');
    T1.setText(text.erase(caret, 1));
    T1.select(static_cast<int>(caret), 0);
    platform.modal.push_back([act](ui::Form& form) { act(dynamic_cast<frmCSSstile&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuCSSstile));
  }
  static void group(frmCSSstile& form, const std::string& label) {
    const auto& items = form.List1.items();
    const auto found = std::find(items.begin(), items.end(), ui::Text(label));
    ASSERT_NE(found, items.end()) << label;
    form.List1.userSelect(static_cast<int>(found - items.begin()));
  }
  static void property(frmCSSstile& form, const std::string& name) {
    const auto& items = form.LV.items();
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&](const auto& item) { return item.subItems[0] == ui::Text(name); });
    ASSERT_NE(found, items.end()) << name;
    form.LV.userSelect(static_cast<int>(found - items.begin()));
  }
  static void choose(ui::ComboBox& box, const std::string& word) {
    const auto& items = box.items();
    box.userSelect(static_cast<int>(std::find(items.begin(), items.end(), ui::Text(word)) - items.begin()));
  }
  std::unique_ptr<generators::Generators> part;
};

TEST_F(StyleDialog, ARuleIsEditedThroughItsFieldsInOneStep) {
  const std::string before = "p { color: red; *zoom: 1; margin: 0 }\n";
  build("p { col|or: red; *zoom: 1; margin: 0 }\n", [](frmCSSstile& form) {
    EXPECT_EQ(form.LV.items().size(), 3u);  // what stands there, the unknown one too
    EXPECT_EQ(form.Tvalue.text(), "red");
    EXPECT_TRUE(form.Ccolor.enabled());
    EXPECT_FALSE(form.Cfile.enabled());
    group(form, "შრიფტი");
    property(form, "font-family");
    choose(form.CBkeyword, "BPG Glaho");
    choose(form.CBkeyword, "serif");
    EXPECT_EQ(form.Tvalue.text(), "\"BPG Glaho\", serif");
    property(form, "font-size");
    EXPECT_FALSE(form.CBunit.enabled());
    form.Tvalue.userSet("12");
    choose(form.CBunit, "pt");
    form.CKimportant.userSet(true);
    group(form, "ბლოკი");
    property(form, "margin");
    EXPECT_EQ(form.Tvalue.text(), "0");
    form.Cclear.click();
    EXPECT_NE(form.Tpreview.text().find("serif; font-size: 12pt !important; }"), std::string::npos);
    form.Tselector.userSet("p.a");
    form.COK.click();
  });
  EXPECT_EQ(T1.text(),
            "p.a { color: red; *zoom: 1; font-family: \"BPG Glaho\", serif; font-size: 12pt !important; }\n");
  EXPECT_EQ(T1.text().substr(static_cast<std::size_t>(T1.selStart()), 1), "}");
  ASSERT_TRUE(H->runCommand(mnuUndo));
  EXPECT_EQ(T1.text(), before);
  build("p { col|or: red; *zoom: 1; margin: 0 }\n", [](frmCSSstile& form) {
    form.Cclear.click();
    form.CEXIT.click();
  });
  EXPECT_EQ(T1.text(), before);
}

TEST_F(StyleDialog, ColoursAndPicturesAreChosen) {
  const std::string page = folder.make("a.htm", "<BODY TEXT=red>");
  open(page);
  build("<BODY| TEXT=red>", [&](frmCSSstile& form) {
    EXPECT_FALSE(form.Tselector.enabled());
    group(form, "ფონი");
    property(form, "background");
    platform.colorAnswers = {base::rgb(255, 0, 16)};
    form.Ccolor.click();
    platform.openAnswers.push_back({base::folderOf(page) + "\\img\\a b.png"});
    form.Cfile.click();
    choose(form.CBkeyword, "fixed");
    form.COK.click();
  });
  EXPECT_EQ(T1.text(), "<BODY TEXT=red STYLE=\"background: #FF0010 url(img/a%20b.png) fixed\">");
}

TEST_F(StyleDialog, WhatWouldSpillIsRefusedAndWhatStoodThereStays) {
  build("|/**/ b{x:y}}{", [&](frmCSSstile& form) {
    group(form, "შრიფტი");
    property(form, "color");
    form.Tvalue.userSet("red; }");
    expectBoxWith("სელექტორი", app::kAnswerOk);
    form.COK.click();
    form.Tselector.userSet("p");
    expectBoxWith("color: red; }", app::kAnswerOk);
    form.COK.click();
    EXPECT_FALSE(form.closed());
    EXPECT_EQ(form.Tvalue.text(), "red; }");
    form.Tvalue.userSet("red !important");
    form.COK.click();
    EXPECT_TRUE(form.closed());
  });
  EXPECT_EQ(T1.text(), "p{color:red !important;}\r\n/**/ b{x:y}}{");
  build("a } b {| color: red; x: ( }", [](frmCSSstile& form) {
    form.Tvalue.userSet("blue");
    form.COK.click();
  });
  EXPECT_EQ(T1.text(), "a } b { color: blue; x: ( }");
  T1.setText("<P>x</P>");
  T1.select(6, 0);
  expectBoxWith("დამხურავ ტეგშია", app::kAnswerOk);
  ASSERT_TRUE(H->runCommand(mnuCSSstile));
}

}  // namespace
