// Writes a text of a page anew, its letters read as a verdict says.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/detector.h"

namespace convert {

// How characters that are not ASCII are written.
enum class Writing : std::uint8_t {
  Utf8,
  References,     // "&#4304;"
  ScriptEscapes,  // "\u10D0"
  CssEscapes,     // "\10D0 "
};

// Behind what `out` holds. Valid UTF-8, whatever the text.
void appendLetters(std::string_view text, const Verdict& verdict, Reading reading, Writing writing,
                   std::string& out);

// What becomes of the words of ASCII letters in a text whose Latin letters are Georgian: not of addresses,
// not of words with letters that no key gives, not of words that are plainly Latin, unless font or user say
// what they are.
struct KeyboardWords {
  std::uint32_t converted = 0;  // letters
  std::uint32_t left = 0;
  std::uint32_t noKey = 0;  // of `left`: in words with letters that no key gives
};
// A verdict with `wholeKeyboard` set says that nothing is left.
KeyboardWords keyboardWords(std::string_view text, const Verdict& verdict, Reading reading);

// The characters of bytes that are no UTF-8, of the form `eight`, in UTF-8; all else as it is.
void appendReencoded(std::string_view text, Form eight, Reading reading, std::string& out);

}  // namespace convert
