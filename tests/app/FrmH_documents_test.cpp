#include "app/document_tree.h"
#include "tests/support/main_window.h"

namespace {

using app::kAnswerNo;
using app::kAnswerYes;
using ui::operator""_keyboard;

class Documents : public tests::MainWindowTest {
 protected:
  std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta");
};

TEST_F(Documents, ShownDocumentGetsExactlyOneRecord) {
  start(a);
  type("1");
  open(b);
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html"}));
  EXPECT_EQ(H->WebProject.Item(0).Value, "1Alpha");
  EXPECT_TRUE(H->WebProject.Item(0).Changed);
  EXPECT_TRUE(H->WebProject.Item(0).saved);
  EXPECT_EQ(ui::display(H->TV.nodes()[static_cast<std::size_t>(H->TV.selected())].text), "b.html");
  open(folder.make("c.css", "C"));  // parks b in the record it has
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html", "c.css"}));
  EXPECT_EQ(H->WebProject.Item(1).Value, "Beta");
  open(a);  // parked: comes back with its text, not from disk
  EXPECT_EQ(H->WebProject.Count(), 3);
  EXPECT_EQ(T1.text(), "1Alpha");
  EXPECT_TRUE(H->FileChanged);
}

TEST_F(Documents, SwitchingKeepsTextCaretSelectionAndMark) {
  start("\"" + a + "\" \"" + b + "\"");
  type("zz");
  T1.select(1, 3);
  clickNode("a.html");
  EXPECT_EQ(T1.text(), "Alpha");
  EXPECT_FALSE(H->FileChanged);
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + a + "]");
  clickNode("b.html");
  EXPECT_EQ(T1.text(), "zzBeta");
  EXPECT_EQ(T1.selStart(), 1);
  EXPECT_EQ(T1.selLength(), 3);
  EXPECT_TRUE(H->FileChanged);
  clickNode("WEB Files");
  clickNode("b.html");
  EXPECT_EQ(T1.selStart(), 1);  // roots and the shown document's own node do nothing
}

TEST_F(Documents, CommandLineDocumentIsParkedByAClickToo) {
  start(a);
  open(folder.make("p.gif", "GIF89a"));
  ASSERT_EQ(titles(), std::vector<std::string>{"p.gif"});
  type("1");
  clickNode("p.gif");
  EXPECT_EQ(titles(), (std::vector<std::string>{"p.gif", "a.html"}));
  EXPECT_EQ(T1.text(), "1Alpha");
}

TEST_F(Documents, OpeningTheShownFileAsksToReload) {
  start(a);
  type("1");
  const auto question = "es faili ukve gaxsnilia.\r\ngindaT misi axlidan gaxsna?"_keyboard;
  expectBox("Open", question, kAnswerNo);
  open(a);
  EXPECT_EQ(T1.text(), "1Alpha");
  EXPECT_TRUE(H->FileChanged);
  expectBox("Open", question, kAnswerYes);
  open(folder.path() + "/a.html");  // another spelling of the same path
  EXPECT_EQ(T1.text(), "Alpha");
  EXPECT_FALSE(H->FileChanged);
}

TEST_F(Documents, OpeningAProjectFileOffersAnotherWindow) {
  start(folder.make("p.web", "a.html\r\nb.html\r\nSTOPF=b.html\r\n"));
  const auto question = "es faili ukve aris proeqtSi.\r\ngindaT misi axal fanjaraSi gaxsna?"_keyboard;
  expectBox("File Open", question, kAnswerYes);
  open(a);
  EXPECT_EQ(platform.started, std::vector<std::string>{platform.folder + "\\Zervo.exe " + a});
  EXPECT_EQ(T1.text(), "Beta");
  expectBox("File Open", question, kAnswerNo);
  open(a);
  EXPECT_EQ(T1.text(), "Alpha");  // brought into view instead
}

TEST_F(Documents, PictureIsListedButNeverShownAndLeavesLoadingSet) {
  start("\"" + a + "\" \"" + b + "\"");
  open(folder.make("p.PNG", "\x89PNG"));
  EXPECT_EQ(H->WebProject.Item(2).Value, "<XXX>");
  open(folder.file("p.PNG"));
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html", "p.PNG", "p.PNG"}));
  EXPECT_TRUE(H->WebProject.WEBChanged);
  EXPECT_EQ(T1.text(), "Beta");
  clickNode("p.PNG");
  EXPECT_EQ(T1.text(), "Beta");
  EXPECT_EQ(H->CurrentItemIndex, 1);
  EXPECT_TRUE(H->Loading);
  type("1");
  EXPECT_FALSE(H->FileChanged);
  clickNode("a.html");
  EXPECT_FALSE(H->Loading);
}

TEST_F(Documents, MediaAndPicturesThatCarryBytesAreNotClickable) {
  folder.make("s.mp3", "ID3");
  folder.make("p.gif", "GIF89a");
  start(folder.make("p.web", "p.gif\r\ns.mp3\r\na.html\r\n"));
  EXPECT_EQ(T1.text(), "Alpha");  // the first document with text is the start page
  clickNode("s.mp3");
  clickNode("p.gif");
  EXPECT_EQ(H->CurrentItemIndex, 2);
  EXPECT_FALSE(H->Loading);
  clickNode("a.html");
}

