#include "convert/replacement.h"

#include <gtest/gtest.h>

#include <random>

#include "base/error.h"
#include "tests/convert/tables.h"
#include "tests/support/entry_by_entry.h"

namespace {

using convert::Conversions;
using convert::LetterTables;
using convert::Replacement;
using convert::Table;

struct Pair {
  const char* name;
  Table LetterTables::*from;
  Table LetterTables::*to;
  const Replacement Conversions::*by;
};

const Pair kPairs[] = {
    {"G_QT", &LetterTables::GRIGOLIA, &LetterTables::QARTULI_TEXT_UTF8, &Conversions::latinToUtf8},
    {"QT_G", &LetterTables::QARTULI_TEXT_UTF8, &LetterTables::GRIGOLIA, &Conversions::utf8ToLatin},
    {"QT_QU", &LetterTables::QARTULI_TEXT_UTF8, &LetterTables::QARTULI_FONTCODES, &Conversions::utf8ToLegacy},
    {"G_QU", &LetterTables::GRIGOLIA, &LetterTables::QARTULI_FONTCODES, &Conversions::latinToLegacy},
    {"QU_G", &LetterTables::QARTULI_FONTCODES, &LetterTables::GRIGOLIA, &Conversions::legacyToLatin},
    {"RH_RU", &LetterTables::RUSULI_HEX, &LetterTables::RUSULI_FONTCODES, &Conversions::referencesToRussian},
    {"RU_RH", &LetterTables::RUSULI_FONTCODES, &LetterTables::RUSULI_HEX, &Conversions::russianToReferences},
    {"QH_QU", &LetterTables::QARTULI_HEX_UTF8, &LetterTables::QARTULI_FONTCODES,
     &Conversions::referencesToLegacy},
    {"QU_QH", &LetterTables::QARTULI_FONTCODES, &LetterTables::QARTULI_HEX_UTF8,
     &Conversions::legacyToReferences},
    {"QT_QH", &LetterTables::QARTULI_TEXT_UTF8, &LetterTables::QARTULI_HEX_UTF8,
     &Conversions::utf8ToReferences},
    {"QH_QT", &LetterTables::QARTULI_HEX_UTF8, &LetterTables::QARTULI_TEXT_UTF8,
     &Conversions::referencesToUtf8},
    {"QU_QX", &LetterTables::QARTULI_FONTCODES, &LetterTables::QARTULI_HEX_XUCURI,
     &Conversions::legacyToKhutsuri},
};

void PrintTo(const Pair& pair, std::ostream* out) {
  *out << pair.name;
}

// Whole entries of both tables, pieces of them, zero bytes and any bytes: what can complete a letter or spoil
// it.
std::string malformedText(std::mt19937& random, const Table& from, const Table& to, std::size_t pieces) {
  const auto any = [&](std::size_t count) { return static_cast<std::size_t>(random() % count); };
  std::string text;
  for (std::size_t n = 0; n < pieces; ++n) {
    const std::string& entry = any(3) == 0 ? to[any(to.size())] : from[any(from.size())];
    switch (any(6)) {
      case 0:
        text += entry.substr(any(entry.size() + 1));
        break;
      case 1:
        text += entry.substr(0, any(entry.size() + 1));
        break;
      case 2:
        text.append(any(4), '\0');
        break;
      case 3:
        text += static_cast<char>(any(256));
        break;
      default:
        text += entry;
    }
  }
  return text;
}

class EachPair : public testing::TestWithParam<Pair> {};
INSTANTIATE_TEST_SUITE_P(Program, EachPair, testing::ValuesIn(kPairs),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(EachPair, IsOnePassAndEqualToTheRuleOnMalformedText) {
  const Table& from = tests::letterTables().*GetParam().from;
  const Table& to = tests::letterTables().*GetParam().to;
  const Replacement& by = tests::conversions().*GetParam().by;
  EXPECT_TRUE(by.onePass());
  std::mt19937 random(20240817);  // NOLINT: the same texts in every run
  for (int round = 0; round < 3000; ++round) {
    const std::string text = malformedText(random, from, to, random() % 60);
    ASSERT_EQ(by(text), tests::entryByEntry(text, from, to)) << testing::PrintToString(text);
  }
  // Long enough for many blocks.
  const std::string text = malformedText(random, from, to, 50000);
  EXPECT_TRUE(by(text) == tests::entryByEntry(text, from, to));
}

TEST_P(EachPair, FindsLettersAcrossTheEndOfABlock) {
  // A filling moves whole and cut letters over the end of a block of the converter.
  const Table& from = tests::letterTables().*GetParam().from;
  const Table& to = tests::letterTables().*GetParam().to;
  const Replacement& by = tests::conversions().*GetParam().by;
  for (std::size_t fill = 4080; fill < 4104; ++fill) {
    for (const std::size_t entry : {std::size_t{0}, from.size() - 2, from.size() - 1}) {
      const std::string text = std::string(fill, '.') + from[entry] + from[entry];
      ASSERT_EQ(by(text), tests::entryByEntry(text, from, to)) << fill << " " << entry;
      const std::string cut = text.substr(0, text.size() - 1);
      ASSERT_EQ(by(cut), tests::entryByEntry(cut, from, to)) << fill << " " << entry;
    }
  }
}

TEST(Replacement, ALetterCanCompleteALaterOneFromUtf8) {
  const Replacement& by = tests::conversions().utf8ToLegacy;
  const std::string zero(1, '\0');
  EXPECT_EQ(by("\xE1\x83\xAE"), "\xE1");
  EXPECT_EQ(by("\xE1\x83\xAE\x83\xAF"), "\xE3");
  EXPECT_EQ(by("\xE1\x83\xAE\x83\xB0" + zero), "\xE4" + zero + zero + zero);
  // Its own entry and the earlier ones are over by then.
  EXPECT_EQ(by("\xE1\x83\xAE\x83\xAE"), "\xE1\x83\xAE");
  EXPECT_EQ(by("\xE1\x83\xAE\x83\x90"), "\xE1\x83\x90");
}

// Small tables over few letters: sources that overlap, contain, produce and complete each other in every way.
TEST(Replacement, AnyTablesGiveWhatTheRuleGives) {
  std::mt19937 random(7);  // NOLINT: the same tables in every run
  const auto word = [&](std::size_t most, int letters) {
    std::string out;
    for (std::size_t size = random() % (most + 1); size > 0; --size) {
      out += static_cast<char>('a' + static_cast<int>(random() % static_cast<unsigned>(letters)));
    }
    return out;
  };
  int onePass = 0;
  int completing = 0;
  for (int round = 0; round < 60000; ++round) {
    const int letters = 2 + static_cast<int>(random() % 7);
    Table from;
    Table to;
    for (std::size_t entries = 1 + random() % 4; entries > 0; --entries) {
      from.push_back(word(random() % 20 == 0 ? 10 : 3, letters));
      to.push_back(word(random() % 20 == 0 ? 10 : 2, letters));
    }
    const Replacement by(from, to);
    if (by.onePass()) ++onePass;
    for (int texts = 0; texts < 6; ++texts) {
      std::string text = word(24, letters);
      for (int more = 0; more < 3; ++more) text += from[random() % from.size()] + word(2, letters);
      const std::string rule = tests::entryByEntry(text, from, to);
      ASSERT_EQ(by(text), rule) << testing::PrintToString(from) << testing::PrintToString(to) << text;
      if (by.onePass() && tests::entryByEntry(rule, from, to) != rule) ++completing;
    }
  }
  // Both ways were really taken.
  EXPECT_GT(onePass, 3000);
  EXPECT_LT(onePass, 57000);
  EXPECT_GT(completing, 100);
}

TEST(Replacement, RefusesTablesOfDifferentLengths) {
  EXPECT_THROW(Replacement({"a", "b"}, {"c"}), base::Error);
}

TEST(Replacement, AppendsBehindWhatIsThere) {
  std::string out = "<P>";
  tests::conversions().latinToLegacy.append("ab", out);
  EXPECT_EQ(out, "<P>\xC0\xC1");
}

}  // namespace
