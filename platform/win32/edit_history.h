// What can be undone in the code view. The control's own undo takes time that grows with the square of the
// lines and counts changes of format as steps, so it is switched off.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

namespace win32 {

// Bytes at `at` that were exchanged. The selection is that before the edit; length -1: not known.
struct Edit {
  std::size_t at = 0;
  std::string removed;
  std::string inserted;
  int selStart = 0;
  int selLength = -1;
};

// What makes `after` of `before`, as one edit; never cut between CR and LF. Nothing when they are equal.
std::optional<Edit> editBetween(std::string_view before, std::string_view after);

class EditHistory {
 public:
  void clear();
  void add(Edit edit);
  // An edit of the user's keys: joins the one before when it goes on where that ended, within a line.
  void addTyped(Edit edit);
  void endTyping() { typing_ = false; }
  bool canUndo() const { return next_ > 0; }
  bool canRedo() const { return next_ < edits_.size(); }
  // The edit to take back or to do again; the step is taken with the call. Valid until the next call.
  const Edit& undo();
  const Edit& redo();

 private:
  std::deque<Edit> edits_;
  std::size_t next_ = 0;  // edits before it are done, the others undone
  std::size_t bytes_ = 0;
  bool typing_ = false;  // the last edit is typing that may go on
};

}  // namespace win32
