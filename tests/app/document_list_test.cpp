#include "app/document_list.h"

#include <gtest/gtest.h>

#include "app/document_tree.h"
#include "base/error.h"

namespace {

app::ColectionMain listOf(int count) {
  app::ColectionMain list;
  for (int i = 0; i < count; ++i) {
    const std::string n = std::to_string(i);
    list.AddNewIthem("text" + n, -1, "key" + n, "tag" + n);
    app::Ithem& record = list.Item(static_cast<std::int16_t>(i));
    record.filepath = "path" + n;
    record.FileTitle = "title" + n;
  }
  return list;
}

TEST(ColectionMain, InsertingMovesOnlyTextIndexKeyAndTag) {
  app::ColectionMain list = listOf(2);
  list.AddNewIthem("new", 0, "k", "t");
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Item(0).Value, "new");
  EXPECT_EQ(list.Item(0).filepath, "path0");  // stays with its position
  EXPECT_EQ(list.Item(1).Value, "text0");
  EXPECT_EQ(list.Item(1).Kay, "key0");
  EXPECT_EQ(list.Item(1).filepath, "path1");
  EXPECT_EQ(list.Item(2).Value, "text1");
  EXPECT_EQ(list.Item(2).filepath, "");
  for (std::int16_t i = 0; i < 3; ++i) EXPECT_EQ(list.Item(i).Index, i);
}

TEST(ColectionMain, RefusesAnIndexBehindTheEndAndStaysAsItWas) {
  app::ColectionMain list = listOf(2);
  try {
    list.AddNewIthem("x", 3, "", "");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_STREQ(error.what(), "indeqsi araa swore.");
    EXPECT_EQ(error.source(), "ColectionMain");
  }
  EXPECT_EQ(list.Count(), 2);
  list.AddNewIthem("x", 2, "", "");  // just behind the last is allowed
  EXPECT_EQ(list.Item(2).Value, "x");
  EXPECT_THROW(list.Item(3), base::Error);
  EXPECT_THROW(list.Item(-1), base::Error);
}

TEST(ColectionMain, RemovingMovesWholeRecordsAndTellsTheOddCount) {
  app::ColectionMain list = listOf(3);
  std::vector<std::pair<int, int>> removed;
  list.ItemRemoved.connect([&](std::int16_t index, std::int16_t n) { removed.emplace_back(index, n); });
  list.RemoveIthem(0);
  EXPECT_EQ(list.Item(0).filepath, "path1");
  EXPECT_EQ(list.Item(0).Index, 1);
  EXPECT_EQ(list.Item(1).Index, 2);
  list.RemoveIthem(1);
  list.RemoveIthem(0);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(removed, (std::vector<std::pair<int, int>>{{0, 2}, {1, 1}, {0, 1}}));
}

TEST(ColectionMain, MovingShiftsTextKeyAndTagBothWays) {
  app::ColectionMain list = listOf(4);
  const auto values = [&] {
    std::string all;
    for (std::int16_t i = 0; i < list.Count(); ++i) all += list.Item(i).Value.view().back();
    return all;
  };
  list.MoveIthem(0, 2);
  EXPECT_EQ(values(), "1203");
  EXPECT_EQ(list.Item(2).Kay, "key0");
  EXPECT_EQ(list.Item(2).filepath, "path2");
  list.MoveIthem(3, 1);
  EXPECT_EQ(values(), "1320");
  list.MoveIthem(1, 1);
  list.MoveIthem(0, 4);
  list.MoveIthem(-1, 0);
  EXPECT_EQ(values(), "1320");
}

TEST(ColectionMain, EventsOfAddingAndClearing) {
  app::ColectionMain list = listOf(1);
  int added = 0, cleared = 0;
  list.NewItem.connect([&] { ++added; });
  list.ColectionDeleted.connect([&] { cleared += 1 + list.Count(); });  // raised when already empty
  list.AddNewIthem("", -1, "", "");
  list.Cler();
  EXPECT_EQ(added, 1);
  EXPECT_EQ(cleared, 1);
}

TEST(DocumentTree, ListsByPassThenByListOrderAndSomeTwice) {
  app::ColectionMain list;
  const char* titles[] = {"a.php", "b.css", "c.Html", "d.shtml", "e.gif",
                          "f.mp3", "noext", "g.fla",  "xml",     "h.htm"};
  for (std::int16_t i = 0; i < 10; ++i) {
    list.AddNewIthem(app::kImageValue, -1, "", "");
    list.Item(i).FileTitle = titles[i];
  }
  std::string shown;
  for (const auto& node : app::treeNodes(list)) {
    shown += node.parent < 0 ? "[" + node.key + "]" : std::to_string(node.parent) + node.tag + " ";
  }
  // Digits: root, then position in the list.
  EXPECT_EQ(shown, "[T][B][A][O]02 03 09 01 08 00 14 25 27 33 36 37 ");
}

TEST(DocumentTree, OnlyAPictureHeldByNameCountsAsImage) {
  app::Ithem record;
  record.Value = app::kImageValue;
  record.FileTitle = "a.png";
  EXPECT_TRUE(app::isImage(record));
  record.FileTitle = "page.html";  // a page that holds just this word
  EXPECT_FALSE(app::isImage(record));
}

}  // namespace
