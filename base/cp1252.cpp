#include "base/cp1252.h"

#include <algorithm>
#include <array>

#include "base/utf8.h"

namespace base {
namespace {

// 0x80..0x9F; the five bytes that Windows-1252 leaves open stand for the control character of their number.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

char16_t charOfByte(std::uint8_t byte) {
  return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80U] : byte;
}

std::optional<std::uint8_t> byteOfChar(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
    return static_cast<std::uint8_t>(character);
  }
  const auto* const at = std::find(kUpperControls.begin(), kUpperControls.end(), character);
  if (at == kUpperControls.end()) return std::nullopt;
  return static_cast<std::uint8_t>(0x80 + (at - kUpperControls.begin()));
}

std::string utf8FromBytes(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size());
  for (const char c : bytes) appendUtf8(out, charOfByte(static_cast<std::uint8_t>(c)));
  return out;
}

std::optional<std::string> bytesFromUtf8(std::string_view utf8) {
  std::string out;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto character = nextUtf8(utf8, at);
    const auto byte = character ? byteOfChar(*character) : std::nullopt;
    if (!byte) return std::nullopt;
    out += static_cast<char>(*byte);
  }
  return out;
}

std::string storedName(std::string_view utf8) {
  // 8-bit bytes that happen to be UTF-8 would be read back as another name, so such a name stays UTF-8 too.
  const auto bytes = bytesFromUtf8(utf8);
  return bytes && nameFromStored(*bytes) == utf8 ? *bytes : std::string(utf8);
}

std::string nameFromStored(std::string_view stored) {
  return isUtf8(stored) ? std::string(stored) : utf8FromBytes(stored);
}

}  // namespace base
