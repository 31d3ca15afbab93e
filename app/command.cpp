#include "app/command.h"

#include <algorithm>
#include <utility>

namespace app {
namespace {

struct Line {
  MenuPlace place;
  ui::MenuItem item;
};

class Builder {
 public:
  explicit Builder(const std::vector<const Command*>& rows) : rows_(rows) {}

  // The lines of a menu, sorted; null: the bar.
  std::vector<Line> linesOf(const Menu* menu) {
    std::vector<Line> lines;
    std::vector<const Menu*> inside;
    const auto addMenu = [&](const Menu* inner) {
      if (inner->place.menu != menu || std::find(inside.begin(), inside.end(), inner) != inside.end()) return;
      inside.push_back(inner);
      lines.push_back({inner->place, itemOf(*inner)});
    };
    for (const Command* row : rows_) {
      if (row->place.menu == nullptr) continue;
      for (const Menu* around = row->place.menu; around != menu && around != nullptr;
           around = around->place.menu) {
        addMenu(around);
      }
      if (row->place.menu != menu) continue;
      ui::MenuItem item = menuItem(*row);
      if (!item.caption.empty()) lines.push_back({row->place, std::move(item)});
    }
    std::stable_sort(lines.begin(), lines.end(), [](const Line& a, const Line& b) {
      return std::pair(a.place.group, a.place.position) < std::pair(b.place.group, b.place.position);
    });
    return lines;
  }

 private:
  ui::MenuItem itemOf(const Menu& menu) {
    ui::MenuItem item;
    item.caption = ui::storedCaption(menu.icon, menu.caption);
    item.help = menu.help;
    int group = 0;
    for (Line& line : linesOf(&menu)) {
      if (!item.items.empty() && line.place.group != group) item.items.emplace_back();
      group = line.place.group;
      item.items.push_back(std::move(line.item));
    }
    return item;
  }

  const std::vector<const Command*>& rows_;
};

}  // namespace

ui::MenuItem menuItem(const Command& row) {
  ui::MenuItem item;
  const ui::Text caption = row.text ? row.text() : row.caption;
  if (!caption.empty()) item.caption = ui::storedCaption(row.icon, caption);
  item.command = row.id;
  item.shortcut = row.shortcut;
  item.help = row.help;
  item.radio = row.radio;
  item.ownKey = row.ownKey;
  return item;
}

std::vector<ui::MenuItem> menuBar(const std::vector<const Command*>& rows) {
  std::vector<ui::MenuItem> bar;
  for (Line& line : Builder(rows).linesOf(nullptr)) bar.push_back(std::move(line.item));
  return bar;
}

}  // namespace app
