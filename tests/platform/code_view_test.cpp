// The real edit control: byte texts, positions, undo, keys and pasting.
#include <gtest/gtest.h>

#include <random>

#include "base/error.h"
#include "platform/win32/clipboard.h"
#include "platform/win32/rich_edit_code_view.h"
#include "platform/win32/strings.h"
#include "tests/platform/test_window.h"
// windows.h first
#include <richedit.h>

namespace {

std::string everyByte() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  return bytes;
}

const std::vector<std::string>& nastyTexts() {
  using namespace std::string_literals;
  static const std::vector<std::string> texts = {
      "",
      "\r\n",
      "\n",
      "\r",
      "\0"s,
      "\r\r\n",
      "a\r\r\nb\r\n\n\rc",
      "one\ntwo\n\nthree",
      "one\rtwo\r",
      "no end",
      "\xEF\xBB\xBF<html>\r\n",
      "\xFF\xFE"
      "a\0b\0"s,
      "{\\rtf1\\ansi{\\fonttbl\\f0 Arial;}hello\\par}",
      "{\\rtf1 not really",
      everyByte(),
      everyByte() + "\r\n" + everyByte() + "\n",
      std::string(4095, 'x') + "\r\n" + std::string(4095, 'y') + "\r\n",
      "\t<B>\x0B\x0C</B>\x85\xA0\xAD\r\n\x81\x8D\x8F\x90\x9D",
  };
  return texts;
}

class CodeView : public testing::Test {
 protected:
  CodeView() {
    view_.place(window_.hwnd(), 7);
    view_.setBounds({0, 0, 300, 200});
    view_.changed.connect([this] { ++changes_; });
    view_.selectionChanged.connect([this] { ++moves_; });
  }

  void press(wchar_t character) { SendMessageW(view_.hwnd(), WM_CHAR, character, 1); }
  void type(std::wstring_view text) {
    for (const wchar_t c : text) press(c);
  }
  void clipboard(std::wstring_view text) { win32::putClipboardText(window_.hwnd(), text); }

  tests::TestWindow window_;
  win32::RichEditCodeView view_;
  int changes_ = 0;
  int moves_ = 0;
};

TEST_F(CodeView, EveryTextComesBackByteForByteHoweverItCameIn) {
  for (const std::string& text : nastyTexts()) {
    view_.load(text);
    EXPECT_EQ(view_.text(), text);
    // Read anew from the control, as after a user's change.
    SendMessageW(window_.hwnd(), WM_COMMAND, MAKEWPARAM(7, EN_CHANGE),
                 reinterpret_cast<LPARAM>(view_.hwnd()));
    EXPECT_EQ(view_.text(), text);
    view_.load("before\r\n");
    view_.setText(text);
    EXPECT_EQ(view_.text(), text);
    view_.load("ab");
    view_.select(1, 0);
    view_.replaceSelection(text);
    EXPECT_EQ(view_.text(), "a" + text + "b");
  }
}

TEST_F(CodeView, PositionsAreBytesWrappedOrNot) {
  std::mt19937 random(5);
  std::string text;
  while (text.size() < 2000) {
    text += std::string(random() % 90, static_cast<char>('a' + random() % 26)) + "\r\n";
    if (random() % 5 == 0) text += "\xC0 \xC1 \n\xC2";
  }
  for (const bool wrap : {false, true}) {
    view_.setWordWrap(wrap);
    view_.load(text);
    for (int at = 0; at <= static_cast<int>(text.size()); at += 31) {
      const int length = static_cast<int>(random() % 60);
      view_.select(at, length);
      const bool inside = at > 0 && text[static_cast<std::size_t>(at - 1)] == '\r' &&
                          text[static_cast<std::size_t>(at)] == '\n';
      const int start = inside ? at - 1 : at;
      ASSERT_EQ(view_.selStart(), start);
      const auto got = view_.selText();
      ASSERT_EQ(got, text.substr(static_cast<std::size_t>(start), got.size()));
      ASSERT_EQ(static_cast<int>(got.size()), view_.selLength());
      ASSERT_NEAR(view_.selLength(), std::min<int>(length, static_cast<int>(text.size()) - at), 1);
    }
  }
  view_.select(0, 1 << 30);  // all, and more
  EXPECT_EQ(view_.selText(), text);
}

TEST_F(CodeView, CaretCountsLineEndsNotRows) {
  view_.setWordWrap(true);
  view_.load(std::string(500, 'a') + "\r\n" + std::string(200, 'b') + " " + std::string(100, 'c') +
             "\r\nlast");
  view_.select(502 + 250, 0);
  EXPECT_EQ(view_.caret().line, 2);
  EXPECT_EQ(view_.caret().column, 251);
  view_.select(1 << 30, 0);
  EXPECT_EQ(view_.caret().line, 3);
  EXPECT_EQ(view_.caret().column, 5);
}

