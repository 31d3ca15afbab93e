#include "editor/pair_grid.h"

#include <algorithm>

namespace editor {

PairGrid::PairGrid(ui::ListView& list, ui::TextBox& first, ui::TextBox& second, ui::Button& add,
                   ui::Button& change, ui::Button& remove, ui::Button& up, ui::Button& down)
    : list_(list),
      first_(first),
      second_(second),
      add_(add),
      change_(change),
      remove_(remove),
      up_(up),
      down_(down) {
  add.setCaption("&დამატება");
  change.setCaption("შეც&ვლა");
  remove.setCaption("&წაშლა");
  up.setCaption("&ზემოთ");
  down.setCaption("&ქვემოთ");
  add.clicked.connect([this] { Cadd_Click(); });
  change.clicked.connect([this] { Cchange_Click(); });
  remove.clicked.connect([this] { Cremove_Click(); });
  up.clicked.connect([this] { move(-1); });
  down.clicked.connect([this] { move(1); });
  list.selectionChanged.connect([this] { LV_Click(); });
  first.changed.connect([this] { refreshButtons(); });
  refreshButtons();
}

void PairGrid::setRows(std::vector<Row> rows) {
  rows_ = std::move(rows);
  notes_.clear();
  show(rows_.empty() ? -1 : 0);
  LV_Click();
}

void PairGrid::setNotes(std::vector<std::string> notes) {
  notes_ = std::move(notes);
  show(list_.selected());
}

void PairGrid::commit() {
  if (!change_.enabled()) {
    if (add_.enabled()) Cadd_Click();  // nothing is selected that it could be meant for
    return;
  }
  const Row& row = rows_[static_cast<std::size_t>(list_.selected())];
  if (row.first != first_.text() || row.second != second_.text()) Cchange_Click();
}

void PairGrid::takeTyped() {
  if (!add_.enabled()) return;
  const auto row = std::find_if(rows_.begin(), rows_.end(),
                                [this](const Row& known) { return known.first == first_.text(); });
  if (row == rows_.end()) {
    Cadd_Click();
  } else if (row->second != second_.text()) {
    const auto at = static_cast<int>(row - rows_.begin());
    list_.setSelected(at);
    Cchange_Click();
  }
}

void PairGrid::Cadd_Click() {
  rows_.push_back({first_.text(), second_.text(), -1, true});
  notes_.clear();
  show(static_cast<int>(rows_.size()) - 1);
}

void PairGrid::Cchange_Click() {
  Row& row = rows_[static_cast<std::size_t>(list_.selected())];
  row.first = first_.text();
  row.second = second_.text();
  row.changed = true;
  notes_.clear();
  show(list_.selected());
}

void PairGrid::Cremove_Click() {
  const int selected = list_.selected();
  rows_.erase(rows_.begin() + selected);
  notes_.clear();
  show(selected < static_cast<int>(rows_.size()) ? selected : selected - 1);
  if (rows_.empty()) {  // or the fields would go on proposing what was just removed
    first_.setText("");
    second_.setText("");
  }
  LV_Click();
}

void PairGrid::move(int by) {
  const int selected = list_.selected();
  std::iter_swap(rows_.begin() + selected, rows_.begin() + selected + by);
  notes_.clear();
  show(selected + by);
}

void PairGrid::LV_Click() {
  if (list_.selected() >= 0) {
    const Row& row = rows_[static_cast<std::size_t>(list_.selected())];
    first_.setText(row.first);
    second_.setText(row.second);
  }
  refreshButtons();
}

void PairGrid::show(int selected) {
  std::vector<ui::ListView::Item> items;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    ui::ListView::Item item;
    item.text = shownBytes(rows_[i].first, lettersOf_);
    item.subItems = {shownBytes(rows_[i].second, lettersOf_), i < notes_.size() ? notes_[i] : ""};
    items.push_back(std::move(item));
  }
  list_.setItems(std::move(items));
  list_.setSelected(selected);
  refreshButtons();
}

void PairGrid::refreshButtons() {
  const int selected = list_.selected();
  const bool typed = !first_.text().empty();
  add_.setEnabled(typed);
  change_.setEnabled(typed && selected >= 0);
  remove_.setEnabled(selected >= 0);
  up_.setEnabled(selected > 0);
  down_.setEnabled(selected >= 0 && selected + 1 < static_cast<int>(rows_.size()));
}

}  // namespace editor
