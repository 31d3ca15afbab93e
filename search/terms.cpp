#include "search/terms.h"

#include <algorithm>
#include <array>

namespace search {
namespace {

struct Key {
  int latin;
  int cyrillic;  // Windows-1251
  int georgian;  // legacy font
};

// Capitals; the small letters lie 32 codes above in all three.
constexpr int kSmall = 32;
constexpr std::array<Key, 21> kKeys = {{
    {'A', 212, 0xC0}, {'B', 200, 0xC1}, {'C', 209, 0xD6}, {'D', 194, 0xC4}, {'E', 211, 0xC5},
    {'F', 192, 0xD4}, {'G', 207, 0xC3}, {'I', 216, 0xC8}, {'K', 203, 0xCA}, {'L', 196, 0xCB},
    {'M', 220, 0xCC}, {'N', 210, 0xCD}, {'O', 217, 0xCE}, {'P', 199, 0xCF}, {'R', 202, 0xD0},
    {'S', 219, 0xD1}, {'T', 197, 0xD2}, {'U', 195, 0xD3}, {'V', 204, 0xC2}, {'X', 215, 0xD5},
    {'Z', 205, 0xC7},
}};

}  // namespace

// Letter by letter, not entry by entry: the first byte of every UTF-8 letter is itself a letter of the legacy
// font.
std::string utf8FromLegacy(std::string_view text, const convert::LetterTables& tables) {
  std::string utf8;
  for (const char byte : text) {
    const auto at = std::find(tables.QARTULI_FONTCODES.begin(), tables.QARTULI_FONTCODES.end(),
                              std::string_view(&byte, 1));
    if (at == tables.QARTULI_FONTCODES.end()) {
      utf8 += byte;
    } else {
      utf8 += tables.QARTULI_TEXT_UTF8.at(static_cast<std::size_t>(at - tables.QARTULI_FONTCODES.begin()));
    }
  }
  return utf8;
}

int georgianFromCyrillicField(int key) {
  for (const Key& known : kKeys) {
    for (const int step : {0, kSmall}) {
      if (key == known.latin + step || key == known.cyrillic + step) return known.georgian + step;
    }
  }
  return key;
}

int georgianFromLatin(int key, const convert::LetterTables& tables) {
  for (std::size_t i = 0; i < tables.GRIGOLIA.size(); ++i) {
    const std::string& latin = tables.GRIGOLIA[i];
    if (latin.size() == 1 && static_cast<unsigned char>(latin.front()) == key) {
      return static_cast<unsigned char>(tables.QARTULI_FONTCODES.at(i).front());
    }
  }
  return key;
}

}  // namespace search
