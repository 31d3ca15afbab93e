#include "platform/win32/menus.h"

#include <algorithm>
#include <map>

#include "platform/win32/dpi.h"
#include "platform/win32/fonts.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

// In 1/96 inch.
constexpr int kGutter = 26;     // for check marks
constexpr int kRightEdge = 20;  // for the arrow of a submenu
constexpr int kShortcutGap = 24;
constexpr int kLinePadding = 7;
constexpr int kSeparatorHeight = 9;

HFONT menuFont(int dpi) {
  static std::map<int, UniqueFont> fonts;  // of the densities met so far
  UniqueFont& font = fonts[dpi];
  if (!font) font = interfaceFont(dpi);
  return font.get();
}

SIZE measured(HDC screen, const std::wstring& text) {
  RECT box{};
  DrawTextW(screen, text.c_str(), -1, &box, DT_CALCRECT | DT_SINGLELINE);
  return {box.right, box.bottom};
}

void measure(HWND window, MEASUREITEMSTRUCT& item) {
  const auto& row = *reinterpret_cast<const MenuRow*>(item.itemData);
  const int dpi = dpiOf(window);
  const HDC screen = GetDC(window);
  const HGDIOBJ old = SelectObject(screen, menuFont(dpi));
  const SIZE caption = measured(screen, row.caption);
  const SIZE shortcut = measured(screen, row.shortcut);
  SelectObject(screen, old);
  ReleaseDC(window, screen);
  if (row.inBar) {
    item.itemWidth = static_cast<UINT>(caption.cx + scaled(2, dpi));  // the system adds its own at both sides
    item.itemHeight = static_cast<UINT>(std::max<int>(caption.cy, GetSystemMetrics(SM_CYMENU) - 1));
    return;
  }
  const int gap = row.shortcut.empty() ? 0 : scaled(kShortcutGap, dpi) + shortcut.cx;
  item.itemWidth = static_cast<UINT>(scaled(kGutter + kRightEdge, dpi) + caption.cx + gap);
  item.itemHeight = static_cast<UINT>(row.separator ? scaled(kSeparatorHeight, dpi)
                                                    : caption.cy + scaled(kLinePadding, dpi));
}

void drawMark(HDC screen, RECT box, bool radio, int dpi, COLORREF color) {
  const int x = (box.left + box.right) / 2;
  const int y = (box.top + box.bottom) / 2;
  const int unit = scaled(4, dpi);
  const HGDIOBJ pen = CreatePen(PS_SOLID, std::max(1, scaled(2, dpi)), color);
  const HGDIOBJ brush = CreateSolidBrush(color);
  const HGDIOBJ oldPen = SelectObject(screen, pen);
  const HGDIOBJ oldBrush = SelectObject(screen, brush);
  if (radio) {
    Ellipse(screen, x - unit / 2 - 1, y - unit / 2 - 1, x + unit / 2 + 2, y + unit / 2 + 2);
  } else {
    const POINT tick[] = {{x - unit, y}, {x - unit / 4, y + unit * 3 / 4}, {x + unit, y - unit}};
    Polyline(screen, tick, 3);
  }
  SelectObject(screen, oldPen);
  SelectObject(screen, oldBrush);
  DeleteObject(pen);
  DeleteObject(brush);
}