TEST_F(Documents, NewDocumentsAreNumberedByTheirPlace) {
  start();
  H->runCommand(mnunewF);  // the empty code view is not kept
  EXPECT_EQ(T1.text(), "<HTML>");
  EXPECT_FALSE(H->FileChanged);
  type("1");
  H->runCommand(mnunewF);
  H->runCommand(mnunewT);
  EXPECT_EQ(titles(), (std::vector<std::string>{"nosaved0.HTML", "nosaved1.HTML", "nosaved2.TXT"}));
  EXPECT_EQ(H->WebProject.Item(0).Value, "<HTML>1");
  EXPECT_FALSE(H->WebProject.Item(0).saved);
  clickNode("nosaved1.HTML");
  H->runCommand(mnuClose);  // the later one moves up and is renumbered
  EXPECT_EQ(titles(), (std::vector<std::string>{"nosaved0.HTML", "nosaved1.TXT"}));
  EXPECT_EQ(T1.text(), "");
  EXPECT_EQ(H->CurrentItemIndex, 1);

  // A name that was given stays: others refer to it.
  H->WebProject.AddNewIthem("page", -1, "", "");
  H->WebProject.Item(2).FileTitle = "Page1.HTML";
  H->documentsAdded();
  H->TS.moved(0, 2);
  EXPECT_EQ(titles(), (std::vector<std::string>{"nosaved0.TXT", "Page1.HTML", "nosaved2.HTML"}));
  EXPECT_EQ(ui::display(H->caption()), "Zervo [nosaved0.TXT]");
  H->runCommand(mnuClose);
  EXPECT_EQ(titles(), (std::vector<std::string>{"Page1.HTML", "nosaved1.HTML"}));
}

TEST_F(Documents, ClosingAChangedDocumentAsksAndShowsItsNeighbour) {
  start("\"" + a + "\" \"" + b + "\"");
  type("1");
  expectBoxWith(ui::display("faili Seicvala."_keyboard), app::kAnswerCancel);
  H->runCommand(mnuClose);
  EXPECT_EQ(T1.text(), "1Beta");
  expectBoxWith(ui::display("faili Seicvala."_keyboard), kAnswerYes);
  H->runCommand(mnuClose);
  EXPECT_EQ(base::readFile(b), "1Beta");
  EXPECT_EQ(T1.text(), "Alpha");
  H->runCommand(mnuClose);
  EXPECT_EQ(titles(), std::vector<std::string>());
  EXPECT_EQ(H->CurrentFilePath, "");
}

TEST_F(Documents, AFileThatCannotBeOpenedChangesNothing) {
  start(a);
  type("1");
  for (const std::string& path :
       {folder.file("gone.html"), folder.makeFolder("f.html"), folder.file("gone.gif"),
        folder.path() + "\\" + std::string(300, 'x') + ".html", std::string("a\"b")}) {
    expectBoxWith("Error!!", app::kAnswerOk);
    open(path);
    EXPECT_EQ(T1.text(), "1Alpha");
    EXPECT_EQ(H->CurrentFilePath, a);
    EXPECT_TRUE(H->FileChanged);
    EXPECT_FALSE(H->Loading);
  }
}

TEST_F(Documents, ATextThatTheViewCannotHoldIsRefused) {
  start(a);
  T1.limit = 10;
  expectBoxWith("Error!!", app::kAnswerOk);
  open(folder.make("big.html", std::string(11, 'x')));
  EXPECT_EQ(T1.text(), "Alpha");
  EXPECT_EQ(H->CurrentFilePath, a);
  EXPECT_EQ(titles(), std::vector<std::string>{"a.html"});
}

TEST_F(Documents, DroppedFilesAllOpenAndCyclingSkipsPictures) {
  start();
  const std::string p = folder.make("p.gif", "GIF89a");
  H->filesDropped({a, p, b});
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "p.gif", "b.html"}));
  H->runCommand(mnuNextDocument);
  EXPECT_EQ(T1.text(), "Alpha");
  H->runCommand(mnuNextDocument);
  EXPECT_EQ(T1.text(), "Beta");
  H->runCommand(mnuPreviousDocument);
  EXPECT_EQ(T1.text(), "Alpha");
}

TEST_F(Documents, CommandsAreEnabledByState) {
  start();
  const auto enabled = [this](int id) {
    H->menuOpening();
    for (const auto& top : H->menus) {
      for (const auto& item : top.items) {
        if (item.command == id) return item.enabled;
      }
    }
    ADD_FAILURE() << "no item " << id;
    return false;
  };
  for (const int id : {mnuUndo, mnuCut, mnuPaste, mnuDelete, mnuSelectAll, mnuCloseWEB, mnuNextDocument}) {
    EXPECT_FALSE(enabled(id)) << id;
    EXPECT_FALSE(H->runCommand(id)) << id;
  }
  type("abc");
  T1.select(0, 2);
  H->runCommand(mnuCut);
  EXPECT_EQ(platform.clip.bytes, "ab");
  EXPECT_EQ(T1.text(), "c");
  for (const int id : {mnuUndo, mnuPaste, mnuSelectAll}) EXPECT_TRUE(enabled(id)) << id;
  H->runCommand(mnuUndo);
  EXPECT_EQ(T1.text(), "abc");
  EXPECT_TRUE(enabled(mnuRedo));
}

}  // namespace
