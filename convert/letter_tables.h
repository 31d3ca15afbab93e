// The seven letter tables. Entry i of every Georgian table is the same letter, likewise of the Russian ones.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace convert {

using Table = std::vector<std::string>;  // byte texts

// The last entry of each table carries the zero bytes at its resource's end, so that the last letter never
// matches in an ordinary text.
struct LetterTables {
  Table GRIGOLIA;            // Latin transliteration letters
  Table QARTULI_FONTCODES;   // bytes of the legacy 8-bit font
  Table QARTULI_TEXT_UTF8;   // UTF-8 byte text
  Table QARTULI_HEX_UTF8;    // decimal character references
  Table QARTULI_HEX_XUCURI;  // decimal references of the Khutsuri letters
  Table RUSULI_FONTCODES;    // bytes of Windows-1251
  Table RUSULI_HEX;          // decimal references of the same letters
};

// `resource` gives the bytes of the CUSTOM resource of that name.
LetterTables loadLetterTables(const std::function<std::string(std::string_view name)>& resource);

}  // namespace convert
