#include "search/terms.h"

#include <gtest/gtest.h>

#include "tests/support/fake_platform.h"
#include "tests/support/iconv.h"

namespace {

using namespace search;

convert::LetterTables tables() {
  tests::FakePlatform platform;
  return convert::loadLetterTables([&](std::string_view name) { return platform.resource(name); });
}

TEST(Terms, LegacyLettersBecomeUtf8AndLatinOnesStay) {
  // The library knows the encoding too; the last letter of the alphabet is left alone by every conversion.
  std::string letters;
  for (int byte = 0xC0; byte < 0xE4; ++byte) {
    if (byte != 0xC7 && byte != 0xCE && byte != 0xD5 && byte != 0xE2) letters += static_cast<char>(byte);
  }
  EXPECT_EQ(letters.size(), 32u);
  EXPECT_EQ(utf8FromLegacy(letters, tables()), tests::convertWithIconv(letters, "GEORGIAN-PS", "UTF-8"));
  const std::string others = "abc Tbilisi <P>\r\n\xC7\xCE\xD5\xE2\xE4\xFF";
  EXPECT_EQ(utf8FromLegacy(others, tables()), others);
  EXPECT_EQ(utf8FromLegacy("x\xE1"
                           "a",
                           tables()),
            "x\xE1\x83\xAE"
            "a");
}

// Keys and letters as the map on paper has them, capitals first.
TEST(Terms, CyrillicFieldTakesTheLatinAndTheRussianLetterOfAKey) {
  const std::string latin = "ABCDEFGIKLMNOPRSTUVXZ";
  const std::string russian = tests::convertWithIconv("ФИСВУАПШЛДЬТЩЗКЫЕГМЧН", "UTF-8", "CP1251");
  const std::string georgian = tests::convertWithIconv("ÀÁÖÄÅÔÃÈÊËÌÍÎÏÐÑÒÓÂÕÇ", "UTF-8", "LATIN1");
  const std::string small = tests::convertWithIconv("àáöäåôãèêëìíîïðñòóâõç", "UTF-8", "LATIN1");
  const std::string smallRussian = tests::convertWithIconv("фисвуапшлдьтщзкыегмчн", "UTF-8", "CP1251");
  const auto key = [](char c) { return static_cast<int>(static_cast<unsigned char>(c)); };
  for (std::size_t i = 0; i < latin.size(); ++i) {
    EXPECT_EQ(georgianFromCyrillicField(key(latin[i])), key(georgian[i])) << latin[i];
    EXPECT_EQ(georgianFromCyrillicField(key(russian[i])), key(georgian[i])) << latin[i];
    EXPECT_EQ(georgianFromCyrillicField(key(latin[i]) + 32), key(small[i])) << latin[i];
    EXPECT_EQ(georgianFromCyrillicField(key(smallRussian[i])), key(small[i])) << latin[i];
  }
  for (const char other : std::string("\b\r @HJQWYhy|\xA8\xC1\xD6\xDD\xFD\xFF")) {
    EXPECT_EQ(georgianFromCyrillicField(key(other)), key(other));
  }
}

TEST(Terms, GeorgianTypingTakesTheTransliteration) {
  const auto all = tables();
  EXPECT_EQ(georgianFromLatin('a', all), 0xC0);
  EXPECT_EQ(georgianFromLatin('T', all), 0xC8);
  EXPECT_EQ(georgianFromLatin('j', all), 0xE3);
  for (const int other : {8, 13, 32, 104, 65, 88, 0xC0, 0}) EXPECT_EQ(georgianFromLatin(other, all), other);
}

}  // namespace
