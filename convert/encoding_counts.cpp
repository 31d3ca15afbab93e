#include "convert/encoding_counts.h"

#include "base/utf8.h"

namespace convert {
namespace {

constexpr char32_t kFirst = 0x10D0, kLast = 0x10F0;
constexpr char32_t kFirstKhutsuri = 0x10A0, kLastKhutsuri = 0x10C0;
constexpr std::size_t kReferenceSize = 7;  // "&#4304;"

bool isLatin(std::uint8_t byte) {
  return static_cast<std::uint8_t>((byte | 0x20) - 'a') < 26;
}

bool isGeorgianReference(std::string_view text) {
  if (text.size() < kReferenceSize || text[1] != '#' || text[6] != ';') return false;
  char32_t number = 0;
  for (std::size_t i = 2; i < 6; ++i) {
    if (text[i] < '0' || text[i] > '9') return false;
    number = number * 10 + static_cast<char32_t>(text[i] - '0');
  }
  return (number >= kFirst && number <= kLast) || (number >= kFirstKhutsuri && number <= kLastKhutsuri);
}

}  // namespace

bool isLegacyLetter(std::uint8_t byte) {
  return byte >= 0xC0 && byte <= 0xE4 && byte != 0xC7 && byte != 0xCE && byte != 0xD5 && byte != 0xE2;
}

EncodingCounts countEncodings(std::string_view text) {
  EncodingCounts counts;
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<std::uint8_t>(text[at]);
    if (byte < 0x80) {
      counts.latin += isLatin(byte) ? 1U : 0U;
      const bool reference = byte == '&' && isGeorgianReference(text.substr(at));
      counts.references += reference ? 1 : 0;
      at += reference ? kReferenceSize : 1;
    } else if (const auto character = base::nextUtf8(text, at)) {
      counts.utf8 += *character >= kFirst && *character <= kLast ? 1U : 0U;
    } else {
      counts.legacy += isLegacyLetter(byte) ? 1U : 0U;
      ++at;
    }
  }
  return counts;
}

}  // namespace convert
