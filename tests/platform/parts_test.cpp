// The parts of the platform that need no window, and the small ones that ask the system.
#include <gtest/gtest.h>

#include "base/error.h"
#include "platform/win32/code_text.h"
#include "platform/win32/common_dialogs.h"
#include "platform/win32/edit_history.h"
#include "platform/win32/menus.h"
#include "platform/win32/registry.h"
#include "platform/win32/resources.h"
#include "platform/win32/rtf_pieces.h"
#include "platform/win32/strings.h"

namespace {

using namespace ui::literals;
using namespace std::string_literals;

TEST(CodeText, ALineEndIsWhatTheDocumentUses) {
  EXPECT_EQ(win32::lineEndOf("a\nb\r\n"), win32::LineEnd::CrLf);
  EXPECT_EQ(win32::lineEndOf("a\rb\n"), win32::LineEnd::Lf);
  EXPECT_EQ(win32::lineEndOf("a\rb"), win32::LineEnd::Cr);
  EXPECT_EQ(win32::lineEndOf("ab"), win32::LineEnd::CrLf);
  EXPECT_EQ(win32::controlFromBytes("a\r\n\r\r\n\n", win32::LineEnd::CrLf), L"a\r\xE00D\r\xE00A");
  EXPECT_EQ(win32::controlFromBytes("a\r\n\n", win32::LineEnd::Lf), L"a\xE00D\r\r");
  // The control would show nothing for a byte without a letter.
  EXPECT_EQ(win32::controlFromBytes("\xE1\x83\x90\x80", win32::LineEnd::CrLf), L"\u00E1\u0192\uE090\u20AC");
}

TEST(CodeText, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  std::string bytes;
  win32::LineBreaks breaks;
  for (const win32::LineEnd lineEnd : {win32::LineEnd::CrLf, win32::LineEnd::Lf, win32::LineEnd::Cr}) {
    ASSERT_TRUE(win32::bytesFromControl(win32::controlFromBytes(all, lineEnd), lineEnd, bytes, breaks));
    EXPECT_EQ(bytes, all);
  }
  EXPECT_FALSE(win32::bytesFromControl(L"\u10D0", win32::LineEnd::CrLf, bytes, breaks));
}

TEST(CodeText, PositionsGoBothWays) {
  std::string bytes;
  win32::LineBreaks breaks;
  ASSERT_TRUE(win32::bytesFromControl(L"ab\r\rc", win32::LineEnd::CrLf, bytes, breaks));
  ASSERT_EQ(bytes, "ab\r\n\r\nc");
  const int byteOf[] = {0, 1, 2, 4, 6, 7};
  for (int at = 0; at < 6; ++at) {
    EXPECT_EQ(breaks.byteOf(at), byteOf[at]);
    EXPECT_EQ(breaks.controlOf(byteOf[at]), at);
  }
  EXPECT_EQ(breaks.controlOf(3), 2);  // inside a line end
  EXPECT_EQ(breaks.controlOf(5), 3);
  EXPECT_EQ(breaks.lineOf(4), 2);
  EXPECT_EQ(breaks.startOf(2), 4);
  EXPECT_FALSE(win32::bytesFromControl(L"\u10D0", win32::LineEnd::CrLf, bytes, breaks));
}

TEST(EditHistory, AnEditIsWhatDiffersAndNeverHalfALineEnd) {
  const auto edit = win32::editBetween("ab\r\ncd", "ab\r\n\r\ncd");
  ASSERT_TRUE(edit.has_value());
  EXPECT_EQ("ab\r\ncd"s.replace(edit->at, edit->removed.size(), edit->inserted), "ab\r\n\r\ncd");
  EXPECT_NE(edit->inserted.substr(0, 1), "\n");
  EXPECT_FALSE(win32::editBetween("same", "same").has_value());
  const auto lone = win32::editBetween("a\rb", "a\r\nb");
  EXPECT_EQ(lone->at, 1U);
}

TEST(EditHistory, TypingJoinsUntilSomethingElseHappens) {
  win32::EditHistory history;
  history.addTyped({0, "", "a"});
  history.addTyped({1, "", "b"});
  history.addTyped({2, "", "\r\n"});
  history.addTyped({4, "", "c"});
  EXPECT_EQ(history.undo().inserted, "c");
  EXPECT_EQ(history.undo().inserted, "\r\n");
  EXPECT_EQ(history.undo().inserted, "ab");
  EXPECT_FALSE(history.canUndo());
  EXPECT_EQ(history.redo().inserted, "ab");
  history.add({2, "", "x"});
  EXPECT_FALSE(history.canRedo());
}

TEST(RtfPieces, EachIsWholeAndCarriesTheFormatOn) {
  std::string rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 A;}}{\\colortbl;}\\pard\\f0\\cf2 ";
  for (int i = 0; i < 60; ++i) rtf += "x\\{\\par\r\n";
  rtf += "end\\'00}";
  const auto pieces = win32::rtfPieces(rtf);
  ASSERT_EQ(pieces.size(), 2U);
  for (const std::string& piece : pieces) {
    EXPECT_EQ(piece.find("{\\rtf1\\ansi{\\fonttbl{\\f0 A;}}{\\colortbl;}"), 0U);
    EXPECT_EQ(piece.back(), '}');
  }
  EXPECT_NE(pieces[1].find("\\cf2 "), std::string::npos);
  EXPECT_NE(pieces[1].find("\\u-8192?"), std::string::npos);
}

