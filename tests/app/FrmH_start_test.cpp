#include <filesystem>

#include "app/mdlsaerto.h"
#include "tests/support/main_window.h"

namespace {

using app::kAnswerCancel;
using app::kAnswerNo;
using app::kAnswerYes;
using ui::operator""_keyboard;

class Start : public tests::MainWindowTest {
 protected:
  void settings(const app::PropsRecord& props) { app::WriteProps(platform, props); }
  // Starts with the file and types one letter into it.
  void startChanged(const std::string& path) {
    start(path);
    type("x");
  }
};

TEST_F(Start, EmptyCommandLineShowsAnEmptyUntitledDocument) {
  start();
  EXPECT_EQ(peer.shown, 1);
  EXPECT_EQ(T1.text(), "");
  EXPECT_EQ(ui::display(H->caption()), "Zervo");
  EXPECT_FALSE(H->FileChanged);
}

TEST_F(Start, OneFileMayHaveQuotesAndSpaces) {
  const std::string path = folder.make("my page.html", "<P>");
  start(" \"" + path + "\" ");
  EXPECT_EQ(T1.text(), "<P>");
  EXPECT_EQ(H->CurrentFilePath, path);
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + path + "]");
  EXPECT_FALSE(H->FileChanged);
  EXPECT_FALSE(H->Loading);
  EXPECT_EQ(H->WebProject.Count(), 0);
}

TEST_F(Start, SeveralFilesOpenInOrder) {
  const std::string a = folder.make("a.html", "A"), b = folder.make("b b.html", "B");
  start("\"" + a + "\" \"" + b + "\"");
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b b.html"}));
  EXPECT_EQ(T1.text(), "B");
  EXPECT_FALSE(H->FileChanged);
}

TEST_F(Start, AListThatNamesNoFileAsItStandsIsSplitAsTheSystemDoes) {
  const std::string a = folder.make("a.html", "A"), b = folder.make("b b.html", "B"),
                    c = folder.make("c.html", "C");
  for (const std::string& line :
       {a + " \"" + b + "\" " + c, "\"" + a + "\" \"" + b + "\" " + c, "  " + a + "\t\"" + b + "\" " + c}) {
    restart();
    start(line);
    EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b b.html", "c.html"})) << line;
  }
  folder.make("b", "not meant");
  restart();
  start(b);  // unquoted, but there
  EXPECT_EQ(T1.text(), "B");
  restart();
  start("NOMAX ");
  EXPECT_EQ(H->CurrentFilePath, "");
  EXPECT_EQ(ui::display(H->caption()), "Zervo");
}

TEST_F(Start, ARelativePathIsRememberedWithItsFolder) {
  const std::string before = std::filesystem::current_path().string();
  std::filesystem::current_path(folder.path());
  folder.make("a.html", "A");
  std::string told;
  H->documentOpened.connect([&](const std::string& path) { told = path; });
  start("a.html");
  std::filesystem::current_path(before);
  EXPECT_EQ(told, folder.path() + "/a.html");
  EXPECT_EQ(ui::display(H->caption()), "Zervo [a.html]");
  type("x");
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(folder.file("a.html")), "xA");
}

TEST_F(Start, OneBadFileAmongSeveralIsToldAndTheOthersOpen) {
  const std::string a = folder.make("a.html", "A"), b = folder.make("b.html", "B");
  expectBoxWith("gone.html", app::kAnswerOk);
  start("\"" + a + "\" \"" + folder.file("gone.html") + "\" \"" + b + "\"");
  EXPECT_EQ(titles(), (std::vector<std::string>{"a.html", "b.html"}));
}

TEST_F(Start, MissingFileIsToldAndMayBeMadeBySaving) {
  const std::string path = folder.file("new.html");
  expectBoxWith(path, app::kAnswerOk);
  start(path);
  EXPECT_EQ(ui::display(H->caption()), "Zervo [" + path + "]");
  type("made");
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(path), "made");
}

TEST_F(Start, UnreadableFileIsNotSavedOverLater) {
  const std::string path = folder.makeFolder("folder.html");
  expectBoxWith(path, app::kAnswerOk);
  start(path);
  EXPECT_EQ(H->CurrentFilePath, "");
}

TEST_F(Start, ReopensTheLastFileButNotBelowAnotherOne) {
  app::PropsRecord props;
  props.ReopenLastFile = true;
  settings(props);
  const std::string last = folder.make("last.html", "L"), other = folder.make("o.html", "O");
  platform.registry["LastFile\\FN"] = last;
  start("NOMAX");
  EXPECT_EQ(T1.text(), "L");
  restart();
  start(other);
  EXPECT_EQ(T1.text(), "O");
  EXPECT_EQ(H->WebProject.Count(), 0);
  restart();  // several files: the last one is opened too
  start("\"" + other + "\" \"" + folder.make("p.html", "P") + "\"");
  EXPECT_EQ(titles(), (std::vector<std::string>{"last.html", "o.html", "p.html"}));
  base::removeFile(last);
  restart();
  start();
  EXPECT_EQ(T1.text(), "");
}

