// How likely a text is in each language and form, letter by letter from trigrams.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "convert/symbols.h"

namespace convert {

// Costs are -log2(probability) in steps of 3/4 bit: less is likelier. The letters are all, whether counted or
// not.
struct EightBitCosts {
  std::uint32_t letters = 0;  // C0..FF, however they are written
  int legacy = 0;
  int academy = 0;
  int russian = 0;
  int western = 0;
  int noise = 0;
};
struct LatinCosts {
  std::uint32_t letters = 0;
  int keyboard = 0;
  int latin = 0;
  int noise = 0;
};

struct Statistics {
  EightBitCosts eight;
  LatinCosts latin;
  // Where the letters C0..FF come from.
  std::uint32_t bytes = 0;
  std::uint32_t utf8 = 0;
  std::uint32_t references = 0;
  // Of these those that the Georgian forms do not use today.
  std::uint32_t notLegacy = 0;
  std::uint32_t notAcademy = 0;
  // Characters that need no guess.
  std::uint32_t georgianUtf8 = 0;
  std::uint32_t georgianReferences = 0;
  std::uint32_t cyrillicUtf8 = 0;
  std::uint32_t cyrillicReferences = 0;
  std::uint32_t otherUtf8 = 0;         // letters and signs beyond Latin-1
  std::uint32_t brokenReferences = 0;  // of the above: split or without semicolon
  std::uint32_t doubled = 0;           // repairable, surely
  std::uint32_t doubledPairs = 0;      // repairable, perhaps
  std::uint32_t otherBytes = 0;        // 80..BF
};

// Of a text of more than 1200 bytes the first part is counted.
// The costs are those of the first `enough` bytes alone where the letters are all bytes.
Statistics statisticsOf(std::string_view text, Reading reading, std::size_t enough = 1200);

// A text of bytes alone, without reading it letter by letter. Nothing when it holds something else.
struct BytesAtAGlance {
  std::uint32_t letters = 0;     // C0..FF
  std::uint32_t otherBytes = 0;  // 80..BF
  std::uint32_t latin = 0;       // ASCII letters
  std::uint32_t notLegacy = 0;   // of `letters` those that the legacy form does not use today
  std::uint32_t notAcademy = 0;
};
std::optional<BytesAtAGlance> bytesAtAGlance(std::string_view text, Reading reading);

// The same for one word of ASCII letters: what keyboard letters cost less than Latin ones do.
int keyboardGain(std::string_view word);

}  // namespace convert