TEST_F(CodeView, EachEditIsOneStepToUndo) {
  const std::string before = "\xC0\xC1\r\n\xC2 a\n\r\nend";
  const std::string after = "abc\r\nd a\n\r\nfin\r\n";
  view_.load(before);
  EXPECT_FALSE(view_.canUndo());
  view_.setText(after);
  view_.select(3, 2);
  view_.replaceSelection("X\r\nY");
  EXPECT_EQ(view_.text(), "abcX\r\nYd a\n\r\nfin\r\n");
  EXPECT_EQ(view_.selStart(), 7);
  view_.undo();
  EXPECT_EQ(view_.text(), after);
  view_.undo();
  EXPECT_EQ(view_.text(), before);
  EXPECT_FALSE(view_.canUndo());
  view_.redo();
  EXPECT_EQ(view_.text(), after);
}

TEST_F(CodeView, LooksLeaveNoStepToUndo) {
  view_.load("abc");
  type(L"x");
  view_.setFont({"Courier New", 14, true, false, ui::CharacterSet::Russian});
  view_.setBackColor(0x00FFEE);
  view_.setTextColor(0x0000FF);
  view_.setWordWrap(true);
  EXPECT_EQ(view_.text(), "xabc");
  view_.undo();
  EXPECT_EQ(view_.text(), "abc");
  EXPECT_FALSE(view_.canUndo());
}

TEST_F(CodeView, ReportsEachCallOnce) {
  view_.load("abc\r\ndef");
  EXPECT_EQ(changes_, 1);
  view_.setText("abd\r\ndef");
  EXPECT_EQ(changes_, 2);
  view_.replaceSelection("q");
  EXPECT_EQ(changes_, 3);
  view_.undo();
  EXPECT_EQ(changes_, 4);
  moves_ = 0;
  view_.select(2, 3);
  EXPECT_EQ(moves_, 1);
  type(L"z");
  EXPECT_EQ(changes_, 5);
  view_.setFont({"Courier New", 9, false, false, ui::CharacterSet::Ansi});
  EXPECT_EQ(changes_, 5);
}

TEST_F(CodeView, TypedCharactersPassTheFilter) {
  std::vector<int> keys;
  view_.keyPress = [&](int key) {
    keys.push_back(key);
    return key == 'a' ? 0xC0 : key == 'b' ? 0 : key;
  };
  type(L"ab\u20AC");
  press(2);  // Ctrl+B and Ctrl+Y: codes, no text
  press(25);
  EXPECT_EQ(keys, (std::vector<int>{'a', 'b', 0x80, 2, 25}));
  EXPECT_EQ(view_.text(), "\xC0\x80");
}

TEST_F(CodeView, UnicodeBecomesBytesTypedOrPasted) {
  std::vector<std::string> asked;
  view_.unicodeTyped = [&](const std::string& utf8) {
    asked.push_back(utf8);
    return std::string("[") + utf8 + "]";
  };
  type(L"\u10D0\u10D1");
  EXPECT_EQ(view_.text(), "[\u10D0][\u10D1]");
  view_.load("1\r\n2");
  view_.select(1, 0);
  clipboard(L"a\u10D2\u10D3\nb\u0416\xE9");
  asked.clear();
  changes_ = 0;
  view_.paste();
  EXPECT_EQ(asked, (std::vector<std::string>{"\u10D2\u10D3", "\u0416"}));
  EXPECT_EQ(view_.text(), "1a[\u10D2\u10D3]\r\nb[\u0416]\xE9\r\n2");
  EXPECT_EQ(changes_, 1);
  view_.undo();
  EXPECT_EQ(view_.text(), "1\r\n2");
  // A pair of code units is one character.
  press(0xD83D);
  press(0xDE00);
  EXPECT_EQ(asked.back(), "\xF0\x9F\x98\x80");
  // Put there past the keyboard, by another program or an input method.
  SendMessageW(view_.hwnd(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"\u10D4"));
  EXPECT_NE(view_.text().find("[\u10D4]"), std::string::npos);
}

TEST_F(CodeView, PastedAndTypedLineEndsAreTheDocuments) {
  view_.load("a\nb\n");
  view_.select(1 << 30, 0);
  clipboard(L"x\r\ny\rz\n");
  view_.paste();
  SendMessageW(view_.hwnd(), WM_KEYDOWN, VK_RETURN, 1);
  press(L'\r');
  EXPECT_EQ(view_.text(), "a\nb\nx\ny\nz\n\n");
}

