// What differs from its file outlives the program.
#include <algorithm>
#include <random>

#include "recovery/attach.h"
#include "recovery/folder.h"
#include "recovery/frmrecovery.h"
#include "recovery/journal.h"
#include "tests/support/main_window.h"

namespace {

using recovery::Journal;

// Random edits while the text is copied piece by piece, against a plain string. Whatever part of the file is
// left, it gives a text that there was, or none.
TEST(Journal, AnyPartOfItGivesATextThatThereWas) {
  std::mt19937 random(20);
  const auto below = [&](std::size_t limit) { return limit == 0 ? 0 : random() % limit; };
  for (int round = 0; round < 60; ++round) {
    std::string text(below(400), 'a');
    std::string file = Journal::head({7, "t", "p", true, false, 1, 2}, 1'700'000'000);
    Journal journal;
    std::vector<std::pair<std::size_t, std::string>> states;  // size of the file, and its text then
    for (int i = 0; i < 60; ++i) {
      if (!journal.whole() && below(3) == 0) {
        const std::size_t length = std::min<std::size_t>(below(90), text.size() - journal.copied());
        file += journal.copy(text.substr(journal.copied(), length), journal.copied() + length == text.size());
      } else {
        const std::size_t at = below(text.size() + 1),
                          removed = below(std::min<std::size_t>(text.size() - at, 20) + 1);
        const std::string added(below(9), static_cast<char>('b' + i % 20));
        text.replace(at, removed, added);
        file += journal.change(at, removed, added);
      }
      if (journal.whole()) states.emplace_back(file.size(), text);
    }
    const std::size_t cut = below(file.size() + 1);
    std::string torn = file.substr(0, cut);
    if (round % 3 == 0) torn += "torn";
    const auto kept = recovery::replay(torn);
    std::optional<std::string> expected;
    for (const auto& [size, state] : states) {
      if (size <= cut) expected = state;
    }
    ASSERT_EQ(kept.has_value(), expected.has_value()) << round;
    if (kept) {
      ASSERT_EQ(kept->text, *expected) << round;
      EXPECT_EQ(kept->place, (recovery::Place{7, "t", "p", true, false, 1, 2}));
    }
  }
}

// Window and recovery of one run; letting it go without closing is its death.
struct Life {
  Life(tests::FakePlatform& platform, tests::MemoryCodeView& T1) : window(platform, T1) {
    window.window = &peer;
  }
  void start(const std::string& commandLine = {}) {
    window.entry(commandLine);
    recovering.start(commandLine.empty());
  }
  std::vector<std::string> titles() {
    std::vector<std::string> all;
    for (std::int16_t i = 0; i < window.WebProject.Count(); ++i)
      all.push_back(window.WebProject.Item(i).FileTitle);
    return all;
  }
  tests::FakeMainPeer peer;
  app::FrmH window;
  recovery::Recovery recovering{window};
};

class Recovering : public testing::Test {
 protected:
  Recovering() { platform.folder = folder.makeFolder("program"); }
  void begin(const std::string& commandLine = {}) {
    life.reset();
    T1 = tests::MemoryCodeView();
    life = std::make_unique<Life>(platform, T1);
    life->start(commandLine);
  }
  // Kept to the last byte, then dead.
  void die() {
    life->window.pause();
    life->recovering.finish();
    life.reset();
  }
  void expectOffer(std::vector<std::string> rows, std::function<void(recovery::frmrecovery&)> act) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& offer = dynamic_cast<recovery::frmrecovery&>(form);
      std::vector<std::string> found;
      for (const auto& item : offer.LV.items()) found.push_back(item.text.bytes);
      EXPECT_EQ(found, rows);
      act(offer);
    });
  }
  std::vector<std::string> left() { return base::fileNames(platform.folder + "/Recovery"); }
  void TearDown() override { EXPECT_TRUE(platform.modal.empty()) << "a window did not come"; }

  tests::TempFolder folder;
  tests::FakePlatform platform;
  tests::MemoryCodeView T1;
  std::unique_ptr<Life> life;
};

TEST_F(Recovering, TextNamePlaceViewAndOrderComeBack) {
  const std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta"),
                    c = folder.make("c.gif", "GIF");
  begin();
  for (const std::string& path : {a, b, c}) life->window.ofnen(path);
  life->window.mnunewF_Click(".HTML", "<HTML>");
  T1.type("new");
  life->window.showDocument(0);
  T1.setText("Alpha, changed");
  T1.select(3, 2);
  life->window.runCommand(mnuViewUtf8);
  life->window.moveDocument(1, 0);
  die();

  expectOffer({"a.html", "nosaved3.HTML"}, [&](recovery::frmrecovery& form) {
    EXPECT_EQ(form.Tfirst.text(), "Alpha, changed");
    form.COK.click();
  });
  begin();
  EXPECT_EQ(life->titles(), (std::vector<std::string>{"b.html", "a.html", "c.gif", "nosaved3.HTML"}));
  EXPECT_EQ(life->window.CurrentItemIndex, 1);
  EXPECT_EQ(T1.text(), "Alpha, changed");
  EXPECT_EQ(T1.selStart(), 3);
  EXPECT_EQ(T1.selLength(), 2);
  EXPECT_EQ(T1.view(), ui::TextView::Utf8);
  EXPECT_TRUE(life->window.FileChanged);
  EXPECT_EQ(life->window.documentText(3), "<HTML>new");
  EXPECT_FALSE(life->window.WebProject.Item(0).Changed);
  EXPECT_EQ(base::readFile(a), "Alpha");
  T1.undo();
  EXPECT_EQ(T1.text(), "Alpha");

  // Dies again before anything was typed: nothing of it is lost, nothing comes twice. Put off, it waits.
  T1.redo();
  for (int i = 0; i < 2; ++i) {
    die();
    expectOffer({"a.html", "nosaved3.HTML"}, [&](recovery::frmrecovery& form) {
      if (i == 0) return form.CEXIT.click();
      platform.modal.push_front([](ui::Form& box) { dynamic_cast<app::frmBOXa&>(box).Cyes.click(); });
      form.Cdelete.click();
    });
    begin();
  }
  life->recovering.finish();
  EXPECT_EQ(left().size(), 1u);  // the list of the run that lives
}

