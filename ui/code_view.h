// `T1`, the code view: byte text and two ways to look at it. Positions and lengths are bytes, from 0; a line
// end counts as the bytes it has in the file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/color.h"
#include "ui/platform/screen_area.h"
#include "ui/signal.h"

namespace ui {

// How bytes become letters. The first two numbers are those of the font's character set.
enum class CharacterSet : int { Ansi = 0, Russian = 204, Utf8 = 65001 };

struct Font {
  std::string name;  // UTF-8; empty: the default of the character set
  int size = 0;      // points; 0: the control's default
  bool bold = false;
  bool italic = false;
  CharacterSet characterSet = CharacterSet::Ansi;
  bool operator==(const Font&) const = default;
};

// What a document's bytes mean on the screen, on the clipboard and in what is typed. It never changes a byte.
enum class TextView {
  EightBit,  // a byte is a letter, in the typing mode's font and character set
  Utf8,      // letters; a byte that is no UTF-8 is a small box with its number
};

enum class Language : std::uint8_t { None, Html, Xml, Css };  // of the live colours

struct CaretPlace {
  int line;    // from 1, by line ends, not by wrapping
  int column;  // from 1, in letters of the view
};

// Text on its way between the document and the clipboard or another window.
struct TextClip {
  std::string bytes;         // as they stand in the document; empty when they come from another program
  std::string letters;       // UTF-8: what the user sees
  int form = -1;             // in which view and mode `bytes` were copied (see convert::Typing); -1: unknown
  std::uint64_t source = 0;  // CodeDocument::number of the document they are from; 0: another program's
};

// A document as the code view holds it: text, undo history, selection and scroll place, which stay with it
// while others are shown.
class CodeDocument {
 public:
  virtual ~CodeDocument() = default;
  // Valid until the text changes.
  virtual std::string_view text() const = 0;
  // One undoable step, also while another document is shown.
  virtual void setText(std::string_view text) = 0;
  // Without making the whole text one row of bytes, which takes a while after an edit of a large one.
  virtual std::size_t size() const { return text().size(); }
  virtual std::string piece(std::size_t start, std::size_t length) const {  // all inside the text
    return std::string(text().substr(start, length));
  }

  const std::uint64_t number = nextNumber();  // its own in this run of the program
  std::uint64_t edits = 0;                    // so far, undoing and redoing among them
  std::uint64_t savedEdits = 0;               // as many as there were when it was what its file holds
  TextView view = TextView::EightBit;
  bool viewDecided = false;  // by its text, when it was first shown
  bool viewChosen = false;   // by the user: it is not decided by the text any more
  int typingMode = -1;       // -1: none chosen yet
  Language language = Language::None;

 protected:
  CodeDocument() = default;
  CodeDocument(const CodeDocument&) = delete;
  CodeDocument& operator=(const CodeDocument&) = delete;

 private:
  static std::uint64_t nextNumber() {
    static std::uint64_t last = 0;
    return ++last;
  }
};

// One change of a document's text: `removed` bytes at `position` went and `added` came in their place.
struct TextEdit {
  std::size_t position;
  std::size_t removed;
  std::string_view added;  // not longer than the call
};

struct ColourRange {  // of a colour's number, from 0: those of the F12 rule
  int start;
  int length;
  std::uint8_t colour;
};

// What the user has chosen for all documents.
struct CodeLook {
  base::Color back = 0xFFFFFF;
  base::Color text = 0;
  bool dark = false;  // colours for a dark background
  bool wordWrap = false;
  bool lineNumbers = false;
  bool currentLine = false;
  bool whiteSpace = false;
  bool lineEnds = false;
  bool liveColours = false;
  bool operator==(const CodeLook&) const = default;
};

class CodeView {
 public:
  virtual ~CodeView() = default;

  // Documents. There is always one shown, at first an empty one.
  virtual std::shared_ptr<CodeDocument> makeDocument(std::string_view text) = 0;  // throws Error(OutOfMemory)
  virtual std::shared_ptr<CodeDocument> document() const = 0;
  // With its selection and place. Raises `changed` and `selectionChanged`.
  virtual void show(const std::shared_ptr<CodeDocument>& document) = 0;
  void load(std::string_view text) { show(makeDocument(text)); }

  virtual TextView view() const = 0;  // of the shown document
  virtual void setView(TextView view) = 0;

  // The control's own bytes, not a copy: valid until the text changes.
  virtual std::string_view text() const = 0;
  // One step(); what the user looks at stays in its line, and so does the caret unless a place is given for
  // it (at most the text's length; -1: none). Raises `changed`. Throws base::Error(OutOfMemory) and keeps the
  // old text when the control cannot hold the new one.
  virtual void setText(std::string_view text, int caret) = 0;
  void setText(std::string_view text) { setText(text, -1); }
  // Makes one undoable step of the edits in `edits`; after it, and when it is undone or redone, `reformed` is
  // raised.
  virtual void step(const std::function<void()>& edits) = 0;

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
  // The clipboard's text in place of the selection, through `entering`. One undoable step.
  virtual void paste() = 0;

  virtual bool canUndo() const = 0;
  virtual bool canRedo() const = 0;
  virtual void undo() = 0;
  virtual void redo() = 0;

  // None of the following is an undo step or raises `changed`.
  virtual void setFont(const Font& font) = 0;      // of the 8-bit view
  virtual void setUtf8Font(const Font& font) = 0;  // of the UTF-8 view; its character set is not looked at
  virtual const Font& currentFont() const = 0;  // of the shown view: how its bytes are to be shown elsewhere
  virtual void setLook(const CodeLook& look) = 0;
  virtual int zoom() const = 0;  // points added to the font's size
  virtual void setZoom(int points) = 0;
  virtual void languageChanged() = 0;  // of the shown document
  // Colours over the plain text, until resetColours(): what lies in no range has colour 0.
  virtual void showColours(const std::vector<ColourRange>& ranges) = 0;
  virtual void resetColours() = 0;
  virtual void setFocus() = 0;

  // Any change of the text, by the user or by the calls above.
  Signal<> changed;
  // Each piece of it, of hidden documents too, at once: nothing may be changed from there.
  Signal<const CodeDocument&, const TextEdit&> edited;
  Signal<> selectionChanged;
  // The whole text, or what a step() touched, has another form: by setText(), step(), and undo and redo of
  // one.
  Signal<> reformed;
  // The byte text that enters for a typed character; empty: none. Without it, its UTF-8.
  std::function<std::string(char32_t character)> typed;
  // A control code with a meaning of its own (2 for Ctrl+B, 25 for Ctrl+Y), whatever the keyboard's layout.
  std::function<void(int code)> controlTyped;
  // The byte text that enters for what is pasted or dropped; empty: nothing. Without it, bytes or letters.
  std::function<std::string(const TextClip& clip)> entering;
  // Virtual-key numbers as in Shortcut.
  Signal<int> keyDown;
  Signal<int> keyUp;
};

}  // namespace ui
