// Menus as data. The platform shows them and reports the chosen command id.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ui/icons/menu_icons.h"
#include "ui/text.h"

namespace ui {

// A key with its modifiers. `key` is a Windows virtual-key number, which names the key and not the letter on
// it, so a shortcut works under a Georgian or Russian keyboard layout; letters are their upper-case ASCII.
struct Shortcut {
  int key = 0;  // 0: none
  bool ctrl = false;
  bool shift = false;
  bool alt = false;
  bool operator==(const Shortcut&) const = default;
};

inline constexpr int kKeyF1 = 0x70;  // F2 is kKeyF1 + 1, ...
inline constexpr int kKeyTab = 0x09;
inline constexpr int kKeyEscape = 0x1B;
inline constexpr int kKeyReturn = 0x0D;
inline constexpr int kKeySpace = 0x20;
inline constexpr int kKeyEnd = 0x23;
inline constexpr int kKeyHome = 0x24;
inline constexpr int kKeyLeft = 0x25;
inline constexpr int kKeyUp = 0x26;
inline constexpr int kKeyRight = 0x27;
inline constexpr int kKeyDown = 0x28;
inline constexpr int kKeyDelete = 0x2E;
inline constexpr int kKeyPlus = 0xBB;  // of the main keyboard, whatever stands on it with Shift
inline constexpr int kKeyMinus = 0xBD;
inline constexpr int kKeyNumber0 = 0x60;  // of the number pad, like the next two
inline constexpr int kKeyNumberPlus = 0x6B;
inline constexpr int kKeyNumberMinus = 0x6D;

inline Shortcut ctrl(char letter) {
  return {letter, true, false, false};
}
inline Shortcut ctrlShift(char letter) {
  return {letter, true, true, false};
}

// The shortcut as menus name it: with Ctrl held the number pad's plus, minus and 0 are those of the main
// keyboard, and plus is plus with Shift too, as most layouts have it.
Shortcut asMenusNameIt(Shortcut pressed);

// "Ctrl+Shift+S"; empty when there is none.
std::string shortcutText(const Shortcut& shortcut);

// One line of a menu. A separator has neither command nor items.
struct MenuItem {
  Text caption;  // as stored: may begin with "|n|", the number of its icon
  int command = 0;
  Shortcut shortcut;
  std::vector<MenuItem> items;  // a submenu when not empty
  bool enabled = true;
  bool checked = false;
  bool radio = false;  // the check mark is a bullet: one of a group
  Text help = {};      // one sentence for the status bar
  // In place of an icon by number; see ui/drawing.h.
  std::string_view drawing = {};
  bool ownKey = false;  // in the code view the shortcut acts without the menu, and must not act twice

  bool separator() const { return command == 0 && items.empty() && caption.empty(); }
};

// A stored caption without its "|n|" prefix, and the number (0 when there is none).
struct MenuCaption {
  int icon;
  Text text;
};
MenuCaption menuCaption(const Text& stored);
// The other way round: a text that begins like a prefix is kept apart from one.
Text storedCaption(MenuIcon icon, Text text);

}  // namespace ui
