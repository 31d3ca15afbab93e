#include "convert/symbols.h"

#include <array>

#include "base/utf8.h"
#include "convert/form_codec.h"
#include "markup/entities.h"

namespace convert {
namespace {

// How often a text is taken for 8-bit and encoded again before nobody can read it.
constexpr int kMostTimes = 3;

// What stands in the pages of our users: Latin-1, Cyrillic, Georgian, punctuation and signs, emoji.
bool isLikely(char32_t c) {
  return c <= 0xFF || (c >= 0x400 && c <= 0x47F) || isGeorgian(c) || (c >= 0x2000 && c <= 0x27BF) ||
         c == 0xFEFF || (c >= 0x1F000 && c < 0x20000);
}

std::uint8_t byteAt(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]);
}

struct Read {
  char32_t character;
  std::uint32_t size;
};

// The byte that was taken for the character; 0 when it was none.
std::uint8_t takenFor(char32_t character) {
  if (character >= 0x80 && character <= 0xFF) return static_cast<std::uint8_t>(character);
  return character < 0x80 || character > 0x2122 ? 0 : base::byteOfChar(character).value_or(0);
}

// The character at `at` after the text has been decoded `times` times more than it is.
std::optional<Read> decoded(std::string_view text, std::size_t at, Reading reading, int times) {
  if (at >= text.size() || byteAt(text, at) < 0x80) {
    if (at >= text.size() || text[at] != '&' || !reading.references) return std::nullopt;
  }
  if (times == 0) {
    const Symbol symbol = symbolAt(text, at, reading, false);
    if (symbol.source != Source::Utf8 && symbol.source != Source::Reference) return std::nullopt;
    return Read{symbol.character, symbol.size};
  }
  const auto lead = decoded(text, at, reading, times - 1);
  const std::uint8_t first = lead ? takenFor(lead->character) : 0;
  if (first < 0xC2 || first > 0xF4) return std::nullopt;
  std::array<char, 4> bytes{static_cast<char>(first)};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  std::uint32_t size = lead->size;
  for (std::size_t i = 1; i < length; ++i) {
    const auto next = decoded(text, at + size, reading, times - 1);
    const std::uint8_t byte = next ? takenFor(next->character) : 0;
    if (byte < 0x80 || byte > 0xBF) return std::nullopt;
    bytes[i] = static_cast<char>(byte);
    size += next->size;
  }
  std::size_t behind = 0;
  const auto character = base::nextUtf8({bytes.data(), length}, behind);
  if (!character) return std::nullopt;
  return Read{*character, size};
}

}  // namespace

Symbol symbolAt(std::string_view text, std::size_t at, Reading reading, bool afterByte) {
  const std::uint8_t first = byteAt(text, at);
  if (first < 0x80) {
    if (first == '&' && reading.references) {
      if (const auto reference = markup::referenceAt(text.substr(at))) {
        return {reference->character, static_cast<std::uint32_t>(reference->size),
                reference->character < 0x80 ? Source::Literal : Source::Reference, reference->sound,
                reference->numeric};
      }
    }
    return {first, 1, Source::Ascii};
  }
  const bool follows = at + 1 < text.size() && (byteAt(text, at + 1) & 0xC0) == 0x80;
  if (follows && (first >= 0xE0 || !(reading.pairsAreBytes || afterByte))) {
    std::size_t behind = at;
    const auto character = base::nextUtf8(text, behind);
    const bool odd = character && reading.oddOnesAreBytes && behind - at > 2 && !isLikely(*character);
    if (character && !odd) {
      return {*character, static_cast<std::uint32_t>(behind - at), Source::Utf8};
    }
  }
  return {first, 1, Source::Byte};
}

std::optional<Repaired> repairedAt(std::string_view text, std::size_t at, Reading reading) {
  std::optional<Read> best;
  int times = 0;
  for (; times < kMostTimes; ++times) {
    const auto next = decoded(text, at, reading, times + 1);
    if (!next) break;
    best = next;
  }
  if (!best) return std::nullopt;
  // A letter and signs beside each other, such as "é", a no-break space and "»", are another character of
  // UTF-8 by chance.
  if (times == 1 && !isLikely(best->character)) return std::nullopt;
  return Repaired{best->character, best->size, best->character >= 0x800 || times > 1};
}

}  // namespace convert
