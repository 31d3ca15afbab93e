#include "ui/tab_strip.h"

namespace ui {

void TabStrip::setTabs(std::vector<Tab> tabs, int selected) {
  const bool same = tabs == tabs_;
  if (!same) {
    tabs_ = std::move(tabs);
    selected_ = -1;
    tell(Aspect::Items);
  }
  if (!same || selected != selected_) setSelected(selected);
}

void TabStrip::setSelected(int tab) {
  selected_ = has(tab) ? tab : -1;
  tell(Aspect::Selection);
}

void TabStrip::userSelect(int tab) {
  if (!has(tab)) return;
  selected_ = tab;
  chosen(tab);
}

void TabStrip::userClose(int tab) {
  if (has(tab)) closeAsked(tab);
}

void TabStrip::userMove(int from, int to) {
  if (movable && has(from) && has(to) && from != to) moved(from, to);
}

}  // namespace ui