TEST(Menus, AreFoundByKeyAndByLetterInAnyLayout) {
  ui::MenuItem open{"|3|×ÀÉËÉ"_legacy, 11, ui::ctrl('O'), {}, true, false, false, {}};
  ui::MenuItem plain{"&Undo", 12, {}, {}, false, true, false, {}};
  ui::MenuItem inner{"", 0, {}, {}, true, false, false, {}};
  inner.caption = "sub";
  inner.items = {plain};
  const std::vector<ui::MenuItem> items = {open, {}, inner};
  const win32::Menu menu(items, win32::Menu::Kind::PopUp);
  wchar_t text[80];
  GetMenuStringW(menu.handle(), 0, text, 80, MF_BYPOSITION);
  EXPECT_EQ(std::wstring(text), L"ფაილი\tCtrl+O");
  EXPECT_NE(GetMenuState(menu.handle(), 1, MF_BYPOSITION) & MF_SEPARATOR, 0U);
  const UINT undo = GetMenuState(menu.handle(), 12, MF_BYCOMMAND);
  EXPECT_NE(undo & MF_GRAYED, 0U);
  EXPECT_NE(undo & MF_CHECKED, 0U);
  EXPECT_EQ(win32::commandOfShortcut(items, ui::ctrl('O')), 11);
  EXPECT_EQ(win32::commandOfShortcut(items, ui::ctrlShift('O')), 0);
  const LRESULT first = MAKELRESULT(0, MNC_EXECUTE);
  EXPECT_EQ(win32::menuCharacter(menu.handle(), L'ფ'), first);
  EXPECT_EQ(win32::menuCharacter(menu.handle(), L'f'), first);  // the key on which ფ stands
  EXPECT_EQ(win32::menuCharacter(GetSubMenu(menu.handle(), 2), L'u'), MAKELRESULT(0, MNC_EXECUTE));
  EXPECT_EQ(win32::pickItems(items, {12, 0, 99}).size(), 2U);
}

TEST(CommonDialogs, FiltersAndAnswers) {
  EXPECT_EQ(win32::filterPieces("A(*.a)|*.a|B|*.b"), L"A(*.a)\0*.a\0B\0*.b\0\0"s);
  const std::string filter = "HTML|*.HTML;*.htm|Style|*.css|All|*.*";
  const auto chosen = [&](const char* name) {
    const win32::FilterChoice choice = win32::filterFor(filter, name);
    return std::to_wstring(choice.index) + choice.extension;
  };
  EXPECT_EQ(chosen("a.HTM"), L"1HTML");
  EXPECT_EQ(chosen("nosaved1.CSS"), L"2css");
  EXPECT_EQ(chosen("a.xyz"), L"1HTML");
  EXPECT_EQ(chosen("*"), L"3") << "no extension is added";
  EXPECT_EQ(win32::pathsOfAnswer(L"C:\\d\0a.htm\0ბ.htm"s),
            (std::vector<std::string>{"C:\\d\\a.htm", "C:\\d\\ბ.htm"}));
  EXPECT_EQ(win32::pathsOfAnswer(L"C:\\d\\a.htm"), std::vector<std::string>{"C:\\d\\a.htm"});
  EXPECT_TRUE(win32::pathsOfAnswer(L"").empty());
}

TEST(Registry, ValuesComeBack) {
  const std::string value = "C:\\ქართული\\" + std::string(1000, 'x');
  win32::setRegistryValue("test", "key", value);
  EXPECT_EQ(win32::registryValue("test", "key"), value);
  EXPECT_EQ(win32::registryValue("test", "no such key"), "");
  RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Zervo\\test");
}

TEST(Resources, LetterTablesAreThere) {
  EXPECT_FALSE(win32::customResource("GRIGOLIA").empty());
  EXPECT_THROW(win32::customResource("NOT_THERE"), base::Error);
}

TEST(Strings, BytesComeBack) {
  EXPECT_EQ(win32::bytesFromWide(win32::wideFromBytes("a\0b\x81\xFF"s)), "a\0b\x81\xFF"s);
}

}  // namespace
