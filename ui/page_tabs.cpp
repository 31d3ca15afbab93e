#include "ui/page_tabs.h"

#include <algorithm>

namespace ui {

void PageTabs::addPage(Text caption, std::vector<Control*> controls) {
  for (Control* control : controls) control->setVisible(static_cast<int>(pages_.size()) == page_);
  captions_.push_back(std::move(caption));
  pages_.push_back(std::move(controls));
}

void PageTabs::showPage(int page) {
  if (page < 0 || page >= static_cast<int>(pages_.size()) || page == page_) return;
  page_ = page;
  tell(Aspect::Items);
  // The new ones first: the keyboard then has somewhere to go.
  for (Control* control : pages_[static_cast<std::size_t>(page)]) control->setVisible(true);
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (static_cast<int>(i) == page) continue;
    for (Control* control : pages_[i]) control->setVisible(false);
  }
  tell(Aspect::Selection);
}

int PageTabs::pageOf(const Control& control) const {
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (std::find(pages_[i].begin(), pages_[i].end(), &control) != pages_[i].end())
      return static_cast<int>(i);
  }
  return -1;
}

bool PageTabs::keyPressed(const Shortcut& key) {
  if (key.key != kKeyTab || !key.ctrl || key.alt || pages_.empty()) return false;
  setFocus();  // what has it may be about to hide
  const int count = static_cast<int>(pages_.size());
  showPage((page_ + (key.shift ? count - 1 : 1)) % count);
  return true;
}

}  // namespace ui
