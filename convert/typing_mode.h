// What the code view makes of typed characters: the four typing modes and the two key codes of their own.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "app/workbench.h"
#include "convert/letter_tables.h"
#include "convert/mode_of_text.h"

namespace convert {

// What the bytes of a document are read as: a view and, in the 8-bit one, a mode.
struct ReadAs {
  ui::TextView view = ui::TextView::EightBit;
  TypingMode mode = TypingMode::Latin;
  bool operator==(const ReadAs&) const = default;
};

// How the shown document is read.
ReadAs readAs(app::Workbench& bench);

// The byte that enters for a typed byte.
int typedKey(int key, TypingMode mode, const LetterTables& tables);

// Byte text for Unicode text (UTF-8), typed or pasted. Georgian and Cyrillic letters take the mode's form,
// all 33 Georgian ones; what has no form there becomes its byte in Windows-1252 or else its UTF-8 bytes, so
// that nothing is lost.
std::string typedText(std::string_view utf8, TypingMode mode, const LetterTables& tables);
// How many characters of it no byte of the mode stands for.
std::size_t withoutByte(std::string_view utf8, TypingMode mode, const LetterTables& tables);
// What enters a document for one typed character.
std::string typedCharacter(char32_t character, ReadAs as, const LetterTables& tables);

// The letters (UTF-8) that the user sees for bytes of a document.
std::string shownLetters(std::string_view bytes, ReadAs as);

// The bytes that show the same letters in another view or mode; nothing where some of them has none there, or
// where the old bytes do not tell letters from markup (Latin codes that are shown as Georgian).
std::optional<std::string> reencoded(std::string_view bytes, ReadAs from, ReadAs to,
                                     const LetterTables& tables);

// Adds the menu of the modes and the keys to the main window. `bench` and `tables` must outlive it.
class Typing {
 public:
  Typing(app::Workbench& bench, const LetterTables& tables);
  Typing(const Typing&) = delete;
  Typing& operator=(const Typing&) = delete;

  TypingMode mode() const { return mode_; }

 private:
  ReadAs readAs() const { return {bench_.codeView().view(), mode_}; }
  void choose(TypingMode mode);
  void followProps();
  void followDocument();
  void showFont();
  void controlKey(int code);
  std::string entering(const ui::TextClip& clip);
  std::string withReferences(const std::string& letters);
  void showMode();

  app::Workbench& bench_;
  const LetterTables& tables_;
  TypingMode mode_ = TypingMode::Latin;        // of the shown document
  TypingMode lastChosen_ = TypingMode::Latin;  // for documents whose letters name none
  bool started_ = false;
  bool chosen_ = false;  // until then the code view keeps the editor's own font
};

}  // namespace convert
