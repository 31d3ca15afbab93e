// The dialog's finding, on a whole main window without a window.
#include "tests/search/frmsuch_fixture.h"

namespace {

using namespace ui::literals;
using search::frmsuch;
using tests::FrmsuchTest;

TEST_F(FrmsuchTest, ShowsItsTexts) {
  openDialog();
  EXPECT_EQ(D.caption(), ui::Text("Suchen"));
  EXPECT_EQ(D.CHK.caption(), "&mxolod mTliani sityva"_keyboard);
  EXPECT_EQ(D.CKcase.caption(), "didi-patara asoebiT"_keyboard);
  EXPECT_EQ(D.CKutf8.caption(), ui::Text("UTF8"));
  EXPECT_EQ(D.CKalfil.caption(), "yvela gaxsnil failSi"_keyboard);
  EXPECT_EQ(D.Czuch.caption(), "Zebna"_keyboard);
  EXPECT_EQ(D.MBAlfind.caption(), "yvelas povna"_keyboard);
  EXPECT_EQ(D.Ccvla.caption(), "Secvla"_keyboard);
  EXPECT_EQ(D.Calcvla.caption(), "yvelas Secvla"_keyboard);
  EXPECT_EQ(D.Combo1.items(), (std::vector<ui::Text>{"mTlian teqstSi"_keyboard, "markirebul teqstSi"_keyboard,
                                                     "aqtualuri adgilidan zeviT"_keyboard,
                                                     "aqtualuri adgilidan qveviT!"_keyboard}));
  EXPECT_EQ(D.Combo1.selected(), 0);
  EXPECT_EQ(D.Combo1.dropWidth, 200);
  const auto& edit = H->menus.at(1).items;
  const auto item = [&](int command) {
    return *std::find_if(edit.begin(), edit.end(),
                         [&](const ui::MenuItem& known) { return known.command == command; });
  };
  EXPECT_EQ(ui::menuCaption(item(mnusuch).caption).text, "ÞÄÁÍÀ ÃÀ ÛÄÝÅËÀ"_legacy);
  EXPECT_EQ(item(mnusuch).shortcut, ui::ctrl('F'));
  EXPECT_EQ(ui::menuCaption(item(mnumarkfinddel).caption).text, "ÌÀÒÊÉÒÄÁÖËÉ ÐÏÅÍÀ ÃÀ ßÀÛËÀ"_legacy);
}

TEST_F(FrmsuchTest, TakesTheSelectionOfOneLine) {
  showText("abc def\r\nghi");
  T1.select(4, 3);
  openDialog();
  EXPECT_EQ(D.Text1.text(), "def");
  D.Text1.userSet("x|>y");
  T1.select(4, 8);
  openDialog();
  EXPECT_EQ(D.Text1.text(), "x|>y") << "a selection over two lines is not taken";
  for (const char* lines : {"a\nbc", "a\rbc"}) {
    showText(lines);
    T1.select(0, 3);
    openDialog();
    EXPECT_EQ(D.Text1.text(), "x|>y") << "whatever ends them";
  }
  showText("abc def\r\nghi");
  EXPECT_FALSE(D.Calcvla.enabled());
  T1.select(0, 3);
  openDialog();
  EXPECT_EQ(D.Text1.text(), "abc");
  EXPECT_TRUE(D.Calcvla.enabled());
  EXPECT_EQ(platform.modeless.size(), 1u) << "one dialog, brought to the front";
}

TEST_F(FrmsuchTest, FindsTheNearestOfSeveralTerms) {
  showText("bb a bb");
  find("a|>|>bb|>b");
  EXPECT_EQ(walk(), (Steps{"0+2", "3+1", "5+2"}));
  EXPECT_FALSE(D.Ccvla.enabled());
  EXPECT_FALSE(D.Calcvla.enabled());
  D.Text1.userSet("a");
  EXPECT_TRUE(D.Ccvla.enabled());
  EXPECT_EQ(walk(), (Steps{"3+1"})) << "after the end a new pass begins";
}

TEST_F(FrmsuchTest, WholeWordMeansASpaceOnEachSide) {
  showText("cat a cat cat. (cat) cat\r\n Cat cat");
  find("cat");
  D.CHK.userSet(true);
  EXPECT_EQ(walk(), (Steps{"6+3", "27+3"}));
  D.CKcase.userSet(true);
  EXPECT_EQ(walk(), (Steps{"6+3"}));
  D.MBAlfind.click();
  EXPECT_EQ(D.hits[0].length, 5);
  EXPECT_TRUE(D.hits[0].padded);
  D.List1.userSelect(0);
  EXPECT_EQ(selected(), "6+3");
}

TEST_F(FrmsuchTest, CaseIsThatOfTheWesternCodePage) {
  showText("\xC0 \xE0 \xD7 \xF7");
  find("\xE0");
  EXPECT_EQ(walk(), (Steps{"0+1", "2+1"}));
  D.CKcase.userSet(true);
  EXPECT_EQ(walk(), (Steps{"2+1"}));
  find("\xF7");
  D.CKcase.userSet(false);
  EXPECT_EQ(walk(), (Steps{"6+1"}));
}

TEST_F(FrmsuchTest, Utf8FindsAndReplacesLettersInTheirUtf8Form) {
  showText("a\xE1\x83\x90 \xC0 \xE1\x83\x90");
  find("\xC0");
  D.CKutf8.userSet(true);
  D.CKcase.userSet(true);
  EXPECT_EQ(walk(), (Steps{"1+3", "7+3"}));
  D.Tcvla.userSet("t\xC1");
  D.Calcvla.click();
  EXPECT_EQ(T1.text(), "at\xE1\x83\x91 \xC0 t\xE1\x83\x91");
  EXPECT_EQ(info(), "2 Seicvala");
}

TEST_F(FrmsuchTest, SearchesEachScopeForward) {
  showText("x.x.x.x.x");
  T1.select(3, 3);
  find("x");
  EXPECT_EQ(walk(), (Steps{"0+1", "2+1", "4+1", "6+1", "8+1"}));
  const auto inScope = [&](int scope) {
    T1.select(3, 3);
    D.Combo1.userSelect(scope);
    return walk();
  };
  EXPECT_EQ(inScope(1), (Steps{"4+1"}));
  EXPECT_EQ(inScope(2), (Steps{"0+1", "2+1"}));
  EXPECT_EQ(inScope(3), (Steps{"4+1", "6+1", "8+1"}));
  // A match may start before the caret and end behind it.
  showText("0123456789abcdef");
  T1.select(10, 0);
  D.Combo1.userSelect(2);
  D.Text1.userSet("9a|>ab");
  EXPECT_EQ(walk(), (Steps{"9+2"}));
}

TEST_F(FrmsuchTest, ACaretAtTheEndCountsAsOneAtTheStart) {
  showText("x.x");
  find("x");
  T1.select(3, 0);
  D.Combo1.userSelect(3);
  EXPECT_EQ(walk(), Steps{}) << "not when the scope is chosen";
  T1.select(3, 0);
  openDialog();
  EXPECT_EQ(walk(), (Steps{"0+1", "2+1"})) << "but when the dialog is opened";
}

TEST_F(FrmsuchTest, ASelectionThatNoLongerExistsHoldsNothing) {
  showText("0123456789 x x");
  T1.select(11, 3);
  find("x");
  D.Combo1.userSelect(1);
  T1.setText("short");
  EXPECT_EQ(walk(), Steps{});
  D.Calcvla.click();
  EXPECT_EQ(info(), "araferi ar Seicvala");
}

TEST_F(FrmsuchTest, AnEmptyFindTextFindsNothing) {
  showText("abc");
  for (const char* text : {"", "|>", "|>|>"}) {
    for (ui::Button* button : {&D.MBAlfind, &D.Calcvla}) {
      find("b");
      D.MBAlfind.click();
      ASSERT_EQ(rows().size(), 1u);
      find(text);
      D.Czuch.click();
      if (!button->enabled()) continue;  // several terms cannot be replaced
      button->click();
      EXPECT_TRUE(rows().empty()) << "the old list is gone";
      EXPECT_EQ(info(), button == &D.MBAlfind ? "0 napovni" : "araferi ar Seicvala");
      EXPECT_TRUE(D.hits.empty());
      EXPECT_EQ(T1.text(), "abc");
      EXPECT_EQ(D.history().size(), 1u);
    }
  }
  find(std::string(100, 'a'));
  D.MBAlfind.click();
  EXPECT_EQ(info(), "0 napovni");
}

TEST_F(FrmsuchTest, ListsAllHits) {
  showText("one two one three one");
  find("one|>two");
  EXPECT_FALSE(D.List1.visible());
  D.MBAlfind.click();
  EXPECT_EQ(rows(), (Steps{"napovni # 1", "napovni # 2", "napovni # 3", "napovni # 4"}));
  EXPECT_EQ(info(), "4 napovnia");
  EXPECT_EQ(D.height(), 7365 / 15);
  EXPECT_TRUE(D.List1.visible());
  D.List1.userSelect(3);
  EXPECT_EQ(selected(), "4+3") << "the second term's hits stand behind all of the first";
  find("absent");
  D.MBAlfind.click();
  EXPECT_TRUE(rows().empty());
  EXPECT_EQ(info(), "0 napovni");
}

TEST_F(FrmsuchTest, AHitWhoseTextWasEditedIsShownAsGone) {
  showText("the first cat here, the second cat there");
  find("cat");
  D.MBAlfind.click();
  T1.select(4, 5);
  T1.replaceSelection("1st");
  D.List1.userSelect(1);
  EXPECT_EQ(selected(), "29+3") << "moved by the edit before it";
  T1.select(29, 3);
  T1.replaceSelection("dog");
  T1.select(0, 0);
  D.List1.userSelect(1);
  EXPECT_EQ(selected(), "0+0");
  EXPECT_NE(info().find("# 2 აღარ არის"), std::string::npos);
}

TEST_F(FrmsuchTest, StepsOverTheOpenDocumentsInTreeOrder) {
  openThree();
  clickNode("a.html");
  find("one");
  EXPECT_EQ(walk(), (Steps{"a.html 0+3", "a.html 8+3"})) << "only the shown document";
  D.CKalfil.userSet(true);
  // The tree has the style sheet behind the pages; "none" holds the word.
  EXPECT_EQ(walk(), (Steps{"a.html 0+3", "a.html 8+3", "c.html 0+3", "b.css 1+3"}));
  find("two");
  EXPECT_EQ(walk(), Steps{}) << "only what stands behind it in the tree";
  clickNode("c.html");
  EXPECT_EQ(walk(), Steps{});
  EXPECT_EQ(H->CurrentItemIndex, 2) << "documents without a hit are not brought up";
  find("one");
  clickNode("c.html");
  T1.select(0, 0);
  H->runCommand(mnufindprevious);
  EXPECT_EQ(H->CurrentItemIndex, 0);
  EXPECT_EQ(selected(), "8+3");
}

TEST_F(FrmsuchTest, SearchesEachDocumentWithTheBytesOfItsOwnView) {
  open(folder.make("a.html", "\xC2\xC0 \xC2\xC0"));
  open(folder.make("b.html", "და-გა"));
  open(folder.make("c.html", "\xC3\xC0 \xC2\xC0"));
  clickNode("a.html");
  find("\xC2\xC0");
  D.CKalfil.userSet(true);
  EXPECT_EQ(walk(), (Steps{"a.html 0+2", "a.html 3+2", "b.html 7+6", "c.html 3+2"}));
}

TEST_F(FrmsuchTest, StepsBackward) {
  showText("x.x.x");
  find("x");
  T1.select(5, 0);
  Steps steps;
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(D.keyPressed({ui::kKeyF1 + 2, false, true, false}));
    steps.push_back(selected());
  }
  EXPECT_EQ(steps, (Steps{"4+1", "2+1", "0+1"}));
  expectEnd();
  H->runCommand(mnufindprevious);
  D.keyPressed({ui::kKeyF1 + 2, false, false, false});
  EXPECT_EQ(selected(), "0+1");
  H->runCommand(mnufindnext);
  EXPECT_EQ(selected(), "2+1");
  EXPECT_FALSE(D.keyPressed({'A', false, false, false}));
  EXPECT_TRUE(D.keyPressed({ui::kKeyEscape, false, false, false}));
  EXPECT_TRUE(D.closed());
  H->runCommand(mnufindnext);
  EXPECT_EQ(selected(), "4+1") << "F3 goes on without the dialog";
}