TEST_F(CodeView, CopyPutsTheCharactersOfTheBytesOnTheClipboard) {
  view_.load("\xC0\x80\r\nrest");
  view_.select(0, 4);
  SendMessageW(view_.hwnd(), WM_COPY, 0, 0);
  EXPECT_EQ(win32::clipboardText(window_.hwnd()), L"\xC0\u20AC\r\n");
  SendMessageW(view_.hwnd(), WM_CUT, 0, 0);
  EXPECT_EQ(view_.text(), "rest");
  SendMessageW(view_.hwnd(), WM_PASTE, 0, 0);
  EXPECT_EQ(view_.text(), "\xC0\x80\r\nrest");
}

TEST_F(CodeView, RtfShowsInPlaceWithoutAStep) {
  std::string rtf =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Courier New;}"
      "{\\f1\\fnil\\fcharset0 Courier New;}{\\f2\\fnil\\fcharset0 Courier New;}}\r\n"
      "{\\colortbl\\red0\\green0\\blue0;\\red0\\green0\\blue255;}\r\n\\pard\\plain\\f2\\fs20\\cf1 ";
  std::string text;
  for (int i = 0; i < 130; ++i) {  // more than one piece
    text += "l" + std::to_string(i) + " \xC0{\\}\r\n";
    rtf += "l" + std::to_string(i) + " \\'c0\\{\\\\\\}\\par\r\n";
  }
  text += std::string("\0z\n!", 4);
  rtf += "\\'00z\\'0a!}";
  view_.load(text.substr(1));
  type(L"l");
  view_.select(1, 3);
  changes_ = 0;
  view_.setRtf(rtf);
  EXPECT_EQ(changes_, 0);
  EXPECT_EQ(view_.text(), text);
  EXPECT_EQ(view_.selStart(), 1);
  view_.resetFormats();
  EXPECT_EQ(view_.text(), text);
  view_.undo();
  EXPECT_EQ(view_.text(), text.substr(1));
}

TEST_F(CodeView, ItsOwnRtfShowsTheSameText) {
  for (const std::string& text : nastyTexts()) {
    view_.load(text);
    view_.setRtf(view_.rtf());
    EXPECT_EQ(view_.text(), text);
  }
}

TEST_F(CodeView, LongTextsAreExchangedAndUndoneAsOthersAre) {
  std::string before;
  std::string after;
  for (int i = 0; i < 3000; ++i) {
    before += "line " + std::to_string(i) + "\r\n";
    after += "\xC0\xC1 " + std::to_string(i) + "\r\n";
  }
  view_.load(before);
  view_.select(100, 5);
  view_.setText(after);
  EXPECT_TRUE(view_.text() == after);  // a difference would fill the screen
  view_.undo();
  EXPECT_TRUE(view_.text() == before);
  EXPECT_EQ(view_.selStart(), 100);
  EXPECT_EQ(view_.selLength(), 5);
  view_.select(0, static_cast<int>(before.size()));
  SendMessageW(view_.hwnd(), WM_KEYDOWN, VK_DELETE, 1);
  EXPECT_EQ(view_.text(), "");
  SendMessageW(view_.hwnd(), EM_UNDO, 0, 0);
  EXPECT_TRUE(view_.text() == before);
  view_.select(6, 0);
  type(L"xyz");
  EXPECT_EQ(view_.text().substr(0, 9), "line 0xyz");
  view_.undo();  // typed in one go, undone in one go
  EXPECT_TRUE(view_.text() == before);
}

TEST_F(CodeView, KeepsTheTextWhenAnotherCannotBeHeld) {
  view_.load("kept");
  // More line ends than any process's memory can carry.
  const std::string tooLong(std::size_t{32} << 20, '\n');
  EXPECT_THROW(view_.load(tooLong), base::Error);
  EXPECT_THROW(view_.setText(tooLong), base::Error);
  EXPECT_THROW(view_.replaceSelection(tooLong), base::Error);
  EXPECT_EQ(view_.text(), "kept");
}

TEST_F(CodeView, PlaceInALongTextIsKept) {
  std::string text;
  for (int i = 0; i < 500; ++i) text += "line " + std::to_string(i) + "\r\n";
  view_.load(text);
  const int wanted = static_cast<int>(text.find("line 250"));
  view_.setScrollTop(wanted);
  EXPECT_EQ(view_.scrollTop(), wanted);
}

}  // namespace
