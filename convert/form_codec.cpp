#include "convert/form_codec.h"

#include <algorithm>
#include <string_view>

#include "base/cp1252.h"
#include "convert/russian.h"

namespace convert {
namespace {

constexpr std::string_view kKeys = "abgdevzTiklmnopJrstufqRySCcZwWxjh";
constexpr std::uint8_t kFirstByte = 0xC0;
// The letters of the bytes from C0 on. The old ones stand where they stood in the alphabet.
constexpr std::u16string_view kLegacyLetters = u"აბგდევზჱთიკლმნჲოპჟრსტჳუფქღყშჩცძწჭხჴჯჰჵ";
constexpr std::size_t kAcademyLetters = 39;

using Characters = std::array<char16_t, 256>;

Characters western() {
  Characters made{};
  for (std::size_t i = 0; i < made.size(); ++i) made[i] = base::charOfByte(static_cast<std::uint8_t>(i));
  return made;
}

Characters legacy() {
  Characters made = western();
  std::ranges::copy(kLegacyLetters, made.begin() + kFirstByte);
  return made;
}

Characters academy() {
  Characters made = western();
  for (std::size_t i = 0; i < kAcademyLetters; ++i) {
    made[kFirstByte + i] = static_cast<char16_t>(kFirstGeorgian + i);
  }
  return made;
}

Characters russian() {
  Characters made = western();
  made[0x88] = u'€';
  made[0x98] = 0x98;
  made[0x80] = 0x402;
  for (char32_t c = 0x400; c <= 0x2116; c = c == 0x4FF ? 0x2116 : c + 1) {
    if (const auto byte = cyrillicByte(c)) made[*byte] = static_cast<char16_t>(c);
  }
  return made;
}

}  // namespace

const std::array<char16_t, 256>& charactersOf(Form eightBit) {
  static const Characters westernOnes = western(), legacyOnes = legacy(), academyOnes = academy(),
                          russianOnes = russian();
  switch (eightBit) {
    case Form::Legacy:
      return legacyOnes;
    case Form::Academy:
      return academyOnes;
    case Form::Russian:
      return russianOnes;
    default:
      return westernOnes;
  }
}

std::optional<std::uint8_t> byteIn(Form eightBit, char32_t character) {
  if (character < 0x80) return static_cast<std::uint8_t>(character);
  const Characters& all = charactersOf(eightBit);
  const auto* const at = std::find(all.begin() + 0x80, all.end(), character);
  if (at == all.end()) return std::nullopt;
  return static_cast<std::uint8_t>(at - all.begin());
}

char32_t keyboardLetter(std::uint8_t key) {
  static constexpr auto kLetters = [] {
    std::array<char16_t, 256> made{};
    for (std::size_t i = 0; i < kKeys.size(); ++i) {
      made[static_cast<std::uint8_t>(kKeys[i])] = static_cast<char16_t>(kFirstGeorgian + i);
    }
    return made;
  }();
  return kLetters[key];
}

std::optional<char> keyOf(char32_t georgian) {
  if (georgian < kFirstGeorgian || georgian > kLastModern) return std::nullopt;
  return kKeys[georgian - kFirstGeorgian];
}

}  // namespace convert
