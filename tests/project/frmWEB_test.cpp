#include "project/frmWEB.h"

#include "project/html_header.h"
#include "tests/support/main_window.h"

namespace {

using app::kAnswerNo;
using app::kAnswerOk;
using app::kAnswerYes;
using ui::operator""_keyboard;

class WebDialog : public tests::MainWindowTest {
 protected:
  WebDialog() { start(); }
  std::vector<std::string> listed() const {
    std::vector<std::string> names;
    for (const auto& item : form.LV.items()) names.push_back(item.text.bytes);
    return names;
  }
  void fill(const std::string& name, const std::string& projectFolder) {
    form.Tpname.userSet(name);
    form.Twebpath.userSet(projectFolder);
  }
  void add(const std::vector<std::string>& paths) {
    platform.openAnswers.push_back(paths);
    form.COK[1]->click();
  }

  project::frmWEB form{*H};
};

TEST_F(WebDialog, BeginsWithAnIndexAndNumbersNewPages) {
  EXPECT_EQ(listed(), std::vector<std::string>{"Index.HTML"});
  form.COK[0]->click();
  form.COK[0]->click();
  EXPECT_EQ(listed(), (std::vector<std::string>{"Index.HTML", "NewPage1.HTML", "NewPage2.HTML"}));
  EXPECT_EQ(form.LV.selected(), 2);
  form.COK[2]->click();
  EXPECT_EQ(form.LV.selected(), 1);
  form.LV.setSelected(0);
  form.COK[2]->click();
  EXPECT_EQ(listed(), std::vector<std::string>{"NewPage1.HTML"});
  EXPECT_EQ(form.LV.selected(), 0);
  form.COK[0]
      ->click();  // the number is the count before adding, even if that name is taken: the user is told
  EXPECT_EQ(listed(), (std::vector<std::string>{"NewPage1.HTML", "NewPage1.HTML"}));
  EXPECT_NE(ui::display(form.LBinfo.caption()).find("NewPage1.HTML"), std::string::npos);
}

TEST_F(WebDialog, ManyFilesAreListedAtOnce) {
  struct Counter : ui::Peer {
    int items = 0;
    void refresh(ui::Aspect what) override { items += what == ui::Aspect::Items ? 1 : 0; }
  } counter;
  form.LV.attach(&counter);
  std::vector<std::string> paths;
  for (int i = 0; i < 100; ++i) paths.push_back("x\\" + std::to_string(i) + ".html");
  add(paths);
  form.LV.attach(nullptr);
  EXPECT_EQ(listed().size(), 101U);
  EXPECT_EQ(counter.items, 1);
  EXPECT_EQ(form.LV.selected(), 100);
}

TEST_F(WebDialog, AForbiddenLetterGoesAndTheCaretStays) {
  form.Tpname.setText("abc");
  form.Tpname.selectionInWindow = [] { return ui::TextBox::Selection{2, 0}; };
  expectBoxWith(ui::display("am niSnebis micema"_keyboard), kAnswerOk);
  form.Tpname.userSet("a?bc");
  EXPECT_EQ(form.Tpname.text(), "abc");
  EXPECT_EQ(form.Tpname.selected().start, 1);
}

TEST_F(WebDialog, IconsGoByTheUpperCasedExtension) {
  const std::vector<std::pair<const char*, int>> rows = {
      {"a.htm", 1}, {"a.STM", 1}, {"a.shtml", 5}, {"a.vbs", 2},   {"a.css", 3}, {"a.asp", 4}, {"a.dib", 6},
      {"a.inf", 7}, {"a.xml", 8}, {"a.vma", 9},   {"a.php3", 10}, {"a", 5},     {"css", 3}};
  for (const auto& [name, icon] : rows) EXPECT_EQ(project::fileIcon(name), icon) << name;
}

TEST_F(WebDialog, RenamingKeepsTheExtensionAndRefusesBadNames) {
  form.COK[0]->click();
  form.LV.userEdit(1, "about");
  EXPECT_EQ(listed()[1], "about.HTML");
  for (const char* bad : {"a/b", "..\\x", ".."}) {
    expectBoxWith(ui::display("am niSnebis micema"_keyboard), kAnswerOk);
    form.LV.userEdit(1, bad);
  }
  expectBoxWith("INDEX.html", kAnswerOk);  // there already
  form.LV.userEdit(1, "INDEX.html");
  EXPECT_EQ(listed()[1], "about.HTML");
}

TEST_F(WebDialog, CreateNeedsNameAndFolderAndNamesLoseForbiddenLetters) {
  EXPECT_FALSE(form.COK[4]->enabled());
  form.Twebpath.userSet(folder.path());
  EXPECT_FALSE(form.COK[4]->enabled());
  expectBoxWith(ui::display("am niSnebis micema"_keyboard), kAnswerOk);
  form.Tpname.userSet("a?b*");
  EXPECT_EQ(form.Tpname.text(), "ab");
  EXPECT_TRUE(form.COK[4]->enabled());
}

TEST_F(WebDialog, DescribesTheButtonUnderThePointer) {
  form.COK[3]->pointed(true);
  EXPECT_EQ(ui::display(form.LBinfo.caption()), "პროექტის მისამართი");
  form.COK[3]->pointed(false);
  EXPECT_TRUE(form.LBinfo.caption().empty());
}

TEST_F(WebDialog, MakesTheProjectAndOpensIt) {
  const std::string f = folder.makeFolder("საიტი");
  const std::string css = folder.make("a.css", "B{}");
  add({css});
  fill("პროექტი", f);
  form.COK[4]->click();
  EXPECT_TRUE(form.closed());
  EXPECT_EQ(base::readFile(f + "\\პროექტი.WEB"), "Index.HTML\r\na.css\r\nSTOPF=Index.HTML\r\n");
  EXPECT_EQ(base::readFile(f + "\\a.css"), "B{}");
  const std::string page = base::readFile(f + "\\Index.HTML");
  EXPECT_EQ(page,
            "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.0 Transitional//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
            "<TITLE>Index.HTML</TITLE>\r\n</HEAD>\r\n\r\n<BODY>\r\n\r\n</BODY>\r\n</HTML>\r\n");
  EXPECT_EQ(titles(), (std::vector<std::string>{"Index.HTML", "a.css"}));
  EXPECT_EQ(T1.text(), page);
  H->runCommand(mnuSaveWEB);  // the main window's own writing, sorted, reads back the same
  EXPECT_EQ(base::readFile(f + "\\პროექტი.WEB"), "a.css\r\nIndex.HTML\r\nSTOPF=Index.HTML\r\n");
}

TEST_F(WebDialog, ARenamedFileHasItsNewNameEverywhereAndTitlesAreBytesLikeNames) {
  const std::string f = folder.makeFolder("f");
  add({folder.make("a.css", "B{}")});
  form.LV.userEdit(0, "caf\u00E9");
  form.LV.userEdit(1, "b");
  fill("p", f);
  form.COK[4]->click();
  EXPECT_EQ(base::readFile(f + "\\p.WEB"), "caf\xE9.HTML\r\nb.css\r\nSTOPF=caf\xE9.HTML\r\n");
  EXPECT_EQ(base::readFile(f + "\\b.css"), "B{}");
  EXPECT_NE(base::readFile(f + "\\caf\u00E9.HTML").find("<TITLE>caf\xE9.HTML</TITLE>"), std::string::npos);
}

TEST_F(WebDialog, TheFirstErrorEndsTheMakingAndIsShownWithItsNumber) {
  const std::string f = folder.makeFolder("f");
  folder.makeFolder("f/bad.html");
  add({folder.make("bad.html", "x"), folder.make("c.html", "C")});
  fill("p", f);
  expectBoxWith("Error!!\r\nError:N: 75\r\n", kAnswerOk);
  form.COK[4]->click();
  EXPECT_TRUE(base::fileExists(f + "\\Index.HTML"));
  EXPECT_FALSE(base::fileExists(f + "\\c.html"));
  EXPECT_FALSE(H->WebProject.WEBopened);
}

TEST_F(WebDialog, NothingOfTheUsersIsReplacedUnasked) {
  const std::string f = folder.makeFolder("f");
  base::writeFile(f + "\\Index.HTML", "mine");
  fill("p", f);
  expectBoxWith("Index.HTML", app::kAnswerCancel);
  form.COK[4]->click();
  EXPECT_FALSE(base::fileExists(f + "\\p.WEB"));
  expectBoxWith("Index.HTML", kAnswerNo);
  form.COK[4]->click();
  EXPECT_EQ(base::readFile(f + "\\Index.HTML"), "mine");
  EXPECT_EQ(T1.text(), "mine");
}

TEST_F(WebDialog, AFileAlreadyInTheFolderIsNotCopiedOntoItself) {
  const std::string f = folder.makeFolder("f");
  base::writeFile(f + "\\a.html", "mine");
  add({f + "\\a.html"});
  fill("p", f);
  form.COK[4]->click();
  EXPECT_EQ(base::readFile(f + "\\a.html"), "mine");
}

TEST_F(WebDialog, VanishedSourcesAreNamedAndLeftOut) {
  const std::string f = folder.makeFolder("f");
  const std::string gone = folder.make("gone.css", "x");
  add({gone});
  base::removeFile(gone);
  fill("p", f);
  expectBoxWith("gone.css", kAnswerOk);
  form.COK[4]->click();
  EXPECT_EQ(base::readFile(f + "\\p.WEB"), "Index.HTML\r\nSTOPF=Index.HTML\r\n");
}

TEST_F(WebDialog, MissingFolderWritesNothingAndTheMainWindowSaysIt) {
  fill("p", folder.file("no such"));
  expectBoxWith("p.WEB", kAnswerOk);
  form.COK[4]->click();
  EXPECT_TRUE(form.closed());
  EXPECT_FALSE(base::folderExists(folder.file("no such")));
}

TEST_F(WebDialog, SameNamesFromTwoFoldersAreAskedFor) {
  folder.makeFolder("x");
  const std::string one = folder.make("a.css", "1"), two = folder.make("x\\a.css", "2");
  add({one});
  expectBoxWith("a.css", kAnswerNo);
  add({two});
  EXPECT_EQ(listed(), (std::vector<std::string>{"Index.HTML", "a.css"}));
  expectBoxWith("a.css", kAnswerYes);
  expectInput("b.css");
  add({two});
  const std::string f = folder.makeFolder("f");
  fill("p", f);
  form.COK[4]->click();
  EXPECT_EQ(base::readFile(f + "\\a.css") + base::readFile(f + "\\b.css"), "12");
}

TEST_F(WebDialog, HeaderSwitchesAddTextAndBodyAttributes) {
  app::PropsRecord props;
  props.HeaderText = "<META>";
  props.BodyAttributes = "A=1\r\nB=2";
  EXPECT_EQ(project::HTMLheaderi("t", props).find("META"), std::string::npos);
  props.HeaderTextOn = props.BodyAttributesOn = true;
  EXPECT_NE(project::HTMLheaderi("t", props).find("</HEAD>\r\n<META>\r\n<BODY A=1 B=2 >\r\n\r\n"),
            std::string::npos);
}

}  // namespace
