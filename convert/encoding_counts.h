// How much Georgian of which encoding a text holds.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace convert {

// Letters, all 33 of the alphabet.
struct EncodingCounts {
  std::size_t legacy = 0;      // bytes of the 8-bit font
  std::size_t utf8 = 0;        // UTF-8 byte text
  std::size_t references = 0;  // decimal character references, Khutsuri ones too
  std::size_t latin = 0;       // ASCII letters, markup included
  bool operator==(const EncodingCounts&) const = default;
};

// A byte that is a letter in the legacy encoding, in a text that is in it.
bool isLegacyLetter(std::uint8_t byte);

// One pass. A byte of a well-formed UTF-8 character is no legacy letter.
EncodingCounts countEncodings(std::string_view text);

}  // namespace convert
