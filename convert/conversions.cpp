#include "convert/conversions.h"

namespace convert {

std::string Conversions::Utf8Convert(std::string_view text, std::uint8_t mode, bool toLegacy) const {
  if (toLegacy) return utf8ToLegacy(text);
  return mode == 2 ? utf8ToLatin(text) : latinToUtf8(text);
}

std::string Conversions::Transliterate(std::string_view text, std::string_view direction) const {
  return direction == "U" ? latinToLegacy(text) : legacyToLatin(text);
}

}  // namespace convert
