// The rule of the house: includes point one way, and one folder knows Windows.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Folders = std::set<std::string>;

// What each folder may include besides itself. In convert the rules, and what speaks to the user of them.
constexpr const char* kConvertSpeakers = "convert's speakers";
constexpr const char* kRecoverySpeakers = "recovery's speakers";
// The one folder that knows libcurl.
constexpr const char* kCurl = "platform/curl";
const std::map<std::string, Folders> kMayInclude = {
    {"base", {}},
    {"publish", {"base"}},
    {"markup", {"base"}},
    {"convert", {"base", "markup"}},
    {kConvertSpeakers, {"base", "markup", "ui", "app"}},
    {"site", {"base", "markup", "convert"}},
    {"cli", {"base", "markup", "convert", "site", "publish"}},
    {"ui", {"base"}},
    {"app", {"base", "ui"}},
    {"editor", {"base", "markup", "ui", "app", "convert"}},
    {"search", {"base", "ui", "app", "convert"}},
    {"project", {"base", "ui", "app", "convert"}},
    {"generators", {"base", "ui", "app", "convert", "editor"}},
    {"recent", {"base", "ui", "app", "convert"}},
    {"print", {"base", "ui", "app", "convert"}},
    {"preview", {"base", "ui", "app", "convert"}},
    {"options", {"base", "ui", "app", "convert"}},
    {"recovery", {"base"}},
    {kRecoverySpeakers, {"base", "ui", "app"}},
    {"program",
     {"base", "ui", "app", "convert", "editor", "search", "project", "generators", "recent", "print",
      "preview", "options", "recovery"}},
    {kCurl, {"base", "publish"}},
    {"platform", {"base", "ui"}},
};
// Ids and embedded data are for everybody.
constexpr const char* kForAll = "resources";

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

// The build tells them by the same names.
std::string ruleFor(const std::string& path) {
  static const std::regex speaker(
      "convert/(attach|[a-z_]*_commands|frm[a-zA-Z]*|status_panels|typing_mode)\\.(h|cpp)");
  static const std::regex recoverySpeaker("recovery/(attach|frm[a-zA-Z]*)\\.(h|cpp)");
  if (std::regex_match(path, recoverySpeaker)) return kRecoverySpeakers;
  if (path.starts_with("platform/curl/")) return kCurl;
  return std::regex_match(path, speaker) ? kConvertSpeakers : topFolder(path);
}

bool mayKnowWindows(const std::string& path) {
  return topFolder(path) == "platform" || path.starts_with("tests/gui/") ||
         path.starts_with("tests/platform/");
}

// The programs' own entries are where platform and program meet.
bool isEntry(const std::string& path) {
  return path == "platform/win32/main.cpp" || path.ends_with("/cli_main.cpp");
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
  const auto rule = kMayInclude.find(ruleFor(path));
  for (const std::string& included : includesOf(text)) {
    std::string lower = included;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return std::tolower(c); });
    const std::string folder = topFolder(included);
    const bool known = kMayInclude.contains(folder) && included.find('/') != std::string::npos;
    if (lower.starts_with("curl/") && !path.starts_with("platform/curl/")) {
      result.push_back(path + " includes <" + included + ">");
    } else if (windows.contains(lower) && !mayKnowWindows(path)) {
      result.push_back(path + " includes <" + included + ">");
    } else if (rule != kMayInclude.end() && isHeavy(included) && path != "platform/posix/disk.cpp") {
      result.push_back(path + " includes <" + included + ">, which is heavy");
    } else if (rule != kMayInclude.end() && rule->first == "convert" &&
               ruleFor(included) == kConvertSpeakers && path.ends_with(".cpp") &&
               ruleFor(path) != kConvertSpeakers) {
      result.push_back(path + " is a rule and includes \"" + included + "\"");
    } else if (rule != kMayInclude.end() && known && folder != topFolder(path) && folder != kForAll &&
               !rule->second.contains(folder) && !isEntry(path)) {
      result.push_back(path + " includes \"" + included + "\"");
    }
  }
  return result;
}

template <class Visit>
void forEachSource(Visit visit) {
  const fs::path top = ZERVO_SOURCE;
  std::vector<std::string> roots = {"tests", "bench"};
  for (const auto& [folder, allowed] : kMayInclude) {
    if (folder != kConvertSpeakers && folder != kRecoverySpeakers && folder != kCurl) roots.push_back(folder);
  }
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
  EXPECT_EQ(complaints("base/a.h", "#include \"ui/text.h\"\n").size(), 1u);
  EXPECT_EQ(complaints("search/a.cpp", "// x\n  # include \"editor/b.h\"\n#include \"app/c.h\"\n").size(),
            1u);
  EXPECT_EQ(complaints("convert/detector.cpp", "#include \"app/workbench.h\"").size(), 1u);
  EXPECT_TRUE(complaints("convert/status_panels.cpp", "#include \"app/workbench.h\"").empty());
  EXPECT_EQ(complaints("platform/win32/peer.cpp", "#include \"app/FrmH.h\"").size(), 1u);
  EXPECT_EQ(complaints("publish/a.cpp", "#include <curl/curl.h>\n#include \"ui/text.h\"").size(), 2u);
  EXPECT_TRUE(
      complaints("platform/curl/a.cpp", "#include <curl/curl.h>\n#include \"publish/talk.h\"").empty());
  EXPECT_EQ(complaints("tests/app/a.cpp", "#include <CommCtrl.h>").size(), 1u);
  EXPECT_EQ(complaints("app/a.cpp", "#include <sstream>\n#include <string>").size(), 1u);
  EXPECT_TRUE(
      complaints("platform/win32/main.cpp", "#include \"program/program.h\"\n#include <commctrl.h>").empty());
  EXPECT_TRUE(complaints("program/a.cpp", "#include \"search/a.h\"\n#include \"resources/ids.h\"").empty());
}

}  // namespace