TEST_F(FrmsuchTest, PaddedHitsStepBackwardToo) {
  showText(" a a b a ");
  find("a");
  D.CHK.userSet(true);
  T1.select(9, 0);
  H->runCommand(mnufindprevious);
  EXPECT_EQ(selected(), "7+1");
  H->runCommand(mnufindprevious);
  EXPECT_EQ(selected(), "1+1") << "the space between two words belongs to the first";
}

TEST_F(FrmsuchTest, IndexesTheDocumentsOfTheTree) {
  D.findindex();
  EXPECT_EQ(D.fileIndex, (std::vector<frmsuch::FileEntry>{{-1, -1}}));
  EXPECT_EQ(D.findnextindex(0), 0);
  open(folder.make("p.gif", "GIF"));
  openThree();
  open(folder.make("d.shtml", "one"));  // stands in the tree twice
  D.findindex();
  std::vector<std::int16_t> documents;
  for (std::size_t i = 0; i < D.fileIndex.size(); ++i) {
    const frmsuch::FileEntry& entry = D.fileIndex[i];
    documents.push_back(entry.document);
    EXPECT_EQ(H->TV.nodes().at(static_cast<std::size_t>(entry.node - 1)).tag, std::to_string(entry.document));
    EXPECT_EQ(D.findnextindex(entry.node), i + 1 < D.fileIndex.size() ? D.fileIndex[i + 1].node : 0);
  }
  EXPECT_EQ(documents, (std::vector<std::int16_t>{1, 3, 4, 2})) << "no picture, and each once";
}

