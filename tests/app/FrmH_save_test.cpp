#include <algorithm>
#include <filesystem>

#include "tests/support/main_window.h"

namespace {

using app::kAnswerCancel;
using app::kAnswerNo;
using app::kAnswerOk;
using app::kAnswerYes;
using ui::operator""_keyboard;

const auto kMakeProject = "gindaT gaxsnili failebisgan proeqtis Seqmna?"_keyboard;
const auto kInclude =
    "siaSi axali failebia Setanili romlebic\r\naraa proeqtTan dakavSirebuli.gindaT maTi proeqtSi Setana?"_keyboard;

class Saving : public tests::MainWindowTest {
 protected:
  std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta");
  std::string web = folder.make("p.web", "a.html\r\nb.html\r\nSTOPF=b.html\r\n");
};

TEST_F(Saving, AShorterTextLeavesTheOldTail) {
  start(a);
  T1.setText("xy");
  EXPECT_TRUE(H->runCommand(mnuSave));
  EXPECT_EQ(base::readFile(a), "xypha");
  EXPECT_FALSE(H->FileChanged);
}

TEST_F(Saving, UntitledAsksForANameAndTakesIt) {
  start();
  H->runCommand(mnunewF);
  H->runCommand(mnuSave);  // cancelled
  EXPECT_EQ(titles(), std::vector<std::string>{"nosaved0.HTML"});
  platform.saveAnswers.push_back(folder.file("n.php"));
  H->runCommand(mnuSave);
  EXPECT_EQ(platform.fileDialogs.back().name, "nosaved0.HTML");
  EXPECT_EQ(titles(), std::vector<std::string>{"n.php"});
  EXPECT_TRUE(H->WebProject.Item(0).saved);
  EXPECT_EQ(base::readFile(folder.file("n.php")), "<HTML>");
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + folder.file("n.php") + "]");
}

TEST_F(Saving, UnderAnotherKindOfNameTheColoursAreThatKinds) {
  start(a);
  EXPECT_EQ(T1.document()->language, ui::Language::Html);
  platform.saveAnswers.push_back(folder.file("style.css"));
  H->runCommand(mnuSaveas);
  EXPECT_EQ(T1.document()->language, ui::Language::Css);
  EXPECT_EQ(T1.colouredAs, ui::Language::Css);
}

TEST_F(Saving, AFailedSaveLeavesFileAndMark) {
  start(a);
  type("1");
  std::filesystem::permissions(folder.path() + "/a.html", std::filesystem::perms::owner_read);
  expectBoxWith("Error:N: 70", kAnswerOk);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "Alpha");
  EXPECT_TRUE(H->FileChanged);
  EXPECT_EQ(T1.text(), "1Alpha");
}

TEST_F(Saving, SaveAsNeverTakesAnotherOpenDocumentsFile) {
  start("\"" + a + "\" \"" + b + "\"");
  platform.saveAnswers.push_back(a);
  expectBoxWith("Error!!", kAnswerOk);
  H->runCommand(mnuSaveas);
  EXPECT_EQ(base::readFile(a), "Alpha");
  EXPECT_EQ(H->CurrentFilePath, b);
}

TEST_F(Saving, PlainSaveNeverAsksProjectQuestions) {
  start("\"" + a + "\" \"" + b + "\"");
  type("1");
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(b), "1Beta");
}

TEST_F(Saving, SaveAsOfOneAmongSeveralOffersAProject) {
  start("\"" + a + "\" \"" + b + "\"");
  type("1");
  const std::string project = folder.makeFolder("პროექტი");
  platform.saveAnswers.push_back(folder.file("c.html"));
  expectBox("New WEB", kMakeProject, kAnswerYes);
  expectInput("a/b");  // cannot be a file name
  expectBoxWith(ui::display("am niSnebis micema"_keyboard), kAnswerOk);
  expectInput("site");
  platform.folderAnswers.push_back(project);
  expectChoice({"a.html", "c.html"});
  H->runCommand(mnuSaveas);
  EXPECT_TRUE(H->WebProject.WEBopened);
  EXPECT_FALSE(H->WebProject.WEBChanged);
  EXPECT_EQ(base::readFile(project + "\\site.WEB"), "a.html\r\nc.html\r\nSTOPF=c.html\r\n");
  EXPECT_EQ(base::readFile(project + "\\a.html"), "Alpha");
  EXPECT_EQ(base::readFile(project + "\\c.html"), "1Beta");
  EXPECT_EQ(H->CurrentFilePath, project + "\\c.html");
  EXPECT_EQ(base::readFile(b), "Beta");
}

