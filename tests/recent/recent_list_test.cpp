#include "recent/recent_list.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "tests/support/temp_folder.h"

namespace {

std::string add(const std::string& text, const std::string& path, bool filesExist = true) {
  return recent::withRecent(text, path, [filesExist](const std::string&) { return filesExist; });
}

TEST(RecentList, NewPathsComeToTheTop) {
  EXPECT_EQ(add("", "C:\\a"), "C:\\a\r\n");
  EXPECT_EQ(add("C:\\a\r\n", "C:\\b"), "C:\\b\r\nC:\\a\r\n");
}

TEST(RecentList, KnownPathsMoveToTheTopAndTheFirstStays) {
  EXPECT_EQ(add("1\r\n2\r\n3\r\n4\r\n", "3"), "3\r\n1\r\n2\r\n4\r\n");
  EXPECT_EQ(add("1\r\n2\r\n", "2"), "2\r\n1\r\n");
  EXPECT_EQ(add("1\r\n2", "1"), "1\r\n2");  // not even the missing line end is added
}

TEST(RecentList, APartOfALongerPathIsAddedAsALineOfItsOwn) {
  EXPECT_EQ(add("x\r\nC:\\a.html\r\n", "C:\\a.htm"), "C:\\a.htm\r\nx\r\nC:\\a.html\r\n");
  EXPECT_EQ(add("x\r\nC:\\A.HTM\r\n", "c:\\a.htm"), "c:\\a.htm\r\nx\r\nC:\\A.HTM\r\n");
}

TEST(RecentList, HoldsFortyFiveAndPrunesMissingFilesOnlyThen) {
  std::string text;
  for (int i = 0; i < 45; ++i) text += "f" + std::to_string(100 + i) + "\r\n";
  const auto lines = base::split(add(text, "new"), "\r\n");
  ASSERT_EQ(lines.size(), 46U);  // 45 and the empty piece behind the last line end
  EXPECT_EQ(lines[0], "new");
  EXPECT_EQ(lines[44], "f143");
  EXPECT_EQ(add(text, "new", false), "\r\n");
  EXPECT_EQ(add("gone\r\n", "new", false), "new\r\ngone\r\n");
}

TEST(RecentList, FileKeepsGeorgianNamesAndNeverStopsTheProgram) {
  const tests::TempFolder folder;
  recent::addRecent(folder.path(), "C:\\გვერდი.html");
  recent::addRecent(folder.path(), "C:\\caf\xC3\xA9.html");
  EXPECT_EQ(base::readFile(folder.file("recentF.ini")), "C:\\caf\xE9.html\r\nC:\\გვერდი.html\r\n");
  recent::addRecent(folder.file("no such folder"), "C:\\a");
}

}  // namespace
