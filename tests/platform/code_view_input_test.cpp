// What the user enters in the real code view: keys, characters, the clipboard.
#include <ole2.h>

#include "base/utf8.h"
#include "platform/win32/system/clip_data.h"
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

// The pointer goes from the letter at `from` to the one at `to`; a released button is all that a drag sees.
class CodeViewDrag : public CodeViewTest {
 protected:
  POINT pointOf(int at) {
    return {static_cast<LONG>(send(SCI_POINTXFROMPOSITION, 0, at)) + 1,
            static_cast<LONG>(send(SCI_POINTYFROMPOSITION, 0, at)) + 2};
  }
  POINT onScreen(POINT point) {
    ClientToScreen(view_.hwnd(), &point);
    return point;
  }
  void press(POINT point) { send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y)); }
  void dragTo(POINT from, POINT screen) {
    paintNow();
    press(from);
    SetCursorPos(screen.x, screen.y);
    send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(from.x + 50, from.y));
  }
};

TEST_F(CodeViewDrag, InsideMovesTheBytesInOneStep) {
  const std::string text = "one \xE1\x83 two three";
  view_.load(text);
  view_.select(4, 3);
  changes_ = 0;
  dragTo(pointOf(5), onScreen(pointOf(12)));
  EXPECT_EQ(view_.text(), "one two t\xE1\x83 hree");
  EXPECT_EQ(changes_, 1);
  undo();
  EXPECT_EQ(view_.text(), text);
  EXPECT_FALSE(view_.canUndo());
  // A click alone takes the selection away.
  view_.select(4, 3);
  const POINT point = pointOf(5);
  press(point);
  EXPECT_EQ(view_.selLength(), 3);
  send(WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
  EXPECT_EQ(view_.selLength(), 0);
  EXPECT_EQ(view_.selStart(), 5);
}

// Another program's window, which takes what is dropped there as its own.
class Taker final : public IDropTarget {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) != 0 || IsEqualIID(id, IID_IDropTarget) != 0;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override {
    *effect = takes;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
    *effect = takes;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    *effect = takes;
    FORMATETC unicode{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (data->GetData(&unicode, &medium) != S_OK) return S_OK;
    letters = win32::textOfGlobal(medium.hGlobal);
    ReleaseStgMedium(&medium);
    bytes = win32::clipOf(*data).bytes;
    return S_OK;
  }
  DWORD takes = DROPEFFECT_COPY;
  std::wstring letters;
  std::string bytes;
};

TEST_F(CodeViewDrag, LeavesAsLettersAndComesInLikeAPaste) {
  view_.load("x \xC0\xC1\xC2\xC3 y");
  view_.leaving = [](std::string bytes) { return ui::TextClip{std::move(bytes), "აბგდ", 2, 1}; };
  view_.select(2, 4);
  SetWindowPos(window_.hwnd(), HWND_TOPMOST, 0, 0, 640, 480, 0);
  Taker taker;
  const HWND other = CreateWindowExW(WS_EX_TOPMOST, L"BUTTON", L"", WS_POPUP | WS_VISIBLE, 700, 100, 100, 100,
                                     nullptr, nullptr, nullptr, nullptr);
  ASSERT_EQ(RegisterDragDrop(other, &taker), S_OK);
  dragTo(pointOf(3), {750, 150});
  EXPECT_EQ(taker.letters, L"აბგდ");
  EXPECT_EQ(taker.bytes, "\xC0\xC1\xC2\xC3");
  EXPECT_EQ(view_.text(), "x \xC0\xC1\xC2\xC3 y") << "a copy";
  taker.takes = DROPEFFECT_MOVE;
  view_.select(2, 4);
  Sleep(GetDoubleClickTime());
  dragTo(pointOf(3), {750, 150});
  EXPECT_EQ(view_.text(), "x  y");
  undo();
  EXPECT_EQ(view_.text(), "x \xC0\xC1\xC2\xC3 y");
  RevokeDragDrop(other);
  DestroyWindow(other);

  ui::TextClip met;
  view_.entering = [&](const ui::TextClip& entering) {
    met = entering;
    return "!"s;
  };
  auto* const target = static_cast<IDropTarget*>(GetPropW(view_.hwnd(), L"OleDropTargetInterface"));
  ASSERT_NE(target, nullptr);
  IDataObject* const data = win32::makeClipData({"", "ჰ№"});
  const POINT at = onScreen(pointOf(1));
  DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
  target->DragEnter(data, 0, {at.x, at.y}, &effect);
  EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY));
  target->Drop(data, 0, {at.x, at.y}, &effect);
  data->Release();
  EXPECT_EQ(met.letters, "ჰ№");
  EXPECT_EQ(met.bytes, "");
  EXPECT_EQ(view_.text(), "x! \xC0\xC1\xC2\xC3 y");
  undo();
  EXPECT_EQ(view_.text(), "x \xC0\xC1\xC2\xC3 y");
}

}  // namespace
