// What stands around the code view: tabs, tree, panes.
#include "tests/support/main_window.h"
#include "ui/recent_folders.h"

namespace {

using app::kAnswerCancel;
using app::kAnswerNo;
using Names = std::vector<std::string>;

class Panes : public tests::MainWindowTest {
 protected:
  Names tabs() {
    Names all;
    for (const auto& tab : H->TS.tabs()) all.push_back(tab.text.bytes);
    return all;
  }
  std::string shownTab() { return tabs().at(static_cast<std::size_t>(H->TS.selected())); }
  int nodeOf(const std::string& title) {
    const auto& nodes = H->TV.nodes();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].text == ui::Text(title)) return static_cast<int>(i);
    }
    return -1;
  }
  std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta"),
              c = folder.make("c.css", "C");
};

TEST_F(Panes, ATabForEachDocumentWithTextAndAMarkForUnsavedChanges) {
  start();
  EXPECT_EQ(tabs().size(), 1u) << "an empty window has its tab too";
  open(a);
  open(folder.make("p.gif", "GIF89a"));
  open(b);
  EXPECT_EQ(tabs(), (Names{"a.html", "b.html"}));
  EXPECT_EQ(H->TS.tabs()[0].hint.bytes, a);
  type("1");
  H->idle();
  EXPECT_EQ(shownTab(), "b.html *");
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + b + "] *");
  H->TS.userSelect(0);
  EXPECT_EQ(T1.text(), "Alpha");
  EXPECT_EQ(tabs(), (Names{"a.html", "b.html *"}));
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + a + "]");
  H->TS.userSelect(1);
  ASSERT_TRUE(H->runCommand(mnuSave));
  EXPECT_EQ(tabs(), (Names{"a.html", "b.html"}));
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + b + "]");
  H->setDocumentText(0, "from elsewhere");
  H->idle();
  EXPECT_EQ(tabs(), (Names{"a.html *", "b.html"}));
}

TEST_F(Panes, ClosingByTheTabAsksAndSparesTheProject) {
  start();
  open(a);
  open(b);
  type("1");
  expectBoxWith("შეიცვალა", kAnswerCancel);
  H->TS.userClose(1);
  EXPECT_EQ(tabs(), (Names{"a.html", "b.html *"}));
  expectBoxWith("შეიცვალა", kAnswerNo);
  H->TS.userClose(1);
  EXPECT_EQ(tabs(), Names{"a.html"});
  EXPECT_EQ(T1.text(), "Alpha");
  H->WebProject.Item(0).IsInWEB = true;
  H->TS.userClose(0);
  EXPECT_EQ(tabs(), Names{"a.html"});
}

TEST_F(Panes, ADraggedTabTakesAllOfItsDocumentAlong) {
  start();
  open(a);
  open(b);
  open(c);
  T1.select(1, 0);
  H->TS.userSelect(0);
  type("x");
  T1.select(2, 3);
  std::vector<std::pair<int, int>> told;
  H->documentMoved.connect([&](std::int16_t from, std::int16_t to) { told.emplace_back(from, to); });
  H->TS.userMove(0, 2);
  EXPECT_EQ(tabs(), (Names{"b.html", "c.css", "a.html *"}));
  EXPECT_EQ(shownTab(), "a.html *");
  EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{0, 2}}));
  EXPECT_EQ(T1.text(), "xAlpha");
  EXPECT_EQ(T1.selLength(), 3) << "the shown document is not loaded again";
  ASSERT_TRUE(H->runCommand(mnuSave));
  EXPECT_EQ(base::readFile(a), "xAlpha");
  H->TS.userMove(1, 0);
  H->TS.userSelect(0);
  EXPECT_EQ(T1.text(), "C");
  EXPECT_EQ(T1.selStart(), 1);
  EXPECT_EQ(H->CurrentFilePath, c);
  H->TS.userSelect(1);
  EXPECT_EQ(T1.text(), "Beta");
}

TEST_F(Panes, TheFirstDocumentMovesEvenBeforeItHasARecord) {
  start(a);
  H->WebProject.AddNewIthem("other", -1, "", "");
  H->WebProject.Item(0).FileTitle = "other.html";
  H->documentsAdded();
  ASSERT_EQ(tabs(), (Names{"other.html", "a.html"}));
  ASSERT_EQ(H->CurrentItemIndex, -1);
  H->TS.userMove(1, 0);
  EXPECT_EQ(titles(), (Names{"a.html", "other.html"}));
  EXPECT_EQ(shownTab(), "a.html");
  H->TS.userSelect(1);
  EXPECT_EQ(T1.text(), "other");
}

TEST_F(Panes, NodesMoveAmongTheirLike) {
  start();
  open(a);
  open(c);
  open(b);
  ASSERT_TRUE(H->TV.draggable(nodeOf("a.html")));
  EXPECT_FALSE(H->TV.draggable(nodeOf("WEB Files")));
  EXPECT_FALSE(H->TV.canDropOn(nodeOf("a.html"), nodeOf("c.css")));
  EXPECT_FALSE(H->TV.canDropOn(nodeOf("a.html"), nodeOf("Image")));
  ASSERT_TRUE(H->TV.canDropOn(nodeOf("b.html"), nodeOf("a.html")));
  H->TV.droppedOn(nodeOf("b.html"), nodeOf("a.html"));
  EXPECT_EQ(titles(), (Names{"b.html", "a.html", "c.css"}));
  EXPECT_EQ(H->CurrentFilePath, b);
}

