#include "base/utf8.h"

#include <cstdint>
#include <cstring>

namespace base {

void appendUtf8(std::string& out, char32_t character) {
  const auto put = [&out](char32_t byte) { out += static_cast<char>(static_cast<unsigned char>(byte)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | (character >> 6));
    put(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12));
    put(0x80 | ((character >> 6) & 0x3F));
    put(0x80 | (character & 0x3F));
  } else {
    put(0xF0 | (character >> 18));
    put(0x80 | ((character >> 12) & 0x3F));
    put(0x80 | ((character >> 6) & 0x3F));
    put(0x80 | (character & 0x3F));
  }
}

std::optional<char32_t> nextUtf8(std::string_view text, std::size_t& at) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (at >= text.size()) return std::nullopt;
  const unsigned char lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  // Georgian letters begin so, and are most of what is read.
  if (lead == 0xE1 && text.size() - at >= 3 && (byte(at + 1) & 0xC0) == 0x80 &&
      (byte(at + 2) & 0xC0) == 0x80) {
    at += 3;
    return char32_t{0x1000} | (byte(at - 2) & 0x3FU) << 6 | (byte(at - 1) & 0x3FU);
  }
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - at < length) return std::nullopt;
  char32_t character = lead & (0xFF >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return std::nullopt;
    character = (character << 6) | (byte(at + i) & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF || (character >= 0xD800 && character < 0xE000)) {
    return std::nullopt;
  }
  at += length;
  return character;
}

namespace {

// Where the ASCII characters end that begin at `at`; eight at a time, since most of a page is ASCII.
std::size_t asciiEnd(std::string_view text, std::size_t at) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  for (std::uint64_t eight = 0; at + sizeof eight <= text.size(); at += sizeof eight) {
    std::memcpy(&eight, text.data() + at, sizeof eight);
    if ((eight & kHighBits) != 0) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at;
}

}  // namespace

bool isUtf8(std::string_view text) {
  for (std::size_t at = asciiEnd(text, 0); at < text.size(); at = asciiEnd(text, at)) {
    // Georgian letters, one word long.
    while (text.size() - at > 2 && text[at] == '\xE1' && (text[at + 1] & 0xC0) == 0x80 &&
           (text[at + 2] & 0xC0) == 0x80) {
      at += 3;
    }
    if (at < text.size() && !nextUtf8(text, at)) return false;
  }
  return true;
}

bool readsAsUtf8(std::string_view text) {
  return asciiEnd(text, 0) < text.size() && isUtf8(text);
}

bool isUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

}  // namespace base
