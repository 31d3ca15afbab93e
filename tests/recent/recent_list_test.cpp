#include "recent/recent_list.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

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

// The rule step by step, on a list of slots; where the old place of a moved path stays empty.
std::string modelOf(const std::string& text, const std::string& path,
                    const std::vector<std::string>& missing) {
  std::string result;
  const auto rebuilt = [](const std::vector<std::string>& lines, std::size_t most) {
    std::string all;
    for (std::size_t i = 0; i < lines.size() && i < most; ++i)
      all += lines[i].empty() ? "" : lines[i] + "\r\n";
    return all;
  };
  const auto strip = [](std::string& all) {
    while (all.size() >= 2 && all.substr(all.size() - 2) == "\r\n") all.resize(all.size() - 2);
  };
  const auto upper = [](std::string all) {
    for (char& c : all) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    return all;
  };
  if (upper(text).find(upper(path)) != std::string::npos) {
    std::vector<std::string> slots = base::split(text, "\r\n");
    if (slots[0] == path) return text;
    slots.push_back("");
    for (std::size_t i = slots.size() - 1; i >= 1; --i) slots[i] = slots[i - 1] == path ? "" : slots[i - 1];
    slots[0] = path;
    result = rebuilt(slots, slots.size());
  } else {
    result = path + "\r\n" + text;
  }
  strip(result);
  std::vector<std::string> slots = base::split(result, "\r\n");
  if (slots.size() >= 46) {
    for (std::string& slot : slots) {
      if (std::find(missing.begin(), missing.end(), slot) != missing.end()) slot.clear();
    }
    result = rebuilt(slots, 45);
    strip(result);
  }
  return result + "\r\n";
}

TEST(RecentList, FollowsTheRuleOnRandomLists) {
  std::mt19937 random(7);
  const auto pick = [&random](int below) {
    return static_cast<int>(random() % static_cast<unsigned>(below));
  };
  const auto anyPath = [&] {
    return std::string(pick(2) == 0 ? "C:\\a" : "c:\\A") + std::to_string(pick(70)) +
           (pick(3) == 0 ? ".htm" : "");
  };
  for (int round = 0; round < 300; ++round) {
    std::vector<std::string> missing;
    for (int i = pick(40); i > 0; --i) missing.push_back(anyPath());
    const auto exists = [&](const std::string& path) {
      return std::find(missing.begin(), missing.end(), path) == missing.end();
    };
    std::string list;
    for (int step = 0; step < 80; ++step) {
      const std::string path = anyPath();
      const std::string next = recent::withRecent(list, path, exists);
      ASSERT_EQ(next, modelOf(list, path, missing)) << "adding " << path << " to\n" << list;
      list = next;
    }
  }
}

TEST(RecentList, FileKeepsGeorgianNamesAndNeverStopsTheProgram) {
  const tests::TempFolder folder;
  recent::addRecent(folder.path(), "C:\\გვერდი.html");
  recent::addRecent(folder.path(), "C:\\caf\xC3\xA9.html");
  EXPECT_EQ(base::readFile(folder.file("recentF.ini")), "C:\\caf\xE9.html\r\nC:\\გვერდი.html\r\n");
  recent::addRecent(folder.file("no such folder"), "C:\\a");
}

}  // namespace