TEST_F(Panes, HiddenPanesAndWidthsAreKept) {
  start();
  ASSERT_TRUE(H->runCommand(mnuTree));
  EXPECT_FALSE(H->TV.visible());
  EXPECT_TRUE(H->commandChecked(mnuTagPalette));
  peer.widths = {123, 321};
  peer.at = {10, 20, 700, 500};
  H->Props.RememberPosition = true;
  H->saveProps();
  ASSERT_TRUE(H->runCommand(mnuZoomIn));
  ASSERT_TRUE(H->runCommand(mnuZoomIn));
  ASSERT_TRUE(H->queryClose());
  peer = tests::FakeMainPeer();
  restart();
  start();
  EXPECT_EQ(T1.zoomed, 2);
  ASSERT_TRUE(H->runCommand(mnuZoomNone));
  ASSERT_TRUE(H->runCommand(mnuZoomOut));
  EXPECT_EQ(T1.zoomed, -1);
  EXPECT_FALSE(H->TV.visible());
  EXPECT_TRUE(H->Ttags.visible());
  EXPECT_EQ(peer.widths.left, 123);
  EXPECT_EQ(peer.widths.right, 321);
  EXPECT_EQ(peer.at.width, 700);
  EXPECT_EQ(peer.at.height, 500);
  ASSERT_TRUE(H->runCommand(mnuTree));
  EXPECT_TRUE(H->TV.visible());
  ASSERT_TRUE(H->runCommand(mnuTagPalette));
  EXPECT_FALSE(H->Ttags.visible() || H->Ltags.visible());
}

TEST_F(Panes, LooksAreSwitchedAtOnceAndKeptInTheSettings) {
  start();
  const std::pair<int, bool ui::CodeLook::*> switches[] = {
      {mnuWordWrap, &ui::CodeLook::wordWrap},       {mnuLineNumbers, &ui::CodeLook::lineNumbers},
      {mnuCurrentLine, &ui::CodeLook::currentLine}, {mnuWhiteSpace, &ui::CodeLook::whiteSpace},
      {mnuShowLineEnds, &ui::CodeLook::lineEnds},   {mnuLiveColours, &ui::CodeLook::liveColours}};
  for (const auto& [id, look] : switches) {
    ui::CodeLook wanted = T1.look;
    wanted.*look = true;
    EXPECT_FALSE(H->commandChecked(id));
    ASSERT_TRUE(H->runCommand(id));
    EXPECT_EQ(T1.look, wanted) << id;
    EXPECT_TRUE(H->commandChecked(id));
  }
  ASSERT_TRUE(H->runCommand(mnuColours3));
  EXPECT_TRUE(T1.look.dark && H->commandChecked(mnuColours3));
  EXPECT_FALSE(H->commandChecked(mnuColours0));
  EXPECT_EQ(app::ReadProps(platform), H->Props);
  EXPECT_EQ(H->Props.Colours, app::ColourScheme::Dark);
}

TEST_F(Panes, TheStatusBarNamesTheViewAndSwitchesIt) {
  const auto view = [this] { return H->Status.panel("kView").bytes; };
  start();
  open(a);
  EXPECT_EQ(view(), "8-ბიტი");
  open(folder.make("u.html", "\xE1\x83\x90"));
  EXPECT_EQ(view(), "UTF-8");
  EXPECT_TRUE(H->commandChecked(mnuViewUtf8));
  H->Status.userClick(6);  // of its eight panels
  EXPECT_EQ(T1.view(), ui::TextView::EightBit);
  EXPECT_EQ(view(), "8-ბიტი");
  T1.setText("\xE1\x83\x91");
  EXPECT_EQ(view(), "8-ბიტი") << "the user has chosen";
  H->TS.userSelect(0);
  ASSERT_TRUE(H->runCommand(mnuViewUtf8));
  H->TS.userSelect(1);
  EXPECT_EQ(view(), "8-ბიტი");
  H->TS.userSelect(0);
  EXPECT_EQ(view(), "UTF-8");
  open(folder.make("w.txt", "\xFF\xFEz"));
  EXPECT_EQ(view(), "UTF-16, 8-ბიტი");
}

TEST_F(Panes, ARegistryThatRefusesDoesNotKeepTheUser) {
  start(a);
  platform.registryRefuses = true;
  expectBoxWith("refused", app::kAnswerOk);
  EXPECT_TRUE(H->queryClose());
  ui::FileDialog asked;
  asked.kind = "pictures";
  EXPECT_NO_THROW(ui::rememberFolder(platform, asked, "C:\\a\\b.gif"));
}

TEST_F(Panes, FileDialogsOpenWhereTheLastOfTheirKindEnded) {
  const std::string site = folder.makeFolder("site"), pictures = site + "\\img";
  folder.makeFolder("site/img");
  const auto dialog = [](const std::string& where, const std::string& kind) {
    ui::FileDialog asked;
    asked.folder = where;
    asked.kind = kind;
    return asked;
  };
  EXPECT_EQ(ui::folderToOpen(platform, dialog("", "pictures")), "");
  ui::rememberFolder(platform, dialog("", "pictures"), pictures + "\\a.gif");
  EXPECT_EQ(ui::folderToOpen(platform, dialog("", "pictures")), pictures);
  EXPECT_EQ(ui::folderToOpen(platform, dialog(site, "pictures")), pictures) << "below what was asked for";
  EXPECT_EQ(ui::folderToOpen(platform, dialog(pictures + "\\", "pictures")), pictures);
  EXPECT_EQ(ui::folderToOpen(platform, dialog("C:\\other", "pictures")), "C:\\other");
  EXPECT_EQ(ui::folderToOpen(platform, dialog("", "templates")), "");
  ui::rememberFolder(platform, dialog("", "pictures"), "C:\\gone\\a.gif");
  EXPECT_EQ(ui::folderToOpen(platform, dialog(site, "pictures")), site) << "the folder is gone";
}

}  // namespace
