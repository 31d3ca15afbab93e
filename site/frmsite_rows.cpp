// The list of the window, and what depends on it.
#include <algorithm>
#include <array>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "convert/frmletters.h"
#include "site/frmsite.h"

namespace site {
namespace {

constexpr std::size_t kRowsAtFirst = 1000;
constexpr std::size_t kMoreRows = 5000;  // with each wish for more

std::string number(std::size_t value) {
  return std::to_string(value);
}

const char* textOf(Done done) {
  switch (done) {
    case Done::Nothing:
      break;
    case Done::Written:
      return "გადაყვანილია";
    case Done::Copied:
      return "გადაწერილია";
    case Done::Already:
      return "უკვე გაკეთებულია";
    case Done::Restored:
      return "აღდგენილია";
  }
  return "";
}

}  // namespace

void frmsite::sortRows() {
  const auto key = [this](const Row& row) -> std::tuple<std::size_t, std::size_t, std::size_t> {
    switch (column_) {
      case 1:
        return {static_cast<std::size_t>(row.form), row.confidence, 0};
      case 2:
        return {row.confidence, 0, 0};
      case 3:
        return {row.changeCount, 0, 0};
      case 4:
        return {row.uncertainCount, 0, 0};
      case 5:
        return {static_cast<std::size_t>(row.done), static_cast<std::size_t>(row.note), row.changes};
      case 0:
        return {};
      default:
        return {isFault(row.note) ? 0 : 1, row.uncertainCount > 0 ? 0 : row.changes ? 1 : 2, row.confidence};
    }
  };
  std::ranges::stable_sort(rows_, [&](const Row& a, const Row& b) {
    const Row& first = up_ ? a : b;
    const Row& second = up_ ? b : a;
    return key(first) != key(second) ? key(first) < key(second)
                                     : (column_ == 0 ? first.file < second.file : a.file < b.file);
  });
}

ui::ListView::Item frmsite::itemOf(const Row& row) const {
  ui::ListView::Item item;
  item.text = row.file;
  std::string state = textOf(row.done);
  if (row.note != Note::None) {
    state = site::textOf(row.note).georgian;
  } else if (state.empty()) {
    state = row.changes ? "შეიცვლება" : "უცვლელი რჩება";
  }
  const bool known = row.note == Note::None || row.changes;
  item.subItems = {known ? convert::formName(row.form) : ui::Text(),
                   known ? number(row.confidence) + "%" : "",
                   row.changeCount > 0 ? number(row.changeCount) : "",
                   row.uncertainCount > 0 ? number(row.uncertainCount) : "", state};
  item.boxed = row.changes && row.done == Done::Nothing;
  item.checked = row.ticked;
  return item;
}

void frmsite::showRows() {
  std::vector<ui::ListView::Item> items;
  const std::size_t most = std::min(shown_, rows_.size());
  for (std::size_t i = 0; i < most; ++i) items.push_back(itemOf(rows_[i]));
  if (most < rows_.size()) {
    ui::ListView::Item more;
    more.text = "…  კიდევ " + number(rows_.size() - most) + " ფაილი: დააწკაპუნეთ, რომ გამოჩნდეს";
    more.boxed = false;
    items.push_back(std::move(more));
  }
  LV.sortedBy = column_;
  LV.sortedUp = up_;
  LV.setItems(std::move(items));
  showSum();
}

void frmsite::showSum() {
  std::size_t changing = 0, ticked = 0, uncertain = 0, faults = 0, written = 0, restored = 0;
  for (const Row& row : rows_) {
    changing += row.changes ? 1U : 0U;
    ticked += row.changes && row.ticked ? 1U : 0U;
    uncertain += static_cast<std::size_t>(row.uncertainCount);
    faults += isFault(row.note) ? 1U : 0U;
    written += row.done == Done::Written || row.done == Done::Already ? 1U : 0U;
    restored += row.done == Done::Restored ? 1U : 0U;
  }
  std::string text;
  if (!rows_.empty()) {
    text = "ფაილი: " + number(rows_.size());
    if (restored > 0) {
      text += "   აღდგენილია: " + number(restored);
    } else {
      text += "   შეიცვლება: " + number(changing) + "   მონიშნულია: " + number(ticked);
      if (uncertain > 0) text += "   გაურკვეველი ადგილი: " + number(uncertain);
      if (written > 0) text += "   გაკეთდა: " + number(written);
    }
    if (faults > 0) text += "   გამოტოვებულია: " + number(faults);
  }
  Lsum.setCaption(text);
  CKall.setChecked(changing > 0 && ticked == changing);
  Capply.setEnabled(!running_ && isPlanned_ && ticked > 0);
}

void frmsite::showButtons() {
  if (running_) return;
  Cstop.setEnabled(false);
  Cproject.setEnabled(bench_.documents().WEBopened);
  Creport.setEnabled(report_ != nullptr);
  Copen.setEnabled(selectedRow() != nullptr);
  CKall.setEnabled(std::ranges::any_of(rows_, [](const Row& row) { return row.changes; }));
  showSum();
}

const frmsite::Row* frmsite::selectedRow() const {
  const int row = LV.selected();
  const auto at = static_cast<std::size_t>(std::max(row, 0));
  return row >= 0 && at < rows_.size() && at < shown_ ? &rows_[at] : nullptr;
}

void frmsite::LV_Checked(int row) {
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || at >= std::min(shown_, rows_.size())) return;
  rows_[at].ticked = LV.items()[at].checked;
  showSum();
}

void frmsite::LV_SelectionChanged() {
  if (LV.selected() >= 0 && static_cast<std::size_t>(LV.selected()) >= shown_ && shown_ < rows_.size()) {
    const int at = LV.selected();
    shown_ += kMoreRows;
    const ui::Hourglass hourglass(bench_.platform());
    showRows();
    LV.setSelected(at);
  }
  if (!running_) Copen.setEnabled(selectedRow() != nullptr);
}

void frmsite::LV_ColumnClicked(int column) {
  if (running_) return;
  up_ = column_ != column || !up_;
  column_ = column;
  CBsort.setSelected(column + 1);
  sortRows();
  showRows();
}

void frmsite::CBsort_Changed() {
  column_ = std::max(0, CBsort.selected()) - 1;
  up_ = true;
  sortRows();
  showRows();
}

void frmsite::CKall_Changed() {
  const bool on = CKall.checked();
  for (Row& row : rows_) {
    if (row.changes) row.ticked = on;
  }
  showRows();
}

void frmsite::openSelected() {
  const Row* const row = selectedRow();
  if (running_ || row == nullptr) return;
  const std::string path = base::fullPath(base::joinPath(folder_, row->file));
  app::Session& session = bench_.session();
  if (const auto known = session.recordOf(path)) {
    bench_.showDocument(*known);
  } else if (!base::sameFile(path, bench_.shownPath())) {
    bench_.ofnen(path);
  }
  bench_.runCommand(mnuletters);
}

}  // namespace site
