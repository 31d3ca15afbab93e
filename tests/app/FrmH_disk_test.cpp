// Files that other programs change, old ends, and one document for one file.
#include <filesystem>

#include "app/frmchanged.h"
#include "tests/support/main_window.h"

namespace {

using app::kAnswerOk;
using app::kAnswerYes;

class Disk : public tests::MainWindowTest {
 protected:
  void expectChanged(const std::string& mine, const std::string& file, ui::Button app::frmchanged::*button) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& changed = dynamic_cast<app::frmchanged&>(form);
      EXPECT_EQ(changed.Tmine.text(), mine);
      EXPECT_EQ(changed.Tfile.text(), file);
      (changed.*button).click();
    });
  }
  void comeBack() {
    H->activated();
    H->idle();
  }
  std::string a = folder.make("a.html", "0123456789");
};

TEST_F(Disk, NothingIsOverwrittenUnseen) {
  start(a);
  type("X");
  base::writeFile(a, "rewritten, and longer");
  using app::frmchanged;
  expectChanged("X0123456789", "rewritten, and longer", &frmchanged::CEXIT);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "rewritten, and longer");
  EXPECT_TRUE(H->FileChanged);

  expectChanged("X0123456789", "rewritten, and longer", &frmchanged::Cboth);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "rewritten, and longer");
  EXPECT_EQ(T1.text(), "rewritten, and longer");
  EXPECT_EQ(titles().size(), 2u);
  H->showDocument(0);
  EXPECT_EQ(T1.text(), "X0123456789");

  base::writeFile(a, "again");
  expectChanged("X0123456789", "again", &frmchanged::Ckeep);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "X0123456789");

  type("Y");
  base::writeFile(a, "third");
  expectChanged("XY0123456789", "third", &frmchanged::Creload);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "third");
  EXPECT_EQ(T1.text(), "third");
  EXPECT_FALSE(H->FileChanged);
  T1.undo();
  EXPECT_EQ(T1.text(), "XY0123456789");
}

TEST_F(Disk, ComingBackNoticesWhatChangedAndWhatVanished) {
  start(a);
  comeBack();
  base::writeFile(a, "0123456789");  // another time alone
  comeBack();
  std::string lines, mine;
  for (int i = 0; i < 9; ++i) lines += "line\r\n";
  base::writeFile(a, lines + "end");
  expectChanged("0123456789", lines + "end", &app::frmchanged::Creload);
  comeBack();
  EXPECT_EQ(T1.text(), lines + "end");
  EXPECT_FALSE(H->FileChanged);
  base::writeFile(a, lines + "END");
  expectChanged("line\r\nline\r\nend", "line\r\nline\r\nEND", &app::frmchanged::CEXIT);
  comeBack();
  comeBack();  // asked once
  EXPECT_TRUE(H->FileChanged);

  base::removeFile(a);
  expectBoxWith(a, kAnswerOk);
  comeBack();
  comeBack();
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), lines + "end");
  EXPECT_FALSE(H->FileChanged);
}

TEST_F(Disk, TheOldEndIsToldAndCutOffWhereThatIsWanted) {
  start(a);
  T1.setText("xyz");
  H->runCommand(mnuSave);
  H->idle();
  EXPECT_TRUE(H->Lnotice.visible());
  EXPECT_NE(ui::display(H->Lnotice.caption()).find(" 7 "), std::string::npos);
  comeBack();  // the old end is no change by another program
  type("!");
  H->Cnotice.click();
  EXPECT_EQ(base::readFile(a), "xyz");
  EXPECT_FALSE(H->Lnotice.visible());
  EXPECT_TRUE(H->FileChanged);

  T1.setText("x");
  H->runCommand(mnuSave);
  H->idle();
  H->CnoticeClose.click();
  EXPECT_FALSE(H->Lnotice.visible());
  EXPECT_EQ(base::readFile(a), "xyz");
  H->Props.CutOldEnd = true;
  T1.setText("");
  H->runCommand(mnuSave);
  H->idle();
  EXPECT_EQ(base::readFile(a), "");
  EXPECT_FALSE(H->Lnotice.visible());
}

TEST_F(Disk, ThePreviousVersionIsKeptWhereThatIsWanted) {
  const std::string kept = a + ".bak";
  start(a);
  type("x");
  H->runCommand(mnuSave);
  EXPECT_FALSE(base::fileExists(kept));
  H->Props.KeepBackup = true;
  type("y");
  H->runCommand(mnuSave);
  H->runCommand(mnuSave);  // the same text is no version
  EXPECT_EQ(base::readFile(kept), "x0123456789");
  type("z");
  base::removeFile(kept);
  folder.makeFolder("a.html.bak");
  expectBoxWith(kept, kAnswerOk);
  H->runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "xy0123456789");
  EXPECT_TRUE(H->FileChanged);
}

TEST_F(Disk, OneFileIsOneDocumentHoweverItIsSpelled) {
  std::filesystem::create_directory_symlink(folder.path(), folder.path() + "/link");
  const std::string other = folder.path() + "/link/a.html";
  start();
  open(a);
  open(folder.make("b.html", "b"));
  open(other);
  EXPECT_EQ(titles().size(), 2u);
  EXPECT_EQ(H->CurrentFilePath, a);
  expectBoxWith("ეს ფაილი უკვე გახსნილია", app::kAnswerNo);
  open(other);
}

TEST_F(Disk, TheClosePromptNamesWhatIsUnsavedAndSavesWhatIsTicked) {
  const std::string b = folder.make("b.html", "b");
  start();
  open(a);
  type("1");
  open(b);
  type("2");
  platform.modal.push_back([](ui::Form& form) {
    auto& box = dynamic_cast<app::frmBOXa&>(form);
    ASSERT_EQ(box.LV.items().size(), 2u);
    EXPECT_EQ(box.LV.items()[0].text.bytes, "a.html");
    box.LV.userCheck(0, false);
    box.Cyes.click();
  });
  EXPECT_TRUE(H->queryClose());
  EXPECT_EQ(base::readFile(a), "0123456789");
  EXPECT_EQ(base::readFile(b), "2b");
}

}  // namespace