void draw(HWND window, const DRAWITEMSTRUCT& item) {
  const auto& row = *reinterpret_cast<const MenuRow*>(item.itemData);
  const int dpi = dpiOf(window);
  const bool grey = (item.itemState & (ODS_GRAYED | ODS_DISABLED | ODS_INACTIVE)) != 0;
  const bool lit = !row.separator && (item.itemState & (ODS_SELECTED | ODS_HOTLIGHT)) != 0;
  const int back = lit ? COLOR_HIGHLIGHT : row.inBar ? COLOR_MENUBAR : COLOR_MENU;
  const COLORREF color = GetSysColor(grey ? COLOR_GRAYTEXT : lit ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT);
  FillRect(item.hDC, &item.rcItem, GetSysColorBrush(back));
  RECT box = item.rcItem;
  if (row.separator) {
    box.top += (box.bottom - box.top) / 2 - 1;
    box.left += scaled(kGutter, dpi);
    DrawEdge(item.hDC, &box, EDGE_ETCHED, BF_TOP);
    return;
  }
  SetBkMode(item.hDC, TRANSPARENT);
  SetTextColor(item.hDC, color);
  const HGDIOBJ old = SelectObject(item.hDC, menuFont(dpi));
  const UINT format = DT_SINGLELINE | DT_VCENTER | ((item.itemState & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0U);
  if (row.inBar) {
    DrawTextW(item.hDC, row.caption.c_str(), -1, &box, format | DT_CENTER);
  } else {
    RECT gutter = box;
    gutter.right = gutter.left + scaled(kGutter, dpi);
    if ((item.itemState & ODS_CHECKED) != 0) drawMark(item.hDC, gutter, row.radio, dpi, color);
    box.left = gutter.right;
    box.right -= scaled(kRightEdge, dpi);
    DrawTextW(item.hDC, row.caption.c_str(), -1, &box, format);
    DrawTextW(item.hDC, row.shortcut.c_str(), -1, &box, format | DT_RIGHT | DT_NOPREFIX);
  }
  SelectObject(item.hDC, old);
}

const MenuRow* rowAt(HMENU menu, int position) {
  MENUITEMINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = MIIM_DATA | MIIM_FTYPE;
  GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
  return (info.fType & MFT_OWNERDRAW) != 0 ? reinterpret_cast<const MenuRow*>(info.dwItemData) : nullptr;
}

wchar_t upper(wchar_t c) {
  return static_cast<wchar_t>(
      reinterpret_cast<UINT_PTR>(CharUpperW(reinterpret_cast<wchar_t*>(static_cast<UINT_PTR>(c)))));
}

// The letter that chooses the row: the one marked with "&", else the first.
wchar_t mnemonic(const std::wstring& caption) {
  for (std::size_t at = 0; at + 1 < caption.size(); ++at) {
    if (caption[at] != L'&') continue;
    if (caption[at + 1] != L'&') return upper(caption[at + 1]);
    ++at;
  }
  return caption.empty() ? L'\0' : upper(caption[0]);
}

}  // namespace

Menu::Menu(const std::vector<ui::MenuItem>& items, Kind kind)
    : menu_(kind == Kind::Bar ? CreateMenu() : CreatePopupMenu()) {
  add(menu_.get(), items, kind == Kind::Bar);
}

void Menu::add(HMENU menu, const std::vector<ui::MenuItem>& items, bool bar) {
  UINT position = 0;
  for (const ui::MenuItem& item : items) {
    MenuRow& row = rows_.emplace_back();
    row.caption = wideFromText(ui::menuCaption(item.caption).text);
    row.shortcut = wideFromUtf8(ui::shortcutText(item.shortcut));
    row.separator = item.separator();
    row.inBar = bar;
    row.radio = item.radio;

    // The text is there too, for screen readers and for scripts that look items up by it.
    std::wstring text = row.shortcut.empty() ? row.caption : row.caption + L"\t" + row.shortcut;
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_DATA | MIIM_ID;
    info.fType = MFT_OWNERDRAW | (row.separator ? MFT_SEPARATOR : 0U) | (row.radio ? MFT_RADIOCHECK : 0U);
    info.dwItemData = reinterpret_cast<ULONG_PTR>(&row);
    info.wID = static_cast<UINT>(item.command);
    if (!row.separator) {
      info.fMask |= MIIM_STRING;
      info.dwTypeData = text.data();
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
    measure(window, item);
    return true;
  }
  const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
  if (item.CtlType != ODT_MENU || item.itemData == 0) return false;
  draw(window, item);
  return true;
}

LRESULT menuCharacter(HMENU menu, wchar_t character) {
  const wchar_t typed = upper(character);
  // A Georgian menu is also served by the Latin key on which the letter stands.
  const std::wstring georgian =
      character < 0x80 ? wideFromText({std::string(1, static_cast<char>(character)), ui::TextKind::Keyboard})
                       : std::wstring();
  std::vector<int> found;
  int lit = -1;
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    if ((GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_HILITE) != 0) lit = i;
    const MenuRow* row = rowAt(menu, i);
    if (row == nullptr || row->separator) continue;
    const wchar_t letter = mnemonic(row->caption);
    if (letter == typed || (!georgian.empty() && letter == upper(georgian[0]))) found.push_back(i);
  }
  if (found.empty()) return MAKELRESULT(0, MNC_IGNORE);
  if (found.size() == 1) return MAKELRESULT(found[0], MNC_EXECUTE);
  const auto next = std::upper_bound(found.begin(), found.end(), lit);
  return MAKELRESULT(next == found.end() ? found[0] : *next, MNC_SELECT);
}

int commandOfShortcut(const std::vector<ui::MenuItem>& items, const ui::Shortcut& pressed) {
  for (const ui::MenuItem& item : items) {
    if (item.command != 0 && item.shortcut == pressed) return item.command;
    if (const int inside = commandOfShortcut(item.items, pressed)) return inside;
  }
  return 0;
}

std::vector<ui::MenuItem> pickItems(const std::vector<ui::MenuItem>& items, std::initializer_list<int> ids) {
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
