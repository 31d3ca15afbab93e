// Any bytes as a text that is converted: in one pass as entry by entry.
#include "tests/convert/tables.h"
#include "tests/fuzz/fuzz.h"
#include "tests/support/entry_by_entry.h"

namespace {

using convert::Conversions;
using convert::LetterTables;

struct Pair {
  convert::Table LetterTables::*from, LetterTables::*to;
  const convert::Replacement Conversions::*by;
};
constexpr Pair kPairs[] = {
    {&LetterTables::GRIGOLIA, &LetterTables::QARTULI_TEXT_UTF8, &Conversions::latinToUtf8},
    {&LetterTables::QARTULI_TEXT_UTF8, &LetterTables::GRIGOLIA, &Conversions::utf8ToLatin},
    {&LetterTables::QARTULI_TEXT_UTF8, &LetterTables::QARTULI_FONTCODES, &Conversions::utf8ToLegacy},
    {&LetterTables::GRIGOLIA, &LetterTables::QARTULI_FONTCODES, &Conversions::latinToLegacy},
    {&LetterTables::QARTULI_FONTCODES, &LetterTables::GRIGOLIA, &Conversions::legacyToLatin},
    {&LetterTables::RUSULI_HEX, &LetterTables::RUSULI_FONTCODES, &Conversions::referencesToRussian},
    {&LetterTables::RUSULI_FONTCODES, &LetterTables::RUSULI_HEX, &Conversions::russianToReferences},
    {&LetterTables::QARTULI_HEX_UTF8, &LetterTables::QARTULI_FONTCODES, &Conversions::referencesToLegacy},
    {&LetterTables::QARTULI_FONTCODES, &LetterTables::QARTULI_HEX_UTF8, &Conversions::legacyToReferences},
    {&LetterTables::QARTULI_TEXT_UTF8, &LetterTables::QARTULI_HEX_UTF8, &Conversions::utf8ToReferences},
    {&LetterTables::QARTULI_HEX_UTF8, &LetterTables::QARTULI_TEXT_UTF8, &Conversions::referencesToUtf8},
    {&LetterTables::QARTULI_FONTCODES, &LetterTables::QARTULI_HEX_XUCURI, &Conversions::legacyToKhutsuri},
};

std::vector<std::string> letters() {
  std::vector<std::string> all = {std::string(1, '\0'), "&#", ";", "&#4", "\xE1", "\xE1\x83", "\x83"};
  for (const Pair& pair : kPairs) {
    const convert::Table& table = tests::letterTables().*pair.from;
    all.insert(all.end(), table.begin(), table.end());
  }
  return all;
}

}  // namespace

FUZZ(Conversions, letters()) {
  const Pair& pair = kPairs[fuzz::choose(bytes, std::size(kPairs))];
  const auto& tables = tests::letterTables();
  MUST((tests::conversions().*pair.by)(bytes) ==
       tests::entryByEntry(bytes, tables.*pair.from, tables.*pair.to));
}
