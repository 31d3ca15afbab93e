// Any bytes as recentF.ini, to which a file is added.
#include <algorithm>

#include "base/text.h"
#include "recent/recent_list.h"
#include "tests/fuzz/fuzz.h"

FUZZ(Recent,
     {"C:\\a.html\r\n", "C:\\A.HTML", "C:\\ab.html\r\n", "\r\n", "\n", "\r", " ", "C:\\b.html\r\n", "\xC0",
      "C:\\1\r\nC:\\2\r\nC:\\3\r\nC:\\4\r\nC:\\5\r\nC:\\6\r\nC:\\7\r\nC:\\8\r\nC:\\9\r\n", "C:\\gone"}) {
  static const std::vector<std::string> paths = {"C:\\a.html", "C:\\A.html", "C:\\b", "D:\\new.html"};
  const std::string& path = paths[fuzz::choose(bytes, paths.size())];
  const auto exists = [](const std::string& stored) { return stored.find("gone") == std::string::npos; };
  const std::string list = recent::withRecent(bytes, path, exists);
  const auto lines = base::split(list, base::kCrLf);
  const auto before = base::split(bytes, base::kCrLf);
  MUST(lines.front() == path);
  if (list == bytes) return;
  MUST(list.ends_with(base::kCrLf));
  MUST(lines.size() <= 46);  // the end of the last line is followed by an empty one
  for (const std::string& line : lines) {
    MUST(line.empty() || line == path || std::ranges::find(before, line) != before.end());
  }
  // Of a list that is not full nothing goes.
  if (before.size() > 40) return;
  for (const std::string& line : before) {
    MUST(std::ranges::find(lines, line) != lines.end());
  }
}
