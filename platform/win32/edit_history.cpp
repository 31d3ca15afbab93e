#include "platform/win32/edit_history.h"

#include <algorithm>

#include "base/text.h"

namespace win32 {
namespace {

// Of texts kept for undo; the oldest steps go when there is more.
constexpr std::size_t kMostBytes = 64U << 20;

std::size_t sizeOf(const Edit& edit) {
  return edit.removed.size() + edit.inserted.size() + sizeof edit;
}

}  // namespace

std::optional<Edit> editBetween(std::string_view before, std::string_view after) {
  if (before == after) return std::nullopt;
  std::size_t head = base::commonPrefix(before, after);
  if (head > 0 && before[head - 1] == '\r') --head;
  std::size_t tail = 0;
  const std::size_t most = std::min(before.size(), after.size()) - head;
  while (tail < most && before[before.size() - tail - 1] == after[after.size() - tail - 1]) ++tail;
  if (tail > 0 && before[before.size() - tail] == '\n') --tail;
  return Edit{head, std::string(before.substr(head, before.size() - head - tail)),
              std::string(after.substr(head, after.size() - head - tail))};
}

void EditHistory::clear() {
  edits_.clear();
  next_ = 0;
  bytes_ = 0;
  typing_ = false;
}

void EditHistory::add(Edit edit) {
  while (edits_.size() > next_) {
    bytes_ -= sizeOf(edits_.back());
    edits_.pop_back();
  }
  bytes_ += sizeOf(edit);
  edits_.push_back(std::move(edit));
  while (bytes_ > kMostBytes && edits_.size() > 1) {
    bytes_ -= sizeOf(edits_.front());
    edits_.pop_front();
  }
  next_ = edits_.size();
  typing_ = false;
}

void EditHistory::addTyped(Edit edit) {
  const bool insertsInLine = edit.removed.empty() && edit.inserted.find_first_of("\r\n") == std::string::npos;
  if (typing_ && next_ == edits_.size() && next_ > 0 && insertsInLine) {
    Edit& last = edits_.back();
    if (last.at + last.inserted.size() == edit.at) {
      last.inserted += edit.inserted;
      bytes_ += edit.inserted.size();
      return;
    }
  }
  add(std::move(edit));
  typing_ = insertsInLine;
}

const Edit& EditHistory::undo() {
  typing_ = false;
  return edits_[--next_];
}

const Edit& EditHistory::redo() {
  typing_ = false;
  return edits_[next_++];
}

}  // namespace win32
