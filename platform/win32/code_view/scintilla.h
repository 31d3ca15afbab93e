// One control of the editing component, called directly and not through the message queue.
#pragma once

#include <string_view>

#include "platform/win32/system/windows_api.h"
// windows.h first
#include <Scintilla.h>

namespace win32 {

class Scintilla {
 public:
  Scintilla() = default;
  // A window of the class `Scintilla`. Throws base::Error when there can be none.
  Scintilla(DWORD style, DWORD exStyle, HWND parent, int id);

  HWND hwnd() const { return window_; }

  sptr_t call(unsigned message, uptr_t wParam = 0, sptr_t lParam = 0) const {
    return function_(object_, message, wParam, lParam);
  }
  sptr_t call(unsigned message, uptr_t wParam, const char* text) const {
    return call(message, wParam, reinterpret_cast<sptr_t>(text));
  }
  sptr_t length() const { return call(SCI_GETLENGTH); }
  // The document's own bytes, valid until the text changes.
  std::string_view text() const;
  // Puts `text`, which may be a part of the document, in place of a range. Throws base::Error(OutOfMemory)
  // when there is not enough memory from the start, and nothing has changed then.
  enum class Replaced { Nothing, Done, Broken };  // Broken: memory ended in the middle; undo it
  Replaced exchange(sptr_t from, sptr_t to, std::string_view text) const;
  // Makes `to` of the text, exchanging only what differs.
  Replaced replaceAll(std::string_view to) const;
  // Enter writes from now on what most lines end with.
  void followLineEnds() const;
  // For small texts.
  void replace(sptr_t from, sptr_t to, std::string_view text) const;

 private:
  bool holds(std::string_view part) const;

  HWND window_ = nullptr;
  SciFnDirect function_ = nullptr;
  sptr_t object_ = 0;
};

// What is edited while it lives is one undo step.
class UndoGroup {
 public:
  explicit UndoGroup(const Scintilla& control) : control_(control) { control_.call(SCI_BEGINUNDOACTION); }
  UndoGroup(const UndoGroup&) = delete;
  UndoGroup& operator=(const UndoGroup&) = delete;
  ~UndoGroup() { control_.call(SCI_ENDUNDOACTION); }

 private:
  const Scintilla& control_;
};

// The mark of a step() in the history: met when the step is undone or redone.
inline constexpr int kStepMark = 1;

[[noreturn]] void throwTooLong();  // base::Error(OutOfMemory) in the user's words

}  // namespace win32