TEST_F(Recovering, AProjectComesBackWithItsDocumentsInTheirOrder) {
  const std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta"),
                    outside = folder.makeFolder("x") + "\\o.css";
  base::writeFile(outside, "O");
  const std::string project = folder.make("site.WEB", "a.html\r\nb.html\r\nSTOPF=b.html\r\n");
  begin();
  life->window.ofnen(project);
  life->window.ofnen(outside);
  life->window.moveDocument(1, 0);
  life->window.showDocument(1);
  T1.setText("Alpha, changed");
  T1.select(4, 1);
  die();
  expectOffer({"a.html"}, [](recovery::frmrecovery& form) { form.COK.click(); });
  begin();
  app::ColectionMain& list = life->window.WebProject;
  EXPECT_TRUE(list.WEBopened);
  EXPECT_EQ(list.WEBpath + list.WEBtitle, project);
  EXPECT_EQ(life->titles(), (std::vector<std::string>{"b.html", "a.html", "o.css"}));
  EXPECT_TRUE(list.Item(1).IsInWEB);
  EXPECT_FALSE(list.Item(2).IsInWEB);
  EXPECT_EQ(life->window.CurrentFilePath, a);
  EXPECT_EQ(T1.text(), "Alpha, changed");
  EXPECT_EQ(T1.selStart(), 4);
  life->window.runCommand(mnuSave);
  EXPECT_EQ(base::readFile(a), "Alpha, changed");
}

TEST_F(Recovering, WhatIsTypedWithoutAMarkIsKeptAndWhatIsSavedIsNot) {
  const std::string a = folder.make("a.html", "Alpha"), c = folder.make("c.gif", "GIF");
  begin();
  life->window.ofnen(a);
  life->window.ofnen(c);
  T1.type("x");
  life->window.runCommand(mnuSave);
  life->window.showDocument(1);  // the picture: what follows is not marked
  T1.type("y");
  EXPECT_FALSE(life->window.FileChanged);
  EXPECT_TRUE(life->window.queryClose());
  life.reset();
  expectOffer({"a.html"}, [](recovery::frmrecovery& form) { form.COK.click(); });
  begin();
  EXPECT_EQ(T1.text(), "xyAlpha");
  life->window.runCommand(mnuSave);
  EXPECT_TRUE(life->window.queryClose());
  life.reset();
  EXPECT_TRUE(left().empty());
}

TEST_F(Recovering, ARunThatLivesIsNotOffered) {
  begin();
  T1.type("mine");
  life->window.pause();
  life->recovering.finish();
  {
    tests::MemoryCodeView view;
    Life second(platform, view);
    second.start();
    view.type("second");
    second.window.pause();
    second.recovering.finish();
  }
  EXPECT_EQ(left().size(), 4u);
  auto lost = recovery::lostRuns(platform.folder + "/Recovery");
  ASSERT_EQ(lost.size(), 1u);
  EXPECT_EQ(lost[0].texts.at(0).text, "second");
  EXPECT_TRUE(recovery::lostRuns(platform.folder + "/Recovery").empty());  // claimed
}

TEST_F(Recovering, ALargeTextIsKeptByItsChangesAndAnewWhenTheyAreMany) {
  std::string text(3'000'000, 'a');
  const std::string a = folder.make("a.txt", text);
  begin("\"" + a + "\"");
  for (int i = 0; i < 40; ++i) {
    T1.setText(text += "0123456789");  // the code view of the tests tells of the whole text each time
    life->window.background();
  }
  die();
  ASSERT_EQ(left().size(), 2u);  // the list and one copy
  expectOffer({"a.txt"}, [](recovery::frmrecovery& form) { form.COK.click(); });
  begin();
  EXPECT_EQ(T1.text(), text);
}

TEST_F(Recovering, TheLastSessionComesBackWhenThatIsWanted) {
  const std::string a = folder.make("a.html", "Alpha"), b = folder.make("b.html", "Beta");
  begin();
  life->window.Props.ReopenSession = true;
  life->window.saveProps();
  life->window.ofnen(a);
  life->window.ofnen(b);
  T1.select(2, 1);
  life->window.showDocument(0);
  EXPECT_TRUE(life->window.queryClose());
  begin();
  EXPECT_EQ(life->titles(), (std::vector<std::string>{"a.html", "b.html"}));
  EXPECT_EQ(T1.text(), "Alpha");
  EXPECT_FALSE(life->window.FileChanged);
  life->window.showDocument(1);
  EXPECT_EQ(T1.selStart(), 2);
}

}  // namespace
