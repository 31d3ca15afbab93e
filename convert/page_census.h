// What kind of bytes a file holds, before anybody reads its letters.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace convert {

// Counted until there are enough lone bytes to say that this is 8-bit text.
struct PageCensus {
  std::size_t loneBytes = 0;  // 80..FF that belong to no UTF-8 character
  std::size_t pairs = 0;      // UTF-8 characters of two bytes
  std::size_t longer = 0;     // of three or four
  bool utf8Mark = false;      // begins with a byte-order mark
  bool isUtf8() const { return loneBytes == 0; }
};
PageCensus censusOf(std::string_view page);

// Why a file is no page whose letters can be converted.
enum class Trouble : std::uint8_t {
  None,
  Empty,
  Utf16Little,
  Utf16Big,
  Binary,          // a picture, a program, an archive...
  TooBig,          // 4 GB or more
  ForeignCharset,  // declares an 8-bit character set which is none of the forms, and its letters are none of
                   // them
};
Trouble troubleOf(std::string_view file);

// A sentence in English, for the command line.
std::string_view sentenceOf(Trouble trouble);

// The text of a UTF-16 file as UTF-8, without the byte-order mark; unpaired surrogates become U+FFFD.
std::string utf8FromUtf16(std::string_view file, bool bigEndian);

}  // namespace convert
