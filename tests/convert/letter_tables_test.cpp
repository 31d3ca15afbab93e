#include "convert/letter_tables.h"

#include <gtest/gtest.h>

#include "tests/convert/tables.h"
#include "tests/support/iconv.h"

namespace {

using convert::LetterTables;
using convert::Table;

struct Form {
  const char* resource;
  Table LetterTables::*table;
  std::size_t entries, bytes, zeros, width;
};

const Form kForms[] = {
    {"GRIGOLIA", &LetterTables::GRIGOLIA, 33, 68, 3, 1},
    {"QARTULI_FONTCODES", &LetterTables::QARTULI_FONTCODES, 33, 68, 3, 1},
    {"QARTULI_TEXT_UTF8", &LetterTables::QARTULI_TEXT_UTF8, 33, 132, 1, 3},
    {"QARTULI_HEX_UTF8", &LetterTables::QARTULI_HEX_UTF8, 33, 264, 1, 7},
    {"QARTULI_HEX_XUCURI", &LetterTables::QARTULI_HEX_XUCURI, 33, 264, 1, 7},
    {"RUSULI_FONTCODES", &LetterTables::RUSULI_FONTCODES, 66, 132, 1, 1},
    {"RUSULI_HEX", &LetterTables::RUSULI_HEX, 66, 528, 1, 7},
};

TEST(LetterTables, HaveTheirSizesAndKeepTheZerosOnTheLastEntry) {
  for (const Form& form : kForms) {
    SCOPED_TRACE(form.resource);
    const std::string resource =
        base::readFile(std::string(ZERVO_SOURCE "/resources/custom/") + form.resource + ".bin");
    EXPECT_EQ(resource.size(), form.bytes);
    const Table& table = tests::letterTables().*form.table;
    ASSERT_EQ(table.size(), form.entries);
    for (std::size_t i = 0; i + 1 < table.size(); ++i) EXPECT_EQ(table[i].size(), form.width) << i;
    EXPECT_EQ(table.back().size(), form.width + form.zeros);
    EXPECT_EQ(table.back().substr(form.width), std::string(form.zeros, '\0'));
  }
}

std::string numberOf(const std::string& reference) {
  return reference.substr(2, 4);
}

// The C library knows the legacy font's encoding and Windows-1251.
TEST(LetterTables, AgreeWithIconv) {
  const LetterTables& tables = tests::letterTables();
  for (std::size_t i = 0; i < 33; ++i) {
    SCOPED_TRACE(i);
    const std::string legacy = tables.QARTULI_FONTCODES[i].substr(0, 1);
    const std::string utf8 = tables.QARTULI_TEXT_UTF8[i].substr(0, 3);
    EXPECT_EQ(tests::convertWithIconv(legacy, "GEORGIAN-PS", "UTF-8"), utf8);
    const std::string wide = tests::convertWithIconv(utf8, "UTF-8", "UCS-4LE");
    const int number = static_cast<unsigned char>(wide[0]) + 256 * static_cast<unsigned char>(wide[1]);
    EXPECT_EQ(number, 0x10D0 + static_cast<int>(i));
    EXPECT_EQ(numberOf(tables.QARTULI_HEX_UTF8[i]), std::to_string(number));
    EXPECT_EQ(numberOf(tables.QARTULI_HEX_XUCURI[i]), std::to_string(number - 0x30));
  }
  for (std::size_t i = 0; i < 66; ++i) {
    SCOPED_TRACE(i);
    const std::string wide =
        tests::convertWithIconv(tables.RUSULI_FONTCODES[i].substr(0, 1), "CP1251", "UCS-4LE");
    const int number = static_cast<unsigned char>(wide[0]) + 256 * static_cast<unsigned char>(wide[1]);
    EXPECT_EQ(numberOf(tables.RUSULI_HEX[i]), std::to_string(number));
  }
}

TEST(LetterTables, HoldTheAlphabetsInOrder) {
  const LetterTables& tables = tests::letterTables();
  std::string keys;
  for (const std::string& entry : tables.GRIGOLIA) keys += entry.substr(0, 1);
  EXPECT_EQ(keys, "abgdevzTiklmnopJrstufqRySCcZwWxjh");
  std::string russian;
  for (const std::string& entry : tables.RUSULI_FONTCODES) russian += entry.substr(0, 1);
  EXPECT_EQ(tests::convertWithIconv(russian, "CP1251", "UTF-8"),
            "АБВГДЕЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯЁабвгдежзийклмнопрстуфхцчшщъыьэюяё");
}

}  // namespace
