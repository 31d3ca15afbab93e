// Rows and pages of printed text: counted by hand, and what must hold for any text.
#include "print/print_layout.h"

#include <gtest/gtest.h>

#include <random>

#include "print/print_sheet.h"
#include "print/scaled_canvas.h"
#include "tests/print/fake_printer.h"

namespace {

using namespace std::string_literals;

std::vector<std::string> rowsOf(const std::string& text, print::PrintGrid grid) {
  std::vector<std::string> rows;
  const print::PrintLayout layout(text, grid);
  for (const auto& row : layout.rows()) {
    rows.push_back((row.continued ? "> " : "") + print::rowText(text, row, grid));
  }
  return rows;
}

TEST(PrintLayout, RowsAreWhatAReaderWouldWrite) {
  using Rows = std::vector<std::string>;
  EXPECT_EQ(rowsOf("", {10, 3}), Rows{});
  EXPECT_EQ(rowsOf("a\r\n\r\nb\rc\nd\r\n", {10, 3}), (Rows{"a", "", "b", "c", "d"}));
  EXPECT_EQ(rowsOf("0123456789", {10, 3}), Rows{"0123456789"});
  EXPECT_EQ(rowsOf("0123456789abcdefghXY\nz", {10, 3}), (Rows{"0123456789", "> abcdefgh", "> XY", "z"}));
  EXPECT_EQ(rowsOf("\ta\tb", {20, 3}), Rows{"        a       b"});
  // A tab does not go over the end of a row, and begins none.
  EXPECT_EQ(rowsOf("123456789\tx", {10, 3}), (Rows{"123456789 ", "> x"}));
  EXPECT_EQ(rowsOf("\xC0\0\x7F\x1F"s, {10, 3}), Rows{"\xC0\0\0\0"s});
}

TEST(PrintLayout, ALetterOfUtf8TakesOneColumn) {
  using Rows = std::vector<std::string>;
  const print::PrintGrid grid{10, 3, true};
  EXPECT_EQ(rowsOf("აბგდევზთიკლმ\tნ\r\n\xE1\x83№", grid),
            (Rows{"აბგდევზთიკ", "> ლმ      ", "> ნ", "\xE1\x83№"}));
  EXPECT_EQ(rowsOf("აბ\tგ\x01", {20, 3, true}), Rows{"აბ      გ\0"s});
}

TEST(PrintLayout, PagesHoldTheirRows) {
  const std::string text = "1\n2\n3\n4\n5\n6\n7";
  const print::PrintLayout layout(text, {10, 3});
  ASSERT_EQ(layout.pages(), 3);
  EXPECT_EQ(layout.page(1).size(), 3U);
  EXPECT_EQ(layout.page(1)[0].line, 3U);
  EXPECT_EQ(layout.page(2).size(), 1U);
  EXPECT_TRUE(layout.page(3).empty());
  EXPECT_EQ(print::PrintLayout("1\n2\n3\n", {10, 3}).pages(), 1);
  EXPECT_EQ(print::PrintLayout("", {10, 3}).pages(), 1);
  EXPECT_TRUE(print::PrintLayout("", {10, 3}).page(0).empty());
}

TEST(PrintLayout, EveryByteStandsOnceInOrderAndNoRowIsTooWide) {
  std::mt19937 random(7);
  const std::string letters = "ab\t\xC0 \r\n\n\r\0\xFF"s;
  for (int round = 0; round < 300; ++round) {
    std::string text;
    for (unsigned length = random() % 400; text.size() < length;) {
      text.append(random() % 9, letters[random() % letters.size()]);
    }
    const print::PrintGrid grid{static_cast<int>(3 + random() % 30), static_cast<int>(1 + random() % 5)};
    const print::PrintLayout layout(text, grid);
    std::size_t next = 0;
    std::size_t lines = 0;
    std::size_t width = 0;
    for (int page = 0; page < layout.pages(); ++page) {
      for (const auto& row : layout.page(page)) {
        if (row.continued) {
          EXPECT_EQ(row.begin, next);
          EXPECT_EQ(width, static_cast<std::size_t>(grid.columns)) << "broken before it was full";
        } else {
          const std::string between = text.substr(next, row.begin - next);
          EXPECT_TRUE(lines == 0 ? between.empty() : between == "\n" || between == "\r" || between == "\r\n");
          EXPECT_EQ(row.line, lines++);
        }
        width = print::rowText(text, row, grid).size() + (row.continued ? 2 : 0);
        EXPECT_LE(width, static_cast<std::size_t>(grid.columns));
        next = row.end;
      }
    }
    EXPECT_EQ(text.substr(next).find_first_not_of("\r\n"), std::string::npos);
    EXPECT_LE(text.size() - next, 2U);
    EXPECT_EQ(print::printedLines(text), lines);
  }
}

TEST(PrintLayout, OneLineOfMegabytesIsLaidOut) {
  const std::size_t length = 8'000'010;
  const print::PrintLayout layout(std::string(length, 'x'), {10, 50});
  EXPECT_EQ(layout.rows().size(), 1 + 1'000'000U);
  EXPECT_EQ(layout.pages(), 20001);
}

std::string numbered(int lines) {
  std::string text;
  for (int i = 1; i <= lines; ++i) text += "line " + std::to_string(i) + "\r\n";
  return text;
}

TEST(PrintSheet, FillsTheRoomWithinTheMargins) {
  const print::PrintSource source{numbered(200), "ფაილი.htm", {{"Code", 11, false, false, {}}, 8, 16}, 1};
  const print::PrintSheet sheet(source, ui::PageSetup(), false);
  // A4 is 794 x 1123 units, a margin of 20 mm 76; the head takes 28.
  EXPECT_EQ(sheet.size(), (ui::Size{794, 1123}));
  EXPECT_EQ(sheet.grid().columns, (794 - 2 * 76) / 8);
  EXPECT_EQ(sheet.grid().rows, (1123 - 2 * 76 - 28) / 16);
  ASSERT_EQ(sheet.layout().pages(), 4);  // 58 rows a page
  std::string all;
  for (int page = 0; page < 4; ++page) {
    tests::WordsCanvas canvas;
    sheet.paint(canvas, page);
    EXPECT_EQ(canvas.words[0].text, "ფაილი.htm");
    EXPECT_EQ(canvas.words[1].text, "გვერდი " + std::to_string(page + 1) + " / 4");
    EXPECT_EQ(canvas.words[1].area.right(), 794 - 76);
    int bottom = 76;
    for (const auto& word : canvas.words) {
      EXPECT_GE(word.area.left, 76);
      EXPECT_LE(word.area.right(), 794 - 76);
      EXPECT_LE(word.area.bottom(), 1123 - 76);
      if (!word.style.bytes) continue;
      EXPECT_EQ(word.style.advance, 8);
      EXPECT_GE(word.area.top, bottom);
      bottom = word.area.bottom();
    }
    all += canvas.rows();
  }
  std::string expected = numbered(200);
  std::erase(expected, '\r');
  EXPECT_EQ(all, expected);
}

TEST(PrintSheet, LineNumbersStandBeforeTheFirstRowOfALine) {
  const print::PrintSource source{"a\n" + std::string(100, 'x') + "\nb", "t", {{}, 8, 16}, 98};
  const print::PrintSheet sheet(source, ui::PageSetup(), true);
  EXPECT_EQ(sheet.grid().columns, 80 - 4);  // three digits and a space
  tests::WordsCanvas canvas;
  sheet.paint(canvas, 0);
  EXPECT_EQ(canvas.rows(), "98\na\n99\n" + std::string(76, 'x') + "\n" + std::string(24, 'x') + "\n100\nb\n");
  EXPECT_EQ(canvas.words[2].area.left, 76 + 8);  // right under the digits of 100
  EXPECT_EQ(canvas.words[3].area.left, 76 + 32);
  EXPECT_EQ(canvas.words[6].text, "»");
  EXPECT_EQ(canvas.words[7].area.left, 76 + 32 + 16);
}

TEST(PrintSheet, MarginsMustLeaveRoom) {
  const print::PrintSource source{"a", "t", {{}, 8, 16}, 1};
  ui::PageSetup setup;
  setup.left = setup.right = 9900;  // leaves 12 mm: five letters
  EXPECT_THROW(print::PrintSheet(source, setup, false), base::Error);
  setup = {};
  setup.bottom = 25800;  // 19 mm: head and two rows
  EXPECT_THROW(print::PrintSheet(source, setup, false), base::Error);
}

TEST(ScaledCanvas, DrawsTheSameSmaller) {
  tests::WordsCanvas canvas;
  print::ScaledCanvas half(canvas, 0.5, {100, 10});
  ui::TextStyle style;
  style.advance = 8;
  half.text({20, 40, 60, 16}, "word", 0, style);
  half.fill({21, 0, 1, 1}, 0);
  half.fill({22, 0, 1, 1}, 0);
  ASSERT_EQ(canvas.words.size(), 1U);
  EXPECT_EQ(canvas.words[0].area, (ui::Rect{110, 30, 30, 8}));
  EXPECT_EQ(canvas.words[0].style.advance, 4);
  EXPECT_EQ(canvas.words[0].style.scale, 0.5);
  EXPECT_EQ(canvas.fills[0].right(), canvas.fills[1].left);
  EXPECT_EQ(half.textSize("word", style), (ui::Size{56, 30}));
}

}  // namespace
