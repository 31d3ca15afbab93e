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
 public:
  explicit Conversions(const LetterTables& tables);

  // toLegacy: UTF-8 to the legacy font, whatever the mode. Else mode 2: UTF-8 to Latin transliteration, any
  // other mode: Latin to UTF-8.
  std::string Utf8Convert(std::string_view text, std::uint8_t mode, bool toLegacy) const;
  // Direction "U": Latin to the legacy font; any other: back.
  std::string Transliterate(std::string_view text, std::string_view direction) const;

  const Replacement latinToUtf8, utf8ToLatin, utf8ToLegacy, latinToLegacy, legacyToLatin;
  const Replacement referencesToRussian, russianToReferences;
  const Replacement referencesToLegacy, legacyToReferences, utf8ToReferences, referencesToUtf8;
  const Replacement legacyToKhutsuri;  // references of the Khutsuri letters
};

}  // namespace convert
