// The program's own letter tables, for tests.
#pragma once

#include "base/files.h"
#include "convert/conversions.h"

namespace tests {

inline const convert::LetterTables& letterTables() {
  static const convert::LetterTables tables = convert::loadLetterTables([](std::string_view name) {
    return base::readFile(std::string(ZERVO_SOURCE "/resources/custom/") + std::string(name) + ".bin");
  });
  return tables;
}

inline const convert::Conversions& conversions() {
  static const convert::Conversions conversions(letterTables());
  return conversions;
}

}  // namespace tests
