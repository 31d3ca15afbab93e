// The dialog's replacing and deleting, on a whole main window without a window.
#include "tests/search/frmsuch_fixture.h"

namespace {

using namespace ui::literals;
using tests::FrmsuchTest;

TEST_F(FrmsuchTest, ReplacesOneHitAndGoesOn) {
  showText("one two one");
  find("one");
  D.Tcvla.userSet("three");
  D.Ccvla.click();
  EXPECT_EQ(T1.text(), "one two one") << "nothing is selected yet";
  EXPECT_EQ(selected(), "0+3");
  D.Ccvla.click();
  EXPECT_EQ(T1.text(), "three two one");
  EXPECT_EQ(selected(), "10+3");
  expectEnd();
  D.Ccvla.click();
  EXPECT_EQ(T1.text(), "three two three");
  EXPECT_EQ(selected(), "10+5");
}

TEST_F(FrmsuchTest, ReplacementsMoveTheEndOfASelectionScope) {
  showText("x x x x");
  T1.select(0, 5);
  find("x");
  D.Combo1.userSelect(1);
  D.Tcvla.userSet("long");
  T1.select(0, 0);
  for (int i = 0; i < 3; ++i) D.Ccvla.click();
  expectEnd();
  D.Ccvla.click();
  EXPECT_EQ(T1.text(), "long long long x");
}

TEST_F(FrmsuchTest, ReplaceAllKeepsToItsScopeAndIsOneStep) {
  const auto replaced = [&](int scope, const std::string& text) {
    showText(text);
    T1.select(3, 3);
    find("x");
    D.Combo1.userSelect(scope);
    D.Tcvla.userSet("yy");
    D.Calcvla.click();
    std::string result(T1.text());
    EXPECT_EQ(selected(), scope == 1 ? "3+5" : "3+3");
    T1.undo();
    EXPECT_EQ(T1.text(), text);
    return result;
  };
  EXPECT_EQ(replaced(0, "x.xx.x.x"), "yy.yyyy.yy.yy");
  EXPECT_EQ(info(), "5 Seicvala");
  EXPECT_EQ(replaced(1, "x.xx.x.x"), "x.xyy.yy.x");
  EXPECT_EQ(info(), "2 Seicvala");
  EXPECT_EQ(replaced(2, "x.xx.x.x"), "yy.yyx.x.x");
  EXPECT_EQ(replaced(3, "x.xx.x.x"), "x.xyy.yy.yy");
}

TEST_F(FrmsuchTest, ReplaceAllWorksOnThePresentSelection) {
  showText("x x x x x");
  find("x");
  D.Tcvla.userSet("yy");
  T1.select(0, 0);
  D.Combo1.userSelect(1);  // with nothing selected
  T1.select(2, 3);
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "x yy yy x x");
  EXPECT_EQ(selected(), "2+5");
  EXPECT_EQ(info(), "2 Seicvala");
  D.Combo1.userSelect(3);
  T1.select(8, 0);
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "x yy yy yy yy");
  D.Combo1.userSelect(2);
  T1.setText("x x x");
  T1.select(3, 0);
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "yy yy x");
}

TEST_F(FrmsuchTest, ALineEndIsThatOfTheDocument) {
  open(folder.make("lf.htm", "a\nb\na\n"));
  open(folder.make("cr.htm", "a\rb\ra\r"));
  open(folder.make("crlf.htm", "a\r\nb\r\na\r\n"));
  find("a");
  D.Tcvla.userSet("x");
  platform.popupAnswers = {mnuend};
  D.Cmeniu.click();
  EXPECT_EQ(walk(), (Steps{"crlf.htm 0+3", "crlf.htm 6+3"}));
  D.CKalfil.userSet(true);
  D.MBAlfind.click();
  EXPECT_EQ(info(), "6 napovnia");
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "x\r\nb\r\nx\r\n");
  EXPECT_EQ(H->WebProject.Item(0).Value, "x\nb\nx\n");
  EXPECT_EQ(H->WebProject.Item(1).Value, "x\rb\rx\r");
  clickNode("lf.htm");
  D.Text1.userSet("b\r\n");
  D.CKalfil.userSet(false);
  D.Czuch.click();
  expectEnd();
  D.Ccvla.click();
  EXPECT_EQ(T1.text(), "x\nx\nx\n");
}

TEST_F(FrmsuchTest, ReplaceAllLeavesASingleHitAlone) {
  showText("one two two");
  find("one");
  D.MBAlfind.click();
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "one two two");
  EXPECT_EQ(info(), "araferi ar Seicvala");
  EXPECT_TRUE(rows().empty());
  find("two");
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "one  ");
  EXPECT_EQ(info(), "2 Seicvala");
}

