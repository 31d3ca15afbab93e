// What the code view makes of typed characters: the four typing modes and the two key codes of their own.
#pragma once

#include <string>
#include <string_view>

#include "app/workbench.h"
#include "convert/letter_tables.h"

namespace convert {

enum class TypingMode {
  Russian,        // Latin keys give Windows-1251 bytes
  GeorgianISO,    // Latin keys give bytes of the legacy font
  GeorgianASCII,  // Latin keys stay, shown in the keyboard-layout font
  Latin,
};

// The byte that enters for a typed byte.
int typedKey(int key, TypingMode mode, const LetterTables& tables);

// Byte text for Unicode text (UTF-8), typed or pasted. Georgian and Cyrillic letters take the mode's form,
// all 33 Georgian ones; what has no form there becomes its byte in Windows-1252 or else its UTF-8 bytes, so
// that nothing is lost.
std::string typedText(std::string_view utf8, TypingMode mode, const LetterTables& tables);

// Adds the menu of the modes and the keys to the main window. `bench` and `tables` must outlive it.
class Typing {
 public:
  Typing(app::Workbench& bench, const LetterTables& tables);
  Typing(const Typing&) = delete;
  Typing& operator=(const Typing&) = delete;

  TypingMode mode() const { return mode_; }

 private:
  void choose(TypingMode mode);
  void followProps();
  void showFont();
  int keyPress(int key);
  void showMode();

  app::Workbench& bench_;
  const LetterTables& tables_;
  TypingMode mode_ = TypingMode::Latin;
  bool started_ = false;
  bool chosen_ = false;  // until then the code view keeps the editor's own font
};

}  // namespace convert