TEST_F(Saving, MakingAProjectAsksBeforeItReplacesAnything) {
  start("\"" + a + "\" \"" + b + "\"");
  const std::string project = folder.makeFolder("f");
  base::writeFile(project + "\\a.html", "not yours");
  expectBox("New WEB", kMakeProject, kAnswerYes);
  expectInput("site");
  platform.folderAnswers.push_back(project);
  expectChoice({"a.html", "b.html"});
  expectBoxWith("a.html", kAnswerNo);
  H->runCommand(mnuSaveWEB);
  EXPECT_EQ(base::readFile(project + "\\a.html"), "not yours");
  EXPECT_EQ(base::readFile(project + "\\b.html"), "Beta");
  EXPECT_FALSE(H->WebProject.Item(0).IsInWEB);
  EXPECT_TRUE(H->WebProject.Item(1).IsInWEB);
}

TEST_F(Saving, ProjectSaveWritesDocumentsAndMakesTheShownOneTheStartPage) {
  start(web);
  clickNode("a.html");
  type("1");
  clickNode("b.html");
  type("2");
  clickNode("a.html");
  H->runCommand(mnuSaveWEB);
  EXPECT_EQ(base::readFile(a), "1Alpha");
  EXPECT_EQ(base::readFile(b), "2Beta");
  EXPECT_EQ(base::readFile(web), "a.html\r\nb.html\r\nSTOPF=a.html\r\n");
}

TEST_F(Saving, FilesOutsideTheProjectAreOfferedOnce) {
  start(web);
  const std::string elsewhere = folder.makeFolder("x");
  base::writeFile(elsewhere + "\\c.css", "C");
  base::writeFile(elsewhere + "\\d.css", "D");
  open(elsewhere + "\\c.css");
  open(elsewhere + "\\d.css");
  expectBox("New Files", kInclude, kAnswerCancel);
  H->runCommand(mnuSaveWEB);
  expectBox("New Files", kInclude, kAnswerYes);
  expectChoice({"c.css"});
  H->runCommand(mnuSaveWEB);
  EXPECT_EQ(base::readFile(folder.file("c.css")), "C");
  EXPECT_EQ(H->WebProject.Item(2).filepath, folder.file("c.css"));
  EXPECT_FALSE(base::fileExists(folder.file("d.css")));
  H->runCommand(mnuSaveWEB);  // d was declined
  restart();
  expectBoxWith("d.css", kAnswerOk);  // every document of the list is named in the project file
  start(web);
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html", "c.css"}));
  EXPECT_TRUE(H->WebProject.WEBChanged);
}

TEST_F(Saving, OpeningAnotherProjectAsksForUnsavedDocuments) {
  start(a);
  type("1");
  const auto question = "ginaT gaxsnil failebSi cvlilebis damaxsovreba?"_keyboard;
  expectBox("NEW WEB", question, kAnswerCancel);
  open(web);
  EXPECT_EQ(T1.text(), "1Alpha");
  EXPECT_FALSE(H->WebProject.WEBopened);
  expectBox("NEW WEB", question, kAnswerYes);
  open(web);
  EXPECT_EQ(T1.text(), "Beta");
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html"}));
  EXPECT_EQ(H->WebProject.Item(0).Value, "1Alpha");
  EXPECT_EQ(H->WebProject.WEBpath, folder.path() + "\\");
  EXPECT_EQ(H->WebProject.WEBtitle, "p.web");
  EXPECT_TRUE(H->WebProject.Item(0).IsInWEB);
  EXPECT_EQ(H->WebProject.Item(0).PinListi, -1);
}

TEST_F(Saving, AProjectThatCannotBeReadLeavesTheOpenOne) {
  start(web);
  expectBoxWith("Error!!", kAnswerOk);
  open(folder.file("gone.web"));
  EXPECT_EQ(T1.text(), "Beta");
  EXPECT_TRUE(H->WebProject.WEBopened);
  EXPECT_EQ(H->WebProject.Count(), 2);
}