TEST_F(FrmsuchTest, ReplaceAllReplacesTheWordWithoutItsSpaces) {
  showText("cat a cat of a cat or cats");
  find("cat");
  D.Tcvla.userSet("dog");
  D.CHK.userSet(true);
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "dog a dog of a dog or dogs");
  EXPECT_EQ(info(), "2 Seicvala") << "as many as were found with their spaces";
}

TEST_F(FrmsuchTest, ReplacesInAllFilesAndTakesItBack) {
  openThree();
  clickNode("b.css");
  EXPECT_FALSE(H->runCommand(mnuundoreplace));
  find("One");
  D.Tcvla.userSet("eins");
  D.CKalfil.userSet(true);
  D.Calcvla.click();
  EXPECT_EQ(info(), "4 Seicvala");
  EXPECT_EQ(T1.text(), "neins");
  EXPECT_EQ(H->documentText(0), "eins two eins");
  EXPECT_EQ(H->documentText(2), "eins");
  EXPECT_TRUE(H->WebProject.Item(0).Changed);

  clickNode("c.html");
  T1.select(0, 0);
  T1.replaceSelection("mine ");
  expectBoxWith("c.html", app::kAnswerOk);
  ASSERT_TRUE(H->runCommand(mnuundoreplace));
  EXPECT_EQ(H->documentText(0), "one two one");
  EXPECT_FALSE(H->WebProject.Item(0).Changed) << "as in its file again";
  EXPECT_EQ(H->documentText(1), "none");
  EXPECT_EQ(T1.text(), "mine eins") << "what was written since is kept";
  T1.undo();
  ASSERT_TRUE(H->runCommand(mnuundoreplace)) << "still there";
  EXPECT_EQ(T1.text(), "one");
  EXPECT_FALSE(H->runCommand(mnuundoreplace));
}

TEST_F(FrmsuchTest, TakesBackOnlyTheLastReplacing) {
  openThree();
  const auto replace = [&](const std::string& from, const std::string& to) {
    find(from);
    D.CKalfil.userSet(true);
    D.Tcvla.userSet(to);
    D.Calcvla.click();
  };
  replace("one", "1");
  replace("1", "2");
  clickNode("a.html");
  expectBoxWith("ფაილი შეიცვალა", app::kAnswerNo);
  ASSERT_TRUE(H->runCommand(mnuClose));
  H->moveDocument(0, 1);
  ASSERT_TRUE(H->runCommand(mnuundoreplace));
  EXPECT_FALSE(H->runCommand(mnuundoreplace));
  std::vector<std::string> texts;
  for (std::int16_t i = 0; i < H->WebProject.Count(); ++i) texts.emplace_back(H->documentText(i));
  EXPECT_EQ(texts, (Steps{"1", "n1"})) << "the closed document is not looked for among the others";
}

TEST_F(FrmsuchTest, OneHitInAllFilesIsLeftAlone) {
  openThree();
  find("two");
  D.Tcvla.userSet("x");
  D.CKalfil.userSet(true);
  D.Calcvla.click();
  EXPECT_EQ(H->documentText(0), "one two one");
  EXPECT_FALSE(H->WebProject.Item(0).Changed);
  EXPECT_EQ(info(), "araferi ar Seicvala");
}

TEST_F(FrmsuchTest, EscStopsAndReplacesNothing) {
  openThree();
  find("one");
  D.Tcvla.userSet("x");
  D.CKalfil.userSet(true);
  platform.stop = true;
  D.Calcvla.click();
  EXPECT_EQ(H->documentText(0), "one two one");
  EXPECT_EQ(info(), "araferi ar Seicvala");
  D.MBAlfind.click();
  EXPECT_EQ(info(), "0 napovni");
  platform.stop = false;
  D.MBAlfind.click();
  EXPECT_EQ(info(), "4 napovnia");
}

TEST_F(FrmsuchTest, DeletesEveryOccurrenceOfTheMarkedText) {
  showText("ab AB xab abc");
  EXPECT_FALSE(H->runCommand(mnumarkfinddel));
  T1.select(7, 2);
  ASSERT_TRUE(H->runCommand(mnumarkfinddel));
  EXPECT_EQ(T1.text(), " AB x c");
  EXPECT_EQ(selected(), "5+0");
  T1.undo();
  EXPECT_EQ(T1.text(), "ab AB xab abc") << "one step";
}

}  // namespace
