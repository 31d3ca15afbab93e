// The tag palette and what the tree drops into the code view.
#include "editor/document_reference.h"
#include "editor/editor.h"
#include "tests/support/main_window.h"

namespace {

class PaletteTest : public tests::MainWindowTest {
 protected:
  PaletteTest() : part(editor::attach(*H)) { start(); }
  void choose(int group, const std::string& name) {
    H->Ttags.userSelect(group);
    const auto& items = H->Ltags.items();
    const auto at = std::find(items.begin(), items.end(), ui::Text(name));
    ASSERT_NE(at, items.end()) << name;
    H->Ltags.userSelect(static_cast<int>(at - items.begin()));
  }
  static ui::Shortcut key(int number) { return {number, false, false, false}; }
  std::unique_ptr<editor::Editor> part;
};

TEST_F(PaletteTest, EveryCodeStandsInOneGroup) {
  std::set<std::string> seen;
  for (int group = 0; group < editor::kPaletteGroups; ++group) {
    H->Ttags.userSelect(group);
    EXPECT_GE(H->Ltags.items().size(), 4u);
    for (const ui::Text& name : H->Ltags.items()) EXPECT_TRUE(seen.insert(name.bytes).second) << name.bytes;
  }
  EXPECT_EQ(seen.size(), editor::parseTagList(platform.resource("HTMLKODS")).size());
  EXPECT_EQ(editor::paletteGroupOf("TD"), 3);
  EXPECT_EQ(editor::paletteGroupOf("SCRIPT"), 6);
}

TEST_F(PaletteTest, InsertsAroundTheSelectionInOneStep) {
  T1.setText("abc");
  T1.select(1, 1);
  choose(1, "B");
  H->Ltags.doubleClicked();
  EXPECT_EQ(T1.text(), "a<B>b</B>c");
  EXPECT_EQ(T1.selText(), "b");
  T1.undo();
  EXPECT_EQ(T1.text(), "abc");
  choose(1, "I");
  T1.select(3, 0);
  H->Ltags.droppedInText(H->Ltags.selected());
  EXPECT_EQ(T1.text(), "abc<I></I>");
  EXPECT_EQ(T1.selStart(), 6);
}

TEST_F(PaletteTest, WorksByKeyboard) {
  EXPECT_TRUE(H->Ltags.keyPressed(key(ui::kKeyLeft)));
  EXPECT_EQ(H->Ttags.selected(), editor::kPaletteGroups - 1);
  EXPECT_TRUE(H->Ltags.keyPressed(key(ui::kKeyRight)));
  EXPECT_EQ(H->Ttags.selected(), 0);
  choose(0, "HR");
  EXPECT_TRUE(H->Ltags.keyPressed(key(ui::kKeyReturn)));
  EXPECT_EQ(T1.text().substr(0, 3), "<HR");
  EXPECT_FALSE(H->Ltags.keyPressed(key(ui::kKeyDown))) << "the list's own";
}

TEST_F(PaletteTest, ADroppedDocumentBecomesAReference) {
  EXPECT_EQ(editor::referenceTo("a.css", "s/a.css", ""),
            "<LINK REL=\"stylesheet\" TYPE=\"text/css\" HREF=\"s/a.css\">");
  EXPECT_EQ(editor::referenceTo("b.js", "b.js", "x"),
            "<SCRIPT TYPE=\"text/javascript\" SRC=\"b.js\"></SCRIPT>");
  const std::string site = folder.makeFolder("site");
  open(folder.make("site\\img.gif", "GIF89a"));
  open(folder.make("b.html", "Beta"));
  open(folder.make("site\\a.html", "Alpha"));
  T1.select(5, 0);
  H->documentDropped(0);
  EXPECT_EQ(T1.text(), "Alpha<IMG SRC=\"img.gif\" ALT=\"\">");
  T1.undo();
  T1.select(0, 5);
  H->documentDropped(1);
  EXPECT_EQ(T1.text(), "<A HREF=\"../b.html\">Alpha</A>");
}

}  // namespace
