#include "ui/menu.h"

#include <charconv>

namespace ui {

std::string shortcutText(const Shortcut& shortcut) {
  if (shortcut.key == 0) return {};
  std::string text;
  if (shortcut.ctrl) text += "Ctrl+";
  if (shortcut.shift) text += "Shift+";
  if (shortcut.alt) text += "Alt+";
  if (shortcut.key >= kKeyF1 && shortcut.key < kKeyF1 + 24) {
    return text + "F" + std::to_string(shortcut.key - kKeyF1 + 1);
  }
  if (shortcut.key == kKeyTab) return text + "Tab";
  if (shortcut.key == kKeyDelete) return text + "Del";
  if (shortcut.key == kKeyPlus) return text + "+";
  if (shortcut.key == kKeyMinus) return text + "-";
  return text + static_cast<char>(shortcut.key);
}

Shortcut asMenusNameIt(Shortcut pressed) {
  if (!pressed.ctrl) return pressed;
  if (pressed.key == kKeyNumberPlus) pressed.key = kKeyPlus;
  if (pressed.key == kKeyNumberMinus) pressed.key = kKeyMinus;
  if (pressed.key == kKeyNumber0) pressed.key = '0';
  if (pressed.key == kKeyPlus) pressed.shift = false;
  return pressed;
}

MenuCaption menuCaption(const Text& stored) {
  const std::string& bytes = stored.bytes;
  const std::size_t bar = bytes.size() > 1 && bytes[0] == '|' ? bytes.find('|', 1) : std::string::npos;
  int icon = 0;
  if (bar != std::string::npos) {
    const auto read = std::from_chars(bytes.data() + 1, bytes.data() + bar, icon);
    if (read.ec == std::errc() && read.ptr == bytes.data() + bar) {
      return {icon, {bytes.substr(bar + 1), stored.kind}};
    }
  }
  return {0, stored};
}

Text storedCaption(MenuIcon icon, Text text) {
  if (icon == MenuIcon::None && !text.bytes.starts_with('|')) return text;
  text.bytes.insert(0, "|" + std::to_string(static_cast<int>(icon)) + "|");
  return text;
}

}  // namespace ui