TEST_F(FrmsuchTest, ListsTheHitsOfAllDocuments) {
  openThree();
  find("one|>none");
  D.CKalfil.userSet(true);
  D.MBAlfind.click();
  EXPECT_EQ(info(), "5 napovnia");  // "none" holds "one"
  D.List1.userSelect(0);
  EXPECT_EQ(H->CurrentItemIndex, 0);
  EXPECT_EQ(selected(), "0+3");
  D.List1.userSelect(4);
  EXPECT_EQ(H->CurrentItemIndex, 1);
  EXPECT_EQ(selected(), "0+4");

  // Hits go along with their document.
  H->moveDocument(0, 2);
  D.List1.userSelect(1);
  EXPECT_EQ(titles().at(static_cast<std::size_t>(H->CurrentItemIndex)), "a.html");
  EXPECT_EQ(selected(), "8+3");
  D.List1.userSelect(4);
  EXPECT_EQ(titles().at(static_cast<std::size_t>(H->CurrentItemIndex)), "b.css");
  H->moveDocument(2, 0);

  // Closing a document leaves the others' hits good.
  clickNode("a.html");
  ASSERT_TRUE(H->runCommand(mnuClose));
  D.List1.userSelect(2);
  EXPECT_EQ(titles().at(static_cast<std::size_t>(H->CurrentItemIndex)), "c.html");
  EXPECT_EQ(selected(), "0+3");
  T1.select(1, 0);
  D.List1.userSelect(0);
  EXPECT_EQ(selected(), "1+0");
  EXPECT_NE(info().find("აღარ არის"), std::string::npos);
}

