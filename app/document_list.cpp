#include "app/document_list.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "base/error.h"

namespace app {

Ithem& ColectionMain::Item(std::int16_t index) {
  if (index < 0 || index >= Count()) {
    throw base::Error(base::ErrorNumber::InvalidCall, "indeqsi araa swore.", "ColectionMain");
  }
  auto& slot = items_[static_cast<std::size_t>(index)];
  if (!slot) slot = std::make_unique<Ithem>();
  return *slot;
}

void ColectionMain::AddNewIthem(const DocumentText& Value, std::int16_t Index, const std::string& Kay,
                                const std::string& Tag) {
  const std::int16_t count = Count();
  if (Index > count || count == std::numeric_limits<std::int16_t>::max()) {
    throw base::Error(base::ErrorNumber::InvalidCall, "indeqsi araa swore.", "ColectionMain");
  }
  // The arguments may be a record's own fields, which the shift below overwrites.
  const DocumentText value = Value;        // NOLINT: that they are copies is the point
  const std::string kay = Kay, tag = Tag;  // NOLINT
  const std::int16_t at = Index < 0 ? count : Index;
  items_.emplace_back();
  for (std::int16_t i = count; i > at; --i) {
    Ithem& to = Item(i);
    const Ithem& from = Item(static_cast<std::int16_t>(i - 1));
    to.Value = from.Value;
    to.Kay = from.Kay;
    to.Tag = from.Tag;
    to.Index = i;
  }
  Ithem& record = Item(at);
  record.Value = value;
  record.Index = at;
  record.Kay = kay;
  record.Tag = tag;
  NewItem();
}

void ColectionMain::RemoveIthem(std::int16_t Index) {
  Item(Index);  // throws outside the list
  items_.erase(items_.begin() + Index);
  ItemRemoved(Index, items_.empty() ? std::int16_t{1} : Count());
}

void ColectionMain::MoveIthem(std::int16_t From, std::int16_t To) {
  const auto inside = [this](std::int16_t position) { return position >= 0 && position < Count(); };
  if (From == To || !inside(From) || !inside(To)) return;
  const std::int16_t step = From < To ? 1 : -1;
  for (std::int16_t i = From; i != To; i = static_cast<std::int16_t>(i + step)) {
    // Swapping on the way carries the moved fields along and shifts the others towards `From`.
    Ithem& here = Item(i);
    Ithem& next = Item(static_cast<std::int16_t>(i + step));
    std::swap(here.Value, next.Value);
    std::swap(here.Kay, next.Kay);
    std::swap(here.Tag, next.Tag);
  }
}

void ColectionMain::moveRecord(std::int16_t from, std::int16_t to) {
  const int low = std::min(from, to), high = std::max(from, to);
  std::vector<std::int16_t> positions;
  for (int i = low; i <= high; ++i) positions.push_back(Item(static_cast<std::int16_t>(i)).Index);
  const auto first = items_.begin() + low, end = items_.begin() + high + 1;
  std::rotate(first, from < to ? first + 1 : end - 1, end);
  for (int i = low; i <= high; ++i) {
    Item(static_cast<std::int16_t>(i)).Index = positions[static_cast<std::size_t>(i - low)];
  }
}

void ColectionMain::Cler() {
  items_.clear();
  ColectionDeleted();
}

}  // namespace app
