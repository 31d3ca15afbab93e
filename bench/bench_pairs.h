// The pairs of tables that the program's commands use, by name.
#pragma once

#include <stdexcept>
#include <string_view>

#include "convert/letter_tables.h"

namespace bench {

struct Pair {
  std::string_view name;
  convert::Table convert::LetterTables::*from;
  convert::Table convert::LetterTables::*to;
};

using Tables = convert::LetterTables;
inline constexpr Pair kPairs[] = {
    {"latin-utf8", &Tables::GRIGOLIA, &Tables::QARTULI_TEXT_UTF8},
    {"latin-legacy", &Tables::GRIGOLIA, &Tables::QARTULI_FONTCODES},
    {"utf8-latin", &Tables::QARTULI_TEXT_UTF8, &Tables::GRIGOLIA},
    {"utf8-legacy", &Tables::QARTULI_TEXT_UTF8, &Tables::QARTULI_FONTCODES},
    {"utf8-references", &Tables::QARTULI_TEXT_UTF8, &Tables::QARTULI_HEX_UTF8},
    {"legacy-latin", &Tables::QARTULI_FONTCODES, &Tables::GRIGOLIA},
    {"legacy-references", &Tables::QARTULI_FONTCODES, &Tables::QARTULI_HEX_UTF8},
    {"legacy-khutsuri", &Tables::QARTULI_FONTCODES, &Tables::QARTULI_HEX_XUCURI},
    {"references-legacy", &Tables::QARTULI_HEX_UTF8, &Tables::QARTULI_FONTCODES},
    {"references-utf8", &Tables::QARTULI_HEX_UTF8, &Tables::QARTULI_TEXT_UTF8},
    {"russian-references", &Tables::RUSULI_FONTCODES, &Tables::RUSULI_HEX},
    {"references-russian", &Tables::RUSULI_HEX, &Tables::RUSULI_FONTCODES},
};

inline const Pair& pairNamed(std::string_view name) {
  for (const Pair& pair : kPairs) {
    if (pair.name == name) return pair;
  }
  throw std::runtime_error("no such pair");
}

}  // namespace bench
