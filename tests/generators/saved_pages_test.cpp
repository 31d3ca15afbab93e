// The library of saved pages: its folder, and the dialog over it.
#include <gtest/gtest.h>

#include <filesystem>

#include "generators/frmMatrix.h"
#include "generators/generators.h"
#include "tests/support/main_window.h"

namespace {

using generators::frmMatrix;
using generators::PageLibrary;
using Names = std::vector<std::string>;

TEST(SavedPages, NamesAreCompletedAndChecked) {
  const std::pair<const char*, const char*> names[] = {
      {"a", "a.html"},        {"HTML 4.01", "HTML 4.01.html"}, {"a.HTM", "a.HTM"},
      {"a.b.txt", "a.b.txt"}, {"ქართული", "ქართული.html"},     {"a.", "a."}};
  for (const auto& [typed, name] : names) EXPECT_EQ(generators::completedName(typed, ".html"), name);
  for (const char* name :
       {"", "a.", "a.html ", "nul.html", "Com1", "LPT9.a.b", "aux .x", "a\tb", ".zervo-1-1.tmp"})
    EXPECT_TRUE(generators::isReservedName(name)) << name;
  for (const char* name : {"a.html", "null.html", "COM0", "COM10", ".x", "ქართული.html"})
    EXPECT_FALSE(generators::isReservedName(name)) << name;
}

TEST(SavedPages, PreviewOfAnyBytes) {
  EXPECT_EQ(generators::pagePreview(std::string("a\nb\rc\r\n\0\xC0", 9)), "a\r\nb\r\nc\r\n \xC0");
  EXPECT_EQ(generators::pagePreview(""), "");
  const std::string many(5000, '\n');
  EXPECT_TRUE(generators::pagePreview(many).ends_with("\r\n..."));
  EXPECT_LT(generators::pagePreview(many).size(), 200u);
  EXPECT_EQ(generators::pagePreview(std::string(100000, 'x')).size(), 4003u);
  std::string letters;
  for (int i = 0; i < 5000; ++i) letters += "ა";
  EXPECT_EQ(generators::pagePreview(letters), letters.substr(0, 3999) + "...") << "no letter is cut";
}

class SavedPagesDialog : public tests::MainWindowTest {
 protected:
  SavedPagesDialog() : part(generators::attach(*H)) { start(); }
  void act(const std::function<void(frmMatrix&)>& what) {
    platform.modal.push_back([what](ui::Form& form) { what(dynamic_cast<frmMatrix&>(form)); });
    ASSERT_TRUE(H->runCommand(mnuMatrix));
    EXPECT_TRUE(platform.modal.empty()) << "a box did not come";
  }
  static Names names(const frmMatrix& form) {
    Names all;
    for (const ui::Text& item : form.List1.items()) all.push_back(item.bytes);
    return all;
  }
  static void choose(frmMatrix& form, const std::string& name) {
    const Names all = names(form);
    form.List1.userSelect(static_cast<int>(std::find(all.begin(), all.end(), name) - all.begin()));
  }
  std::string pages() const { return platform.folder + "\\Pages"; }
  std::string page(const std::string& name) const { return pages() + "\\" + name; }
  void put(const std::string& name, const std::string& bytes) {
    base::makeFolder(pages());
    base::writeFile(page(name), bytes);
  }
  std::unique_ptr<generators::Generators> part;
};

// Every byte there is, NUL, lone CR and lone LF among them.
std::string everyByte() {
  std::string bytes = "\r\n\n\r";
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

TEST_F(SavedPagesDialog, TheShownDocumentBecomesAPageAndAPageADocument) {
  act([](frmMatrix& form) {
    EXPECT_FALSE(form.Csave.enabled());  // nothing to save
    EXPECT_FALSE(form.Cnew.enabled());
  });
  EXPECT_FALSE(base::folderExists(pages()));  // nobody asked for one
  open(folder.make("old.html", everyByte()));
  act([this](frmMatrix& form) {
    // What cannot be a file's name is refused, and the name is asked for again.
    expectInput("a/b");
    platform.modal.push_back([](ui::Form& box) { press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerOk); });
    expectInput("nul");
    expectBoxWith("nul.html", app::kAnswerOk);
    expectInput("გვერდი");
    form.Csave.click();
    EXPECT_EQ(names(form), Names{"გვერდი.html"});
    EXPECT_EQ(form.Linfo.caption(), ui::Text("260 ბაიტი"));
    EXPECT_FALSE(form.closed());
  });
  EXPECT_EQ(base::readFile(page("გვერდი.html")), everyByte());
  T1.select(3, 2);
  type("!");
  const std::string changed(T1.text());
  act([](frmMatrix& form) { form.List1.doubleClicked(); });
  EXPECT_EQ(T1.text(), everyByte());
  EXPECT_EQ(T1.selStart(), 0);
  EXPECT_TRUE(H->CurrentFilePath.empty());
  EXPECT_EQ(titles(), (Names{"old.html", "nosaved1.HTML"}));
  // The other document keeps its change, and a change of the new one leaves the page alone.
  type("x");
  EXPECT_EQ(base::readFile(page("გვერდი.html")), everyByte());
  clickNode("old.html");
  EXPECT_EQ(T1.text(), changed);
  EXPECT_TRUE(H->FileChanged);
}

TEST_F(SavedPagesDialog, ReplacingRenamingAndDeletingAsk) {
  for (const char* name : {"b.txt", "A.html", "c.html"}) put(name, name);
  put(".zervo-1-1.tmp", "half");
  open(folder.make("c.html", "new"));
  act([this](frmMatrix& form) {
    EXPECT_EQ(names(form), (Names{"A.html", "b.txt", "c.html"}));
    EXPECT_FALSE(form.Csamples.enabled());
    for (const char* answer : {app::kAnswerNo, app::kAnswerYes}) {
      platform.modal.push_back([](ui::Form& box) {
        EXPECT_EQ(dynamic_cast<app::frmBOXa&>(box).Tanswer.text(), "c.html");  // the document's own name
        dynamic_cast<app::frmBOXa&>(box).COK.click();
      });
      expectBoxWith("c.html", answer);
      form.Csave.click();
      EXPECT_EQ(base::readFile(page("c.html")), answer == app::kAnswerYes ? "new" : "c.html");
    }
    choose(form, "A.html");
    expectInput("b.txt");  // taken
    expectBoxWith("b.txt", app::kAnswerOk);
    form.Crename.click();
    EXPECT_EQ(base::readFile(page("b.txt")), "b.txt");
    expectInput("z");  // keeps its extension
    EXPECT_TRUE(form.keyPressed({ui::kKeyF1 + 1, false, false, false}));
    EXPECT_EQ(names(form), (Names{"b.txt", "c.html", "z.html"}));
    EXPECT_EQ(form.Tpreview.text(), "A.html");  // still the selected one
    expectBoxWith("z.html", app::kAnswerNo);
    form.Cdelete.click();
    EXPECT_TRUE(base::fileExists(page("z.html")));
    expectBoxWith("z.html", app::kAnswerYes);
    EXPECT_TRUE(form.keyPressed({ui::kKeyDelete, false, false, false}));
    EXPECT_FALSE(base::fileExists(page("z.html")));
    EXPECT_EQ(form.Tpreview.text(), "new");  // the row before
    choose(form, "b.txt");
    form.Cnew.click();
    EXPECT_TRUE(form.closed());
  });
  EXPECT_EQ(titles().back(), "nosaved1.TXT");
}

TEST_F(SavedPagesDialog, ADocumentFromAPageKeepsItsKind) {
  const Names kept = {"a.css", "b.JS", "c.php", "d.HTM", "e", "f.txt"};
  for (const std::string& name : kept) {
    put(name, name);
    act([&](frmMatrix& form) {
      choose(form, name);
      form.Cnew.click();
    });
  }
  EXPECT_EQ(titles(), (Names{"nosaved0.CSS", "nosaved1.JS", "nosaved2.PHP", "nosaved3.HTML", "nosaved4.HTML",
                             "nosaved5.TXT"}));
  // Also when one before them goes, and in the dialog that saves them.
  clickNode("nosaved0.CSS");
  ASSERT_TRUE(H->runCommand(mnuClose));
  EXPECT_EQ(titles()[1], "nosaved1.PHP");
  clickNode("nosaved1.PHP");
  ASSERT_TRUE(H->runCommand(mnuSaveas));
  EXPECT_EQ(platform.fileDialogs.back().name, "nosaved1.PHP");
}

TEST_F(SavedPagesDialog, AnEmptyLibraryIsFilledWithPagesOfOurs) {
  act([](frmMatrix& form) {
    form.Csamples.click();
    EXPECT_EQ(names(form), (Names{"HTML 4.01.html", "ქართული UTF-8.html"}));
    EXPECT_FALSE(form.Csamples.enabled());
    choose(form, "ქართული UTF-8.html");
    form.Cnew.click();
  });
  EXPECT_TRUE(T1.text().starts_with("<!DOCTYPE HTML"));
  EXPECT_NE(T1.text().find("charset=utf-8"), std::string::npos);
  EXPECT_NE(T1.text().find("<H1>სათაური</H1>\r\n"), std::string::npos);
}

TEST_F(SavedPagesDialog, WhatFailsIsToldAndLosesNothing) {
  put("a.html", "old");
  // A write that fails leaves the old page.
  std::filesystem::permissions(folder.path() + "/program/Pages/a.html", std::filesystem::perms::owner_read);
  open(folder.make("a.html", "new"));
  const auto error = [this] {
    platform.modal.push_back([](ui::Form& box) {
      EXPECT_EQ(ui::display(box.caption()), "ERROR!!!");
      press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerOk);
    });
  };
  act([&](frmMatrix& form) {
    expectInput("a");
    expectBoxWith("a.html", app::kAnswerYes);
    error();
    form.Csave.click();
    EXPECT_EQ(base::readFile(page("a.html")), "old");
    // The page went while the dialog was open: said without a box while the user only looks.
    base::removeFile(page("a.html"));
    form.List1.userSelect(0);
    EXPECT_NE(form.Linfo.caption().bytes.find("a.html"), std::string::npos);
    error();
    form.Cnew.click();
    EXPECT_FALSE(form.closed());
    EXPECT_EQ(T1.text(), "new");
  });
  // A file stands where the folder should.
  std::filesystem::remove_all(folder.path() + "/program/Pages");
  base::writeFile(pages(), "x");
  act([&](frmMatrix& form) {
    expectInput("a");
    error();
    form.Csave.click();
    EXPECT_TRUE(form.List1.items().empty());
  });
  EXPECT_EQ(base::readFile(pages()), "x");
}

}  // namespace
