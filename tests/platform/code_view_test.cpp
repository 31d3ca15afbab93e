// The real code view: byte texts, positions, steps of undoing, documents.
#include "base/error.h"
#include "tests/platform/code_view_fixture.h"

namespace {

using tests::CodeViewTest;
using ui::TextView;

TEST_F(CodeViewTest, EveryTextComesBackByteForByteInBothViewsHoweverItCameIn) {
  for (const std::string& text : tests::nastyTexts()) {
    for (const TextView view : {TextView::EightBit, TextView::Utf8}) {
      view_.load(text);
      view_.setView(view);
      paintNow();
      EXPECT_EQ(view_.text(), text);
      view_.setView(view == TextView::Utf8 ? TextView::EightBit : TextView::Utf8);
      EXPECT_EQ(view_.text(), text);
      view_.setText("before\r\n");
      view_.setText(text);
      EXPECT_EQ(view_.text(), text);
      view_.load("ab");
      view_.setView(view);
      view_.select(1, 0);
      view_.replaceSelection(text);
      EXPECT_EQ(view_.text(), "a" + text + "b");
      view_.setText(view_.text().substr(1));  // a part of itself
      EXPECT_EQ(view_.text(), text + "b");
      undo();
      undo();
      EXPECT_EQ(view_.text(), "ab");
    }
  }
}

TEST_F(CodeViewTest, PositionsAreBytesAndColumnsLetters) {
  const std::string text = "აბ\r\nx\xE1\x83გ é\rlast";
  for (const bool wrap : {false, true}) {
    ui::CodeLook look;
    look.wordWrap = wrap;
    view_.setLook(look);
    for (const TextView shown : {TextView::EightBit, TextView::Utf8}) {
      view_.load(text);
      view_.setView(shown);
      for (int at = 0; at <= static_cast<int>(text.size()); ++at) {
        view_.select(at, 3);
        ASSERT_EQ(view_.selStart(), at);
        ASSERT_EQ(view_.selText(), text.substr(static_cast<std::size_t>(at), 3));
      }
      const bool utf8 = shown == TextView::Utf8;
      const auto column = [&](std::size_t at) {
        view_.select(static_cast<int>(at), 0);
        return view_.caret().column;
      };
      EXPECT_EQ(column(6), utf8 ? 3 : 7);
      EXPECT_EQ(column(text.find("é")), utf8 ? 6 : 8) << "a byte of no letter counts one";
      EXPECT_EQ(view_.caret().line, 2);
      EXPECT_EQ(column(text.size()), 5);
      EXPECT_EQ(view_.caret().line, 3);
    }
  }
  view_.select(-5, 1 << 30);
  EXPECT_EQ(view_.selText(), text);
}

TEST_F(CodeViewTest, EachEditIsOneStepAndToldOnce) {
  const std::string before = "\xC0\xC1\r\n\xC2 a\n\r\nend";
  view_.load(before);
  EXPECT_FALSE(view_.canUndo());
  changes_ = reforms_ = 0;
  view_.setText(before);
  EXPECT_FALSE(view_.canUndo());
  EXPECT_EQ(changes_ + reforms_, 0) << "nothing changed";
  view_.setText("abc\r\nd a\n\r\nfin\r\n");
  EXPECT_EQ(changes_, 1);
  EXPECT_EQ(reforms_, 1);
  view_.select(3, 2);
  view_.replaceSelection("X\r\nY");
  EXPECT_EQ(view_.text(), "abcX\r\nYd a\n\r\nfin\r\n");
  EXPECT_EQ(view_.selStart(), 7);
  view_.step([&] {
    view_.select(0, 1);
    view_.replaceSelection("12");
    view_.setText("[" + std::string(view_.text()) + "]");
    EXPECT_EQ(changes_, 2) << "told at the end";
  });
  EXPECT_EQ(changes_, 3);
  EXPECT_EQ(reforms_, 2);
  undo();
  EXPECT_EQ(view_.text(), "abcX\r\nYd a\n\r\nfin\r\n");
  EXPECT_EQ(changes_, 4);
  EXPECT_EQ(reforms_, 3);
  undo();
  EXPECT_EQ(reforms_, 3) << "no whole-text step";
  undo();
  EXPECT_EQ(view_.text(), before);
  EXPECT_EQ(reforms_, 4);
  EXPECT_FALSE(view_.canUndo());
  view_.redo();
  EXPECT_EQ(reforms_, 5);
  EXPECT_EQ(view_.text(), "abc\r\nd a\n\r\nfin\r\n");
  EXPECT_EQ(changes_, 7);
}

TEST_F(CodeViewTest, AStepThatFailsLeavesTheTextAndNothingToRedo) {
  view_.load("kept");
  const auto failing = [&] {
    view_.setText("something else");
    throw base::Error(base::ErrorNumber::InvalidCall, "stop");
  };
  EXPECT_THROW(view_.step(failing), base::Error);
  EXPECT_EQ(view_.text(), "kept");
  EXPECT_FALSE(view_.canUndo());
  view_.select(4, 0);
  type(L"!");
  EXPECT_EQ(view_.text(), "kept!");
}

TEST_F(CodeViewTest, DocumentsKeepHistorySelectionAndPlaceWhileOthersAreShown) {
  std::string lines;
  for (int i = 0; i < 500; ++i) lines += "line " + std::to_string(i) + "\n";
  const auto first = view_.makeDocument(lines);
  const auto second = view_.makeDocument("second");
  view_.show(first);
  view_.select(100, 5);
  view_.replaceSelection("LINE");
  view_.select(static_cast<int>(lines.find("line 250")), 4);
  const LRESULT top = send(SCI_GETFIRSTVISIBLELINE);
  EXPECT_GT(top, 100);
  changes_ = 0;
  view_.show(second);
  EXPECT_EQ(changes_, 1);
  view_.setView(TextView::Utf8);
  type(L"x");
  EXPECT_EQ(second->text(), "xsecond");
  view_.show(first);
  EXPECT_EQ(view_.view(), TextView::EightBit);
  EXPECT_EQ(view_.selText(), "ine ");  // one byte has gone before it
  EXPECT_EQ(send(SCI_GETFIRSTVISIBLELINE), top);
  undo();
  EXPECT_EQ(view_.text(), lines);
  EXPECT_FALSE(view_.canUndo());

  // Changed while it is not shown: one step of its own.
  reforms_ = 0;
  second->setText("other\n");
  EXPECT_EQ(second->text(), "other\n");
  EXPECT_EQ(reforms_, 0);
  EXPECT_EQ(view_.text(), lines);
  view_.show(second);
  EXPECT_EQ(view_.view(), TextView::Utf8);
  undo();
  EXPECT_EQ(view_.text(), "xsecond");
  EXPECT_EQ(reforms_, 1);
  undo();
  EXPECT_EQ(view_.text(), "second");
  EXPECT_EQ(reforms_, 1);
  view_.redo();
  view_.redo();
  EXPECT_EQ(view_.text(), "other\n");
  EXPECT_EQ(first->text(), lines);

  // Shorter than where the caret was.
  view_.show(first);
  view_.select(1 << 30, 0);
  view_.show(second);
  first->setText("ab");
  view_.show(first);
  EXPECT_EQ(view_.selStart(), 2);
  type(L"c");
  EXPECT_EQ(view_.text(), "abc");
}

TEST_F(CodeViewTest, AWholeTextCommandKeepsTheCaretsLineOrTakesAPlace) {
  std::string lines, converted;
  for (int i = 0; i < 300; ++i) {
    lines += "aaa " + std::to_string(i) + "\r\n";
    converted += "აააა " + std::to_string(i) + "\r\n";
  }
  view_.load(lines);
  view_.select(static_cast<int>(lines.find("aaa 200")), 0);
  const LRESULT top = send(SCI_GETFIRSTVISIBLELINE);
  view_.setText(converted);
  EXPECT_EQ(view_.caret().line, 201);
  EXPECT_EQ(send(SCI_GETFIRSTVISIBLELINE), top);
  view_.setText(lines, 3);
  EXPECT_EQ(view_.selStart(), 3);
}

// As large as no process of 32 bits can take twice, and never looked at but at its ends.
class Endless {
 public:
  Endless() : memory_(VirtualAlloc(nullptr, kSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
  Endless(const Endless&) = delete;
  Endless& operator=(const Endless&) = delete;
  ~Endless() { VirtualFree(memory_, 0, MEM_RELEASE); }
  bool made() const { return memory_ != nullptr; }
  std::string_view text() const { return {static_cast<const char*>(memory_), kSize}; }

 private:
  static constexpr std::size_t kSize = 1300U << 20U;
  void* memory_;
};

TEST_F(CodeViewTest, KeepsTheTextWhenAnotherCannotBeHeld) {
  if (sizeof(void*) > 4) GTEST_SKIP() << "64 bits have room";
  view_.load("kept");
  view_.select(0, 2);
  {
    const Endless endless;
    ASSERT_TRUE(endless.made());
    EXPECT_THROW(view_.load(endless.text()), base::Error);
    EXPECT_THROW(view_.setText(endless.text()), base::Error);
    EXPECT_THROW(view_.replaceSelection(endless.text()), base::Error);
    EXPECT_THROW(view_.document()->setText(endless.text()), base::Error);
  }
  EXPECT_EQ(view_.text(), "kept");
  EXPECT_FALSE(view_.canUndo());
  view_.setText("goes on");
  undo();
  EXPECT_EQ(view_.text(), "kept");
}

TEST_F(CodeViewTest, ColoursAndLooksLeaveTextHistoryAndSelection) {
  const std::string text = "<B>\xE1\x83\x90</B>\n" + tests::everyByte();
  for (const TextView shown : {TextView::EightBit, TextView::Utf8}) {
    view_.load(text);
    view_.setView(shown);
    view_.select(0, 0);
    type(L"x");
    view_.select(2, 3);
    changes_ = reforms_ = 0;
    view_.showColours({{1, 3, 1}, {5, 2, 3}});
    const auto colourAt = [&](int at) {
      const auto style = static_cast<unsigned char>(send(SCI_GETSTYLEAT, static_cast<WPARAM>(at)));
      return send(SCI_STYLEGETFORE, style);
    };
    EXPECT_EQ(colourAt(0), 0x000000);
    EXPECT_EQ(colourAt(3), 0xFF0000);
    EXPECT_EQ(colourAt(4), 0x000000);
    EXPECT_EQ(colourAt(6), 0x329600);
    view_.setFont({"Courier New", 14, true, false, ui::CharacterSet::Russian});
    EXPECT_EQ(colourAt(3), 0xFF0000);
    view_.resetColours();
    EXPECT_EQ(colourAt(3), 0x000000);
    ui::CodeLook look;
    look.back = 0x00FFEE;
    look.wordWrap = look.lineNumbers = look.currentLine = look.whiteSpace = look.lineEnds = true;
    view_.setLook(look);
    view_.setLook({});
    view_.setZoom(view_.zoom() + 1);
    paintNow();
    EXPECT_EQ(view_.text(), "x" + text);
    EXPECT_EQ(view_.selStart(), 2);
    EXPECT_EQ(view_.selLength(), 3);
    EXPECT_EQ(changes_ + reforms_, 0);
    undo();
    EXPECT_EQ(view_.text(), text);
    EXPECT_FALSE(view_.canUndo());
    EXPECT_TRUE(view_.canRedo());
  }
}

}  // namespace
