#include "platform/win32/window/menus.h"

#include <algorithm>
#include <map>

#include "platform/win32/drawing/dpi.h"
#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/strings.h"
#include "ui/icons/menu_icons.h"

namespace win32 {
namespace {

// The row of an item of ours; null: none, or a menu of the system's.
const MenuRow* rowOf(HMENU menu, UINT item, bool byPosition) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_DATA;
  if (GetMenuItemInfoW(menu, item, byPosition ? TRUE : FALSE, &info) == 0) return nullptr;
  return reinterpret_cast<const MenuRow*>(info.dwItemData);
}

wchar_t upper(wchar_t c) {
  return static_cast<wchar_t>(
      reinterpret_cast<UINT_PTR>(CharUpperW(reinterpret_cast<wchar_t*>(static_cast<UINT_PTR>(c)))));
}

// The letter marked with "&"; 0: none is.
wchar_t mnemonic(const std::wstring& caption) {
  for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != L'&') continue;
    if (caption[at + 1] != L'&') return upper(caption[at + 1]);
    ++at;
  }
  return L'\0';
}

}  // namespace

Menu::Menu(const std::vector<ui::MenuItem>& items, Kind kind)
    : menu_(kind == Kind::Bar ? CreateMenu() : CreatePopupMenu()) {
  add(menu_.get(), items, kind == Kind::Bar);
}

void Menu::add(HMENU menu, const std::vector<ui::MenuItem>& items, bool bar) {
  UINT position = 0;
  for (const ui::MenuItem& item : items) {
    const ui::MenuCaption caption = ui::menuCaption(item.caption);
    MenuRow& row = rows_.emplace_back();
    row.caption = wideFromText(caption.text);
    row.shortcut = wideFromUtf8(ui::shortcutText(item.shortcut));
    row.text = row.shortcut.empty() ? row.caption : row.caption + L"\t" + row.shortcut;
    row.icon = item.drawing.empty() ? ui::menuIconDrawing(caption.icon) : item.drawing;
    row.help = item.help;
    row.separator = item.separator();
    row.inBar = bar;
    row.radio = item.radio;
    row.accessible = {static_cast<DWORD>(MSAA_MENU_SIG), static_cast<DWORD>(row.text.size()),
                      row.text.data()};

    // The text is there too, for screen readers and for scripts that look items up by it.
    const bool plain = bar && menuFontHasGeorgian();
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA | MIIM_ID;
    info.fType = (plain ? 0U : MFT_OWNERDRAW) | (row.separator ? MFT_SEPARATOR : 0U) |
                 (row.radio ? MFT_RADIOCHECK : 0U);
    info.dwItemData = reinterpret_cast<ULONG_PTR>(&row);
    info.wID = static_cast<UINT>(item.command);
    if (!row.separator) {
      info.fMask |= MIIM_STRING;
      info.dwTypeData = row.text.data();
    }
    if (!item.items.empty()) {
      info.fMask |= MIIM_SUBMENU;
      info.hSubMenu = CreatePopupMenu();
      add(info.hSubMenu, item.items, false);
    }
    InsertMenuItemW(menu, position++, TRUE, &info);
  }
  refreshItems(menu, items);
}

void Menu::refreshItems(HMENU menu, const std::vector<ui::MenuItem>& items) {
  UINT position = 0;
  for (const ui::MenuItem& item : items) {
    EnableMenuItem(menu, position, MF_BYPOSITION | (item.enabled ? MF_ENABLED : MF_GRAYED));
    CheckMenuItem(menu, position, MF_BYPOSITION | (item.checked ? MF_CHECKED : MF_UNCHECKED));
    if (!item.items.empty()) refreshItems(GetSubMenu(menu, static_cast<int>(position)), item.items);
    ++position;
  }
}

bool drawsMenu(HWND window, UINT message, LPARAM lParam) {
  if (message == WM_MEASUREITEM) {
    auto& item = *reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
    if (item.CtlType != ODT_MENU || item.itemData == 0) return false;
    measureMenuRow(window, item);
    return true;
  }
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
  if (item.CtlType != ODT_MENU || item.itemData == 0) return false;
  drawMenuRow(item, dpiOf(window));
  return true;
}

LRESULT menuCharacter(HMENU menu, wchar_t character) {
  const wchar_t typed = upper(character);
  // A Georgian menu is also served by the Latin key on which the letter stands.
  const std::wstring georgian =
      character < 0x80 ? wideFromText({std::string(1, static_cast<char>(character)), ui::TextKind::Keyboard})
                       : std::wstring();
  const auto isTyped = [&](wchar_t letter) {
    return letter == typed || (!georgian.empty() && letter == upper(georgian[0]));
  };
  // Rows without a marked letter answer to their first one, where no other is marked with it.
  std::vector<int> found;
  std::vector<int> unmarked;
  int lit = -1;
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    if ((GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_HILITE) != 0) lit = i;
    const MenuRow* row = rowOf(menu, static_cast<UINT>(i), true);
    if (row == nullptr || row->separator || row->caption.empty()) continue;
    const wchar_t letter = mnemonic(row->caption);
    if (letter != 0 && isTyped(letter)) found.push_back(i);
    if (letter == 0 && isTyped(upper(row->caption[0]))) unmarked.push_back(i);
  }
  if (found.empty()) found = unmarked;
  if (found.empty()) return MAKELRESULT(0, MNC_IGNORE);
  if (found.size() == 1) return MAKELRESULT(found[0], MNC_EXECUTE);
  const auto next = std::upper_bound(found.begin(), found.end(), lit);
  return MAKELRESULT(next == found.end() ? found[0] : *next, MNC_SELECT);
}

ui::Text menuHelp(WPARAM wParam, LPARAM lParam) {
  const UINT flags = HIWORD(wParam);
  const auto menu = reinterpret_cast<HMENU>(lParam);
  if (menu == nullptr || (flags & (MF_SYSMENU | MF_SEPARATOR)) != 0) return {};
  const MenuRow* row = rowOf(menu, LOWORD(wParam), (flags & MF_POPUP) != 0);
  return row == nullptr ? ui::Text() : row->help;
}

int commandOfShortcut(const std::vector<ui::MenuItem>& items, const ui::Shortcut& pressed, bool inText) {
  const ui::Shortcut wanted = ui::asMenusNameIt(pressed);
  for (const ui::MenuItem& item : items) {
    if (item.command != 0 && item.shortcut == wanted && !(inText && item.ownKey)) return item.command;
    if (const int inside = commandOfShortcut(item.items, wanted, inText)) return inside;
  }
  return 0;
}

std::vector<ui::MenuItem> pickItems(const std::vector<ui::MenuItem>& items, const std::vector<int>& ids) {
  std::map<int, const ui::MenuItem*> known;
  const auto collect = [&known](const auto& self, const std::vector<ui::MenuItem>& level) -> void {
    for (const ui::MenuItem& item : level) {
      if (item.command != 0) known[item.command] = &item;
      self(self, item.items);
    }
  };
  collect(collect, items);
  std::vector<ui::MenuItem> picked;
  for (const int id : ids) {
    if (id == 0) {
      picked.emplace_back();
    } else if (known.count(id) != 0) {
      picked.push_back(*known[id]);
    }
  }
  return picked;
}

int showPopup(HWND owner, const std::vector<ui::MenuItem>& items, POINT screen) {
  if (items.empty()) return 0;
  const Menu menu(items, Menu::Kind::PopUp);
  return TrackPopupMenu(menu.handle(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner,
                        nullptr);
}

}  // namespace win32