TEST_F(FrmsuchTest, HitsOfAnUntitledDocumentStayWhenAnotherIsShown) {
  showText("a cat and a cat");
  find("cat");
  D.MBAlfind.click();
  open(folder.make("other.html", "a cat"));  // the untitled one gets a record now
  ASSERT_EQ(H->CurrentItemIndex, 1);
  D.List1.userSelect(1);
  EXPECT_EQ(H->CurrentItemIndex, 0);
  EXPECT_EQ(selected(), "12+3");
}

TEST_F(FrmsuchTest, AllFilesNeedAnOpenDocumentAndTheWholeText) {
  openDialog();
  EXPECT_FALSE(D.CKalfil.enabled());
  open(folder.make("a.html", "x x"));
  EXPECT_TRUE(D.CKalfil.enabled()) << "the dialog follows";
  D.CKalfil.userSet(true);
  for (const int scope : {1, 2, 3}) {
    D.Combo1.userSelect(scope);
    EXPECT_FALSE(D.CKalfil.enabled());
    EXPECT_TRUE(D.CKalfil.greyed());
  }
  D.Combo1.userSelect(0);
  EXPECT_TRUE(D.CKalfil.enabled());
  EXPECT_FALSE(D.CKalfil.greyed());
  EXPECT_TRUE(D.CKalfil.checked());
  ASSERT_TRUE(H->runCommand(mnuClose));
  EXPECT_FALSE(D.CKalfil.enabled());
}

