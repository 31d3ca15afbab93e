#include "search/insert_menu.h"

#include "base/text.h"
#include "base/utf8.h"
#include "resources/ids.h"

namespace search {
namespace {

using namespace ui::literals;

ui::MenuItem item(ui::Text caption, int command) {
  ui::MenuItem made;
  made.caption = std::move(caption);
  made.command = command;
  return made;
}

// A find text on one line of a menu, as it reads: UTF-8 where it is that, else in the legacy font.
ui::Text shown(const std::string& findText) {
  constexpr std::size_t kLongest = 40;
  std::string line;
  std::size_t at = 0;
  const bool utf8 = base::isUtf8(findText);
  while (at < findText.size() && at < kLongest) {
    const std::size_t from = at;
    if (!utf8 || !base::nextUtf8(findText, at)) ++at;
    const std::string piece = findText.substr(from, at - from);
    line += piece == "&" ? "&&" : static_cast<unsigned char>(piece[0]) < ' ' ? " " : piece;
  }
  if (at < findText.size()) line += "...";
  return {line, utf8 ? ui::TextKind::Plain : ui::TextKind::Legacy};
}

}  // namespace

std::vector<ui::MenuItem> mnual(const std::deque<std::string>& history) {
  std::vector<ui::MenuItem> items = {item("And", mnuand), ui::MenuItem(), item("xazis bolo"_keyboard, mnuend),
                                     item("Tab", mnutab)};
  if (history.empty()) return items;
  ui::MenuItem last = item("ბოლო ძებნები", 0);
  for (const std::string& findText : history) {
    last.items.push_back(item(shown(findText), mnuhistory + static_cast<int>(last.items.size())));
  }
  items.emplace_back();
  items.push_back(std::move(last));
  return items;
}

}  // namespace search
