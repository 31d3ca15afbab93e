// The rule of the house: includes point one way, and one folder knows Windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Folders = std::set<std::string>;

// A folder of the build's list (tools/Folders.cmake), and what its files may include besides its own: rules
// only the rules there, speakers everything.
struct Folder {
  std::regex speakers;
  Folders rulesNeed;
  Folders need;
};

Folders words(const std::string& text) {
  std::istringstream in(text);
  return {std::istream_iterator<std::string>(in), {}};
}

const std::map<std::string, Folder>& folders() {
  static const std::map<std::string, Folder> all = [] {
    std::map<std::string, Folder> read;
    std::ifstream file(ZERVO_BUILD "/folders.txt");
    for (std::string line; std::getline(file, line);) {
      std::istringstream in(line);
      std::string name, speakers, rulesNeed, need;
      std::getline(in, name, '@');
      std::getline(in, speakers, '@');
      std::getline(in, rulesNeed, '@');
      std::getline(in, need, '@');
      read[name] = {std::regex(speakers), words(rulesNeed), words(need)};
    }
    read["platform"] = {std::regex("^platform/"), {}, {"base", "ui", "publish"}};
    return read;
  }();
  return all;
}
std::vector<std::string> includesOf(const std::string& text) {
  static const std::regex include(R"re((?:^|\n)[ \t]*#[ \t]*include[ \t]*[<"]([^>"]+)[>"])re");
  std::vector<std::string> found;
  for (std::sregex_iterator at(text.begin(), text.end(), include), end; at != end; ++at) {
    found.push_back((*at)[1]);
  }
  return found;
}

std::string topFolder(const std::string& path) {
  return path.substr(0, path.find('/'));
}

bool speaks(const std::string& path) {
  return std::regex_search(path, folders().at(topFolder(path)).speakers);
}

// Whether a file of the folders may include a file of the folders.
bool mayInclude(const std::string& path, const std::string& included) {
  const Folder& own = folders().at(topFolder(path));
  const std::string folder = topFolder(included);
  if (speaks(path)) {
    return folder == topFolder(path) || own.need.contains(folder) ||
           (own.rulesNeed.contains(folder) && !speaks(included));
  }
  return !speaks(included) && (folder == topFolder(path) || own.rulesNeed.contains(folder));
}

bool mayKnowWindows(const std::string& path) {
  return topFolder(path) == "platform" || path.starts_with("tests/gui/") ||
         path.starts_with("tests/platform/");
}

// The programs' own entries are where platform and program meet.
bool isEntry(const std::string& path) {
  return path == "platform/win32/main.cpp" || path.starts_with("platform/win32/cli/") ||
         path.ends_with("/cli_main.cpp");
}

// What makes the program half as large again: nothing that ships may need it.
bool isHeavy(const std::string& header) {
  static const Folders heavy = {"filesystem", "fstream", "iomanip", "iostream", "istream",
                                "locale",     "ostream", "regex",   "sstream",  "streambuf"};
  return heavy.contains(header);
}

// Complaints about one file, whose path is relative to the top.
std::vector<std::string> complaints(const std::string& path, const std::string& text) {
  static const Folders windows = {"windows.h",  "windowsx.h", "commctrl.h", "richedit.h", "shlobj.h",
                                  "shellapi.h", "wininet.h",  "winsock2.h", "ole2.h",     "tom.h"};
  std::vector<std::string> result;
  const bool ships = folders().contains(topFolder(path));
  for (const std::string& included : includesOf(text)) {
    std::string lower = included;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    const bool known = included.find('/') != std::string::npos && folders().contains(topFolder(included));
    if (lower.starts_with("curl/") && !path.starts_with("platform/curl/")) {
      result.push_back(path + " includes <" + included + ">");
    } else if (windows.contains(lower) && !mayKnowWindows(path)) {
      result.push_back(path + " includes <" + included + ">");
    } else if (ships && isHeavy(included) && path != "platform/posix/disk.cpp") {
      result.push_back(path + " includes <" + included + ">, which is heavy");
    } else if (ships && known && !isEntry(path) && !mayInclude(path, included)) {
      result.push_back(path + " includes \"" + included + "\"");
    }
  }
  return result;
}

template <class Visit>
void forEachSource(Visit visit) {
  const fs::path top = ZERVO_SOURCE;
  std::vector<std::string> roots = {"tests", "bench"};
  for (const auto& [folder, allowed] : folders()) roots.push_back(folder);
  for (const std::string& root : roots) {
    if (!fs::exists(top / root)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(top / root)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      visit(fs::relative(entry.path(), top).generic_string(),
            std::string(std::istreambuf_iterator<char>(file), {}));
    }
  }
}

TEST(IncludeRules, EverySourceKeepsThem) {
  int sources = 0;
  forEachSource([&](const std::string& path, const std::string& text) {
    ++sources;
    for (const std::string& complaint : complaints(path, text)) ADD_FAILURE() << complaint;
  });
  EXPECT_GT(sources, 40);
}

TEST(IncludeRules, FilesIncludeNoCircle) {
  std::map<std::string, std::vector<std::string>> graph;
  forEachSource([&](const std::string& path, const std::string& text) { graph[path] = includesOf(text); });
  std::map<std::string, int> state;  // 1: being visited, 2: done
  std::vector<std::string> way;
  const auto visit = [&](auto&& self, const std::string& file) -> void {
    if (!graph.contains(file) || state[file] == 2) return;
    way.push_back(file);
    if (state[file] == 1) {
      ADD_FAILURE() << "a circle of includes ends in " << way[way.size() - 2] << " -> " << file;
    } else {
      state[file] = 1;
      for (const std::string& included : graph[file]) self(self, included);
      state[file] = 2;
    }
    way.pop_back();
  };
  for (const auto& [file, included] : graph) visit(visit, file);
}

TEST(IncludeRules, ComplainAboutWhatTheyForbid) {
  ASSERT_GT(folders().size(), 12U);
  EXPECT_EQ(complaints("base/a.h", "#include \"ui/text.h\"\n").size(), 1u);
  EXPECT_EQ(
      complaints("search/attach.cpp", "// x\n  # include \"editor/b.h\"\n#include \"app/c.h\"\n").size(), 1u);
  EXPECT_EQ(complaints("search/pattern.cpp", "#include \"app/c.h\"").size(), 1u);
  EXPECT_EQ(complaints("convert/detector.cpp", "#include \"app/workbench.h\"").size(), 1u);
  EXPECT_EQ(complaints("editor/reflow.cpp", "#include \"editor/frmTags.h\"").size(), 1u);
  EXPECT_TRUE(complaints("editor/frmTags.cpp", "#include \"editor/reflow.h\"").empty());
  EXPECT_TRUE(complaints("convert/status_panels.cpp", "#include \"app/workbench.h\"").empty());
  EXPECT_EQ(complaints("platform/win32/peer.cpp", "#include \"app/FrmH.h\"").size(), 1u);
  EXPECT_EQ(complaints("tests/app/a.cpp", "#include <CommCtrl.h>").size(), 1u);
  EXPECT_EQ(complaints("publish/a.cpp", "#include <curl/curl.h>\n#include \"ui/text.h\"").size(), 2u);
  EXPECT_EQ(complaints("app/a.cpp", "#include <sstream>\n#include <string>").size(), 1u);
  EXPECT_TRUE(
      complaints("platform/win32/main.cpp", "#include \"program/program.h\"\n#include <commctrl.h>").empty());
  EXPECT_TRUE(complaints("program/a.cpp", "#include \"search/a.h\"\n#include \"resources/ids.h\"").empty());
}

}  // namespace
