// The pairs of letter tables that the program converts between, made once.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "convert/letter_tables.h"
#include "convert/replacement.h"

namespace convert {

// Byte text in, byte text out. Characters that no table has stay.
class Conversions {
  const LetterTables& tables_;

 public:
  // The tables must outlive it.
  explicit Conversions(const LetterTables& tables) : tables_(tables) {}

  // toLegacy: UTF-8 to the legacy font, whatever the mode. Else mode 2: UTF-8 to Latin transliteration, any
  // other mode: Latin to UTF-8.
  std::string Utf8Convert(std::string_view text, std::uint8_t mode, bool toLegacy) const;
  // Direction "U": Latin to the legacy font; any other: back.
  std::string Transliterate(std::string_view text, std::string_view direction) const;

  const Replacement latinToUtf8{tables_.GRIGOLIA, tables_.QARTULI_TEXT_UTF8};
  const Replacement utf8ToLatin{tables_.QARTULI_TEXT_UTF8, tables_.GRIGOLIA};
  const Replacement utf8ToLegacy{tables_.QARTULI_TEXT_UTF8, tables_.QARTULI_FONTCODES};
  const Replacement latinToLegacy{tables_.GRIGOLIA, tables_.QARTULI_FONTCODES};
  const Replacement legacyToLatin{tables_.QARTULI_FONTCODES, tables_.GRIGOLIA};
  const Replacement referencesToRussian{tables_.RUSULI_HEX, tables_.RUSULI_FONTCODES};
  const Replacement russianToReferences{tables_.RUSULI_FONTCODES, tables_.RUSULI_HEX};
  const Replacement referencesToLegacy{tables_.QARTULI_HEX_UTF8, tables_.QARTULI_FONTCODES};
  const Replacement legacyToReferences{tables_.QARTULI_FONTCODES, tables_.QARTULI_HEX_UTF8};
  const Replacement utf8ToReferences{tables_.QARTULI_TEXT_UTF8, tables_.QARTULI_HEX_UTF8};
  const Replacement referencesToUtf8{tables_.QARTULI_HEX_UTF8, tables_.QARTULI_TEXT_UTF8};
  // References of the Khutsuri letters.
  const Replacement legacyToKhutsuri{tables_.QARTULI_FONTCODES, tables_.QARTULI_HEX_XUCURI};
};

}  // namespace convert