TEST_F(FrmsuchTest, ANewDocumentBringsItsOwnScope) {
  showText("");
  openThree();
  clickNode("a.html");
  T1.select(4, 3);
  openDialog();
  D.Combo1.userSelect(1);
  find("one");
  clickNode("c.html");
  EXPECT_EQ(walk(), Steps{}) << "nothing is selected there";
}

TEST_F(FrmsuchTest, TheWindowMakesRoomForTheHit) {
  struct Peer : ui::FormPeer {
    void captionChanged() override {}
    void close() override {}
    void moveOff(const ui::ScreenArea& area) override { areas.push_back(area); }
    std::vector<ui::ScreenArea> areas;
  } window;
  showText("a b a");
  find("a");
  static_cast<ui::Form&>(D).open(&window);
  D.Czuch.click();
  EXPECT_TRUE(window.areas.empty()) << "out of view";
  T1.onScreen = {10, 20, 30, 40};
  D.Czuch.click();
  D.MBAlfind.click();
  D.List1.userSelect(0);
  D.detach();
  EXPECT_EQ(window.areas, (std::vector<ui::ScreenArea>(2, *T1.onScreen)));
}

TEST_F(FrmsuchTest, EditingBeforeTheNextStepLosesNoHit) {
  showText("x....x.x");
  find("x");
  D.Czuch.click();
  D.Czuch.click();
  EXPECT_EQ(selected(), "5+1");
  T1.select(0, 5);
  T1.replaceSelection("");
  D.Czuch.click();
  EXPECT_EQ(selected(), "2+1");
}

TEST_F(FrmsuchTest, ExchangesTheTextsAndInserts) {
  find("a|>b");
  D.Tcvla.userSet("c");
  D.Ccheinj.click();
  EXPECT_EQ(D.Text1.text(), "c");
  EXPECT_EQ(D.Tcvla.text(), "a|>b");
  EXPECT_TRUE(D.Calcvla.enabled());
  D.Text1.userSet("ab");
  D.Text1.select(1, 0);
  platform.popupAnswers = {mnuand, mnutab, mnuend, 0};
  D.Cmeniu.click();
  EXPECT_EQ(D.Text1.text(), "a|>b");
  EXPECT_FALSE(D.Calcvla.enabled());
  D.Cmeniu.click();
  EXPECT_EQ(D.Text1.text(), "a|>\tb");
  D.Cmeniu.click();
  EXPECT_EQ(D.Text1.text(), "a|>\tb\r\n");
  EXPECT_EQ(D.Tcvla.text(), "a|>b\r\n");
  D.Cmeniu.click();
  ASSERT_EQ(platform.popup.size(), 4u);
  EXPECT_EQ(platform.popup[0].caption, ui::Text("And"));
  EXPECT_TRUE(platform.popup[1].separator());
  EXPECT_EQ(platform.popup[2].caption, "xazis bolo"_keyboard);
  EXPECT_EQ(platform.popup[3].caption, ui::Text("Tab"));
}

TEST_F(FrmsuchTest, KeepsTheLastTwentyFindTexts) {
  showText("x");
  for (int i = 0; i < 25; ++i) {
    find("term" + std::to_string(i % 23));
    D.MBAlfind.click();
  }
  EXPECT_EQ(D.history().size(), 20u);
  EXPECT_EQ(D.history().front(), "term1");
  find("\xC0&\xC1\r\n|>" + std::string(60, 'a'));
  D.MBAlfind.click();
  D.Text1.userSet("");
  platform.popupAnswers = {mnuhistory + 1};
  D.Cmeniu.click();
  EXPECT_EQ(D.Text1.text(), "term1");
  const ui::MenuItem& last = platform.popup.back();
  ASSERT_EQ(last.items.size(), 20u);
  EXPECT_EQ(ui::display(last.items[0].caption), "ა&&ბ  |>" + std::string(33, 'a') + "...");
}

}  // namespace
