// A text of a page as the characters that it can mean, whatever they are written as.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/cp1252.h"

namespace convert {

enum class Source : std::uint8_t {
  Ascii,
  Byte,       // a byte that belongs to no UTF-8 character
  Utf8,       //
  Reference,  // of a character that is not ASCII
  Literal,    // a reference of an ASCII character: "&amp;"
};

struct Symbol {
  char32_t character;  // of a Byte its number
  std::uint32_t size;  // bytes that it takes in the text
  Source source;
  bool sound = true;     // not a Reference without semicolon or over line ends
  bool numeric = false;  // a Reference by number
};

// The byte that the symbol stands for if it is one of an 8-bit text: a byte, or a character of Windows-1252
// or a control character in its place; 0 for others.
inline std::uint8_t eightBitOf(const Symbol& symbol) {
  if (symbol.source == Source::Byte) return static_cast<std::uint8_t>(symbol.character);
  if (symbol.source == Source::Ascii || symbol.source == Source::Literal || symbol.character > 0x2122)
    return 0;
  if (symbol.character >= 0x80 && symbol.character <= 0xFF)
    return static_cast<std::uint8_t>(symbol.character);
  return base::byteOfChar(symbol.character).value_or(0);
}

// What counts as a part of the symbols.
struct Reading {
  bool references = true;
  // Two bytes that happen to be UTF-8 are two letters here: the page is full of 8-bit ones.
  bool pairsAreBytes = false;
  // So are three and more whose character nobody would write: the page is not UTF-8 as a whole.
  bool oddOnesAreBytes = false;
  // A backslash begins an escape of the language that the text is a string of.
  bool escapes = false;
};

// The symbol at `at`, which must be inside the text. `afterByte`: the one before was a Byte.
Symbol symbolAt(std::string_view text, std::size_t at, Reading reading, bool afterByte);

// A character whose UTF-8 bytes were taken for those of an 8-bit text, once to three times, and what it
// takes.
struct Repaired {
  char32_t character;
  std::uint32_t size;
  // Sequences of two bytes also come about by chance.
  bool sure;
};
std::optional<Repaired> repairedAt(std::string_view text, std::size_t at, Reading reading);

}  // namespace convert
