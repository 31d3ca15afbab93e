// `T1`, the code view: byte text in a rich-text control. Positions and lengths are bytes, from 0; a line end
// counts as the bytes it has in the file (CR LF two).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/color.h"
#include "ui/screen_area.h"
#include "ui/signal.h"

namespace ui {

// What the bytes of the code font mean; the numbers are those of the font's character set.
enum class CharacterSet : int { Ansi = 0, Russian = 204 };

struct Font {
  std::string name;  // UTF-8; empty: the control's default
  int size = 0;      // points; 0: the control's default
  bool bold = false;
  bool italic = false;
  CharacterSet characterSet = CharacterSet::Ansi;
  bool operator==(const Font&) const = default;
};

struct CaretPlace {
  int line;    // from 1, by line ends, not by wrapping
  int column;  // from 1, in bytes
};

class CodeView {
 public:
  virtual ~CodeView() = default;

  // Valid until the text changes; reading it again unchanged copies nothing.
  virtual const std::string& text() const = 0;
  // One undoable step; puts the caret at 0. Raises `changed`.
  virtual void setText(std::string_view text) = 0;
  // Another document: like setText, but begins a new undo history. Throws base::Error(OutOfMemory) and keeps
  // the old text when the control cannot hold it.
  virtual void load(std::string_view text) = 0;

  virtual int selStart() const = 0;
  virtual int selLength() const = 0;
  // Clamped to the text; scrolls the selection into view.
  virtual void select(int start, int length) = 0;
  virtual std::string selText() const = 0;
  // The lines of the selection that are in view, as wide as the selection where it is one line.
  virtual std::optional<ScreenArea> selectionOnScreen() const { return std::nullopt; }
  // One undoable step; the caret ends behind the new text. Raises `changed`.
  virtual void replaceSelection(std::string_view text) = 0;

  virtual CaretPlace caret() const = 0;
  // Byte position of the first text shown, for keeping the place in the document.
  virtual int scrollTop() const = 0;
  virtual void setScrollTop(int position) = 0;

  // The clipboard's text in place of the selection, as plain text; characters without a byte go through
  // `unicodeTyped`. One undoable step.
  virtual void paste() = 0;

  virtual bool canUndo() const = 0;
  virtual bool canRedo() const = 0;
  virtual void undo() = 0;
  virtual void redo() = 0;

  virtual void setFont(const Font& font) = 0;  // of the whole view; no undo step, no `changed`
  virtual const Font& currentFont() const = 0;
  virtual void setBackColor(base::Color color) = 0;
  virtual void setTextColor(base::Color color) = 0;  // no undo step, no `changed`
  virtual void setWordWrap(bool wrap) = 0;
  // The text as plainRtf() writes it, in the view's own font.
  virtual std::string rtf() const = 0;
  // Shows RTF in place of the text, without an undo step or `changed`; text() is what the RTF says. Selection
  // and place are the caller's to restore.
  virtual void setRtf(std::string_view rtf) = 0;
  // Everything in the view's own font and colours again; text, history, selection and place stay.
  virtual void resetFormats() = 0;
  virtual void setFocus() = 0;

  // Any change of the text, by the user or by the calls above.
  Signal<> changed;
  Signal<> selectionChanged;
  // A typed character (byte or control code) before it enters; the return value enters instead, 0: none.
  // Pasted and typed Georgian Unicode does not come here but through `unicodeTyped`.
  std::function<int(int key)> keyPress;
  // Characters that no byte stands for, as UTF-8, typed or pasted; the returned byte text enters.
  std::function<std::string(const std::string& utf8)> unicodeTyped;
  // Virtual-key numbers as in Shortcut.
  Signal<int> keyDown;
  Signal<int> keyUp;
};

}  // namespace ui
