#include "convert/conversions.h"

namespace convert {

Conversions::Conversions(const LetterTables& tables)
    : latinToUtf8(tables.GRIGOLIA, tables.QARTULI_TEXT_UTF8),
      utf8ToLatin(tables.QARTULI_TEXT_UTF8, tables.GRIGOLIA),
      utf8ToLegacy(tables.QARTULI_TEXT_UTF8, tables.QARTULI_FONTCODES),
      latinToLegacy(tables.GRIGOLIA, tables.QARTULI_FONTCODES),
      legacyToLatin(tables.QARTULI_FONTCODES, tables.GRIGOLIA),
      referencesToRussian(tables.RUSULI_HEX, tables.RUSULI_FONTCODES),
      russianToReferences(tables.RUSULI_FONTCODES, tables.RUSULI_HEX),
      referencesToLegacy(tables.QARTULI_HEX_UTF8, tables.QARTULI_FONTCODES),
      legacyToReferences(tables.QARTULI_FONTCODES, tables.QARTULI_HEX_UTF8),
      utf8ToReferences(tables.QARTULI_TEXT_UTF8, tables.QARTULI_HEX_UTF8),
      referencesToUtf8(tables.QARTULI_HEX_UTF8, tables.QARTULI_TEXT_UTF8),
      legacyToKhutsuri(tables.QARTULI_FONTCODES, tables.QARTULI_HEX_XUCURI) {}

std::string Conversions::Utf8Convert(std::string_view text, std::uint8_t mode, bool toLegacy) const {
  if (toLegacy) return utf8ToLegacy(text);
  return mode == 2 ? utf8ToLatin(text) : latinToUtf8(text);
}

std::string Conversions::Transliterate(std::string_view text, std::string_view direction) const {
  return direction == "U" ? latinToLegacy(text) : legacyToLatin(text);
}

}  // namespace convert
