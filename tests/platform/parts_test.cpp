// The parts of the platform that need no window, and the small ones that ask the system.
#include <gtest/gtest.h>

#include "base/error.h"
#include "platform/win32/system/credentials.h"
#include "platform/win32/system/registry.h"
#include "platform/win32/system/resources.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/window/common_dialogs.h"
#include "platform/win32/window/menus.h"

namespace {

using namespace ui::literals;
using namespace std::string_literals;

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
  ui::MenuItem colouring{"F12", 13, {VK_F12, false, false, false}, {}, true, false, false, {}};
  colouring.ownKey = true;
  EXPECT_EQ(win32::commandOfShortcut({colouring}, colouring.shortcut), 13);
  EXPECT_EQ(win32::commandOfShortcut({colouring}, colouring.shortcut, true), 0) << "it acts there by itself";
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

TEST(Credentials, SecretsAreKeptByNameUntilTheyAreForgotten) {
  win32::Credentials store;
  const std::string name = "sftp://მე@test.invalid:22";
  store.forget(name);
  EXPECT_EQ(store.read(name), std::nullopt);
  store.keep(name, "მე", "first");
  store.keep(name, "მე", "პაროლი %x");
  EXPECT_EQ(win32::Credentials().read(name), "პაროლი %x");
  EXPECT_EQ(store.read("sftp://test.invalid:22"), std::nullopt);
  store.forget(name);
  EXPECT_EQ(store.read(name), std::nullopt);
}

TEST(Resources, LetterTablesAreThere) {
  EXPECT_FALSE(win32::customResource("GRIGOLIA").empty());
  EXPECT_THROW(win32::customResource("NOT_THERE"), base::Error);
}

TEST(Strings, BytesComeBack) {
  EXPECT_EQ(win32::bytesFromWide(win32::wideFromBytes("a\0b\x81\xFF"s)), "a\0b\x81\xFF"s);
}

}  // namespace