TEST_F(Start, WindowPlaceComesBackAndMaximisedWins) {
  app::PropsRecord props;
  props.RememberPosition = true;
  settings(props);
  start();
  peer.at = {-120, 45};
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(platform.registry["winpoze\\X"], "-120");
  platform.registry["winpoze\\Y"] = "45,5";  // written under another locale
  peer.at = {0, 0};
  restart();
  start();
  EXPECT_EQ(peer.at.left, -120);
  EXPECT_EQ(peer.at.top, 46);
  props.StartMaximized = true;
  settings(props);
  peer.at = {0, 0};
  restart();
  start("NOMAX");  // the position is not read, and the state is normal in the end
  EXPECT_EQ(peer.at.left, 0);
  EXPECT_EQ(peer.state, ui::WindowState::Normal);
}

TEST_F(Start, StartUpActionOnlyWithoutCommandLine) {
  app::PropsRecord props;
  props.ShowAtStart = 1;
  settings(props);
  int ran = 0;
  for (const char* line : {"", "NOMAX"}) {
    restart();
    H->startUp.connect([&] { ++ran; });
    start(line);
  }
  EXPECT_EQ(ran, 1);
}

TEST_F(Start, NewWindowStartsASecondCopy) {
  start();
  H->runCommand(mnunewwind);
  ASSERT_EQ(platform.started.size(), 1U);
  EXPECT_EQ(platform.started[0], "\"" + platform.folder + "\\Zervo.exe\" NOMAX");
}

TEST_F(Start, CloseAsksForTheSingleNamedDocument) {
  const std::string path = folder.make("a.html", "A");
  startChanged(path);
  const auto question = "faili Seicvala.\r\ngindaT cvlilebebis damaxsovreba?"_keyboard;
  expectBox("", question, kAnswerCancel);
  EXPECT_FALSE(H->queryClose());
  expectBox("", question, kAnswerNo);
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(path), "A");
  expectBox("", question, kAnswerYes);
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(path), "xA");
}

TEST_F(Start, CloseAsksForTheUntitledDocumentUnlessItIsEmpty) {
  startChanged("");
  const auto question = "gindaT cvlilebebis damaxsovreba?"_keyboard;
  expectBox("", question, kAnswerYes);  // and the save dialog is cancelled: the text must stay
  EXPECT_FALSE(H->queryClose());
  expectBox("", question, kAnswerYes);
  platform.saveAnswers.push_back(folder.file("n.html"));
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(folder.file("n.html")), "x");
  restart();
  startChanged("");
  T1.setText("");
  EXPECT_TRUE(H->queryClose());
}

TEST_F(Start, CloseStaysWhenSavingFails) {
  const std::string path = folder.file("gone\\a.html");
  expectBoxWith("a.html", app::kAnswerOk);
  startChanged(path);
  expectBoxWith(ui::display("faili Seicvala."_keyboard), kAnswerYes);
  expectBoxWith("Error!!", app::kAnswerOk);
  EXPECT_FALSE(H->queryClose());
  EXPECT_EQ(T1.text(), "x");
}

TEST_F(Start, CloseAsksForSeveralDocumentsWithoutAProject) {
  const std::string a = folder.make("a.html", "A"), b = folder.make("b.html", "B");
  start("\"" + a + "\" \"" + b + "\"");
  EXPECT_TRUE(H->queryClose());
  clickNode("a.html");
  type("x");
  clickNode("b.html");  // the changed one is parked
  const auto question = "proeqtis failebi Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?"_keyboard;
  expectBox("Sag niemals nie", question, kAnswerCancel);
  EXPECT_FALSE(H->queryClose());
  expectBox("Sag niemals nie", question, kAnswerYes);
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(a), "xA");
}

TEST_F(Start, CloseAsksForTheProjectFirstAndItsDocumentsOtherwise) {
  const std::string page = folder.make("a.html", "A");
  const std::string web = folder.make("p.web", "a.html\r\nmissing.html\r\nSTOPF=a.html\r\n");
  expectBoxWith("File not found.", app::kAnswerOk);
  start(web);
  type("x");
  const auto project = "proeqti Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?"_keyboard;
  expectBox("Sag niemals nie", project, kAnswerNo);  // goes on without asking about the documents
  EXPECT_TRUE(H->queryClose());
  expectBox("Sag niemals nie", project, kAnswerYes);
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(page), "xA");
  EXPECT_EQ(base::readFile(web), "a.html\r\nSTOPF=a.html\r\n");
  type("y");
  expectBox("Sag niemals nie", "proeqtis failebi Seicvala.\r\n\r\nginda cvlilebebis damaxsovreba?"_keyboard,
            kAnswerNo);
  EXPECT_TRUE(H->queryClose());
}

TEST_F(Start, LastFileIsTheProjectOrElseTheShownFile) {
  app::PropsRecord props;
  props.ReopenLastFile = true;
  settings(props);
  start(folder.make("a.html", "A"));
  H->Props.ReopenLastFile = true;  // the command line had switched it off
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(platform.registry["LastFile\\FN"], folder.file("a.html"));
  restart();
  start(folder.make("p.web", "a.html"));
  H->Props.ReopenLastFile = true;
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(platform.registry["LastFile\\FN"], folder.file("p.web"));
  restart();
  start();
  EXPECT_EQ(T1.text(), "A");
  EXPECT_TRUE(H->WebProject.WEBopened);
}

}  // namespace
