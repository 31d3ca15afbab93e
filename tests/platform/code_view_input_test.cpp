// What the user enters in the real code view: keys, characters, the clipboard.
#include "base/utf8.h"
#include "platform/win32/system/clipboard.h"
#include "tests/platform/code_view_fixture.h"

namespace {

using namespace std::string_literals;
using tests::CodeViewTest;
using ui::TextView;

// Keys of this thread's keyboard, held down.
class Held {
 public:
  explicit Held(std::initializer_list<int> keys) {
    GetKeyboardState(before_);
    BYTE now[256];
    std::copy(std::begin(before_), std::end(before_), now);
    for (const int key : keys) now[key] = 0x80;
    SetKeyboardState(now);
  }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;
  ~Held() { SetKeyboardState(before_); }

 private:
  BYTE before_[256];
};

TEST_F(CodeViewTest, TypedCharactersEnterAsTheRuleSays) {
  std::u32string met;
  view_.typed = [&](char32_t character) {
    met += character;
    return character == U'ა' ? "\xC0"s : character == 'b' ? ""s : "<" + std::string(1, 'z') + ">";
  };
  type(L"აb\xD83D\xDE00");  // a pair is one character
  send(WM_UNICHAR, 0x10D0, 1);
  EXPECT_EQ(send(WM_UNICHAR, UNICODE_NOCHAR, 1), TRUE);
  type(L"\xDE00");  // the second half alone is none
  EXPECT_EQ(met, U"აb\U0001F600ა");
  EXPECT_EQ(view_.text(), "\xC0<z>\xC0");
  view_.typed = nullptr;
  view_.select(0, 1 << 30);
  type(L"ქ№");  // in place of the selection
  EXPECT_EQ(view_.text(), "ქ№");
}

TEST_F(CodeViewTest, AControlCombinationEntersNothing) {
  std::vector<int> codes;
  view_.controlTyped = [&](int code) { codes.push_back(code); };
  {
    const Held control({VK_CONTROL, VK_LCONTROL});
    key('B');
    type(L"\x02");  // what a Latin layout makes of it
    key('Y');
    type(L"ყა");  // what a Georgian layout may make of it
    send(WM_UNICHAR, 0x10D0, 1);
    key('A');
    key('Z');
    key(VK_RETURN);
  }
  EXPECT_EQ(view_.text(), "");
  EXPECT_EQ(codes, (std::vector<int>{2, 25}));
  const Held altGr({VK_CONTROL, VK_LCONTROL, VK_MENU, VK_RMENU});
  type(L"€");
  EXPECT_EQ(view_.text(), "€");
}

TEST_F(CodeViewTest, ATypedWordIsOneStep) {
  for (const TextView shown : {TextView::EightBit, TextView::Utf8}) {
    view_.load("");
    view_.setView(shown);
    type(L"ქართული ენა");
    undo();
    EXPECT_EQ(view_.text(), "ქართული ");
    undo();
    EXPECT_EQ(view_.text(), "");
    EXPECT_FALSE(view_.canUndo());
    view_.redo();
    view_.redo();
    EXPECT_EQ(view_.text(), "ქართული ენა");
    view_.load("ab");
    view_.setView(shown);
    view_.select(0, 0);
    type(L"xy");
    view_.select(4, 0);  // elsewhere
    type(L"zw");
    undo();
    EXPECT_EQ(view_.text(), "xyab");
    view_.select(1, 2);
    type(L"nm");  // over a selection
    EXPECT_EQ(view_.text(), "xnmb");
    while (view_.text() != "xyab") undo();
    undo();
    EXPECT_EQ(view_.text(), "ab");
  }
}

TEST_F(CodeViewTest, KeysGoByTheLettersOfTheView) {
  const std::string text = "ა\xE1\x83\r\nბ";
  view_.load(text);
  view_.setView(TextView::Utf8);
  view_.select(1 << 30, 0);
  std::vector<std::string> seen;
  const std::vector<std::string> wanted = {"ა\xE1\x83\r\n", "ა\xE1\x83", "ა\xE1", "ა", ""};
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    key(VK_BACK);
    seen.emplace_back(view_.text());
  }
  EXPECT_EQ(seen, wanted);
  view_.setText(text);
  view_.select(0, 0);
  key(VK_RIGHT);
  EXPECT_EQ(view_.selStart(), 3);
  key(VK_DELETE);
  EXPECT_EQ(view_.text(), "ა\x83\r\nბ");
  view_.setView(TextView::EightBit);
  view_.select(2, 0);
  key(VK_LEFT);
  EXPECT_EQ(view_.selStart(), 1);
  key(VK_DELETE);
  EXPECT_EQ(view_.text(), "\xE1\x90\x83\r\nბ");
}

TEST_F(CodeViewTest, EnterWritesTheDocumentsOwnLineEnd) {
  view_.load("a\nb\n");
  view_.select(1, 0);
  key(VK_RETURN);
  type(L"\r");  // what the key also gives
  EXPECT_EQ(view_.text(), "a\n\nb\n");
  view_.setText("a\rb\r");
  view_.select(1, 0);
  key(VK_RETURN);
  EXPECT_EQ(view_.text(), "a\r\rb\r");
  view_.load("");
  key(VK_RETURN);
  EXPECT_EQ(view_.text(), "\r\n");
  undo();
  const auto other = view_.document();
  view_.load("x");
  other->setText("1\n2\n");  // while it is not shown
  view_.show(other);
  key(VK_RETURN);
  EXPECT_EQ(view_.text(), "\n1\n2\n");
}

TEST_F(CodeViewTest, TheClipboardCarriesBytesAndLetters) {
  const std::string bytes = tests::everyByte();
  ui::TextClip clip;
  clip.bytes = bytes;
  clip.letters = "ქართული";
  clip.form = 3;
  clip.source = view_.document()->number;
  win32::putClip(window_.hwnd(), clip);
  EXPECT_EQ(win32::clipboardText(window_.hwnd()), L"ქართული");
  ASSERT_TRUE(OpenClipboard(window_.hwnd()));
  const HANDLE ansi = GetClipboardData(CF_TEXT);
  EXPECT_EQ(std::string(static_cast<const char*>(GlobalLock(ansi))), "") << "up to the first NUL";
  GlobalUnlock(ansi);
  CloseClipboard();
  view_.load("[]");
  view_.select(1, 0);
  changes_ = 0;
  send(WM_PASTE);
  EXPECT_EQ(view_.text(), "[" + bytes + "]");
  EXPECT_EQ(changes_, 1);
  undo();
  EXPECT_EQ(view_.text(), "[]");

  ui::TextClip met;
  view_.entering = [&](const ui::TextClip& entering) {
    met = entering;
    return "!"s;
  };
  const Held shift({VK_SHIFT});
  key(VK_INSERT);
  EXPECT_EQ(view_.text(), "[!]");
  EXPECT_EQ(met.bytes, bytes);
  EXPECT_EQ(met.form, 3);
  EXPECT_EQ(met.source, clip.source);
  // Of another program: letters alone.
  ASSERT_TRUE(OpenClipboard(window_.hwnd()));
  EmptyClipboard();
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 8);
  std::copy_n(L"ჰ№", 3, static_cast<wchar_t*>(GlobalLock(block)));
  GlobalUnlock(block);
  SetClipboardData(CF_UNICODETEXT, block);
  CloseClipboard();
  view_.paste();
  EXPECT_EQ(met.letters, "ჰ№");
  EXPECT_EQ(met.bytes, "");
  EXPECT_EQ(met.source, 0U);
}

}  // namespace