TEST_F(Saving, AllMissingFilesOfAProjectAreNamedInAList) {
  std::string names, missing;
  for (int i = 0; i < 71; ++i) {
    names += "gone" + std::to_string(i) + ".html\r\n";
    missing += folder.file("gone" + std::to_string(i) + ".html") + "\r\n";
  }
  platform.modal.push_back([&](ui::Form& form) {
    auto& box = dynamic_cast<app::frmBOXa&>(form);
    EXPECT_TRUE(box.Tlist.visible());
    EXPECT_EQ(box.Tlist.text(), "File not found.\r\n\r\n" + missing);
    EXPECT_TRUE(box.keyPressed(ui::ctrl('C')));
    EXPECT_EQ(platform.clip.letters, box.Tlist.text());
    box.COK.click();
  });
  start(folder.make("g.web", names + "a.html\r\n"));
  EXPECT_EQ(titles(), std::vector<std::string>{"a.html"});
}

TEST_F(Saving, ADocumentInASubfolderStaysInItsProject) {
  folder.makeFolder("sub");
  const std::string c = folder.make("sub\\c.html", "C");
  const std::string project = folder.make("s.web", "a.html\r\nsub\\c.html\r\nSTOPF=sub\\c.html\r\n");
  start(project);
  type("1");
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(c), "1C");
  H->runCommand(mnuSaveWEB);
  EXPECT_EQ(base::readFile(project), "a.html\r\nsub\\c.html\r\nSTOPF=sub\\c.html\r\n");
  expectInput("d.html");
  H->runCommand(mnuwebRename);
  EXPECT_EQ(titles()[1], "sub\\d.html");
  EXPECT_EQ(base::readFile(folder.file("sub\\d.html")), "1C");
  platform.saveAnswers.push_back(folder.file("sub\\e.html"));
  H->runCommand(mnuSaveas);
  EXPECT_EQ(platform.fileDialogs.back().name, "d.html");
  EXPECT_EQ(titles()[1], "sub\\e.html");
  EXPECT_TRUE(H->WebProject.Item(1).IsInWEB);
}

TEST_F(Saving, ANameThatStandsTwiceHasTwoDocumentsAndNeitherLosesText) {
  start(folder.make("t.web", "a.html\r\na.html\r\nSTOPF=a.html\r\n"));
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "a.html"}));
  EXPECT_NE(ui::display(H->Status.panel("kMain")).find("a.html"), std::string::npos);
  const std::int16_t first = H->CurrentItemIndex, second = first == 0 ? 1 : 0;
  type("1");
  H->runCommand(mnuSave);
  H->showDocument(second);
  EXPECT_EQ(T1.text(), "1Alpha");  // follows its file
  type("2");
  H->showDocument(first);
  type("3");
  expectBoxWith("a.html", kAnswerNo);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "1Alpha");
  expectBoxWith("a.html", kAnswerYes);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "13Alpha");
  H->showDocument(second);
  EXPECT_EQ(T1.text(), "21Alpha");
  EXPECT_TRUE(H->FileChanged);
}

TEST_F(Saving, FilesOutsideTheProjectsFolderAreAskedAbout) {
  const std::string site = folder.makeFolder("a folder whose name is-longer-than-any-line-of-a-message-box");
  const std::string project = site + "\\p.web";
  base::writeFile(project, "..\\a.html\r\nown.html\r\n");
  base::writeFile(site + "\\own.html", "own");
  platform.modal.push_back([&](ui::Form& form) {
    auto& box = dynamic_cast<app::frmBOXa&>(form);
    EXPECT_NE(box.Tlist.text().find("..\\a.html"), std::string::npos);  // a path breaks nowhere else
    EXPECT_EQ(ui::display(box.LBtext.caption()), "გაიხსნას ისინიც?");
    press(box, kAnswerCancel);
  });
  start(project);
  EXPECT_FALSE(H->WebProject.WEBopened);
  expectBoxWith("..\\a.html", kAnswerNo);
  open(project);
  EXPECT_EQ(titles(), std::vector<std::string>{"own.html"});
  EXPECT_TRUE(H->WebProject.WEBChanged);
  expectBoxWith("..\\a.html", kAnswerYes);
  open(project);
  EXPECT_EQ(titles(), (std::vector<std::string>{"..\\a.html", "own.html"}));
}

TEST_F(Saving, ClosingTheProjectLeavesAnEmptyWindow) {
  start(web);
  type("1");
  expectBoxWith(ui::display("proeqtis failebi Seicvala."_keyboard), kAnswerYes);
  H->runCommand(mnuCloseWEB);
  EXPECT_EQ(base::readFile(b), "1Beta");
  EXPECT_EQ(H->WebProject.Count(), 0);
  EXPECT_EQ(T1.text(), "");
  EXPECT_FALSE(H->WebMode());
}

}  // namespace
