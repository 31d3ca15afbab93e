// What the help says about the menus holds: its keys are theirs, and its examples come out.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>

#include "base/files.h"
#include "base/text.h"
#include "tests/support/whole_program.h"

namespace {

constexpr const char* kLanguages[] = {"ka", "en"};

std::string page(const std::string& language, const std::string& name) {
  return base::readFile(std::string(ZERVO_SOURCE) + "/docs/help/" + language + "/" + name + ".htm");
}

std::vector<std::smatch> matches(const std::string& text, const std::regex& pattern) {
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

// A caption without the marks of menus: "&", the dots of a dialog, and blanks that only align.
std::string plain(std::string caption) {
  caption = std::regex_replace(caption, std::regex("&|\\.\\.\\.$"), "");
  return std::regex_replace(caption, std::regex(" +"), " ");
}

// "C3 C0" as two bytes; anything else as it stands in a text.
std::string bytesOf(const std::string& code) {
  if (!std::regex_match(code, std::regex("[0-9A-F]{2}( [0-9A-F]{2})*"))) {
    return base::replaceAll(code, "&amp;", "&");
  }
  std::string bytes;
  for (std::size_t at = 0; at < code.size(); at += 3) {
    bytes += static_cast<char>(std::stoi(code.substr(at, 2), nullptr, 16));
  }
  return bytes;
}

class Help : public tests::WholeProgram {
 protected:
  std::vector<ui::MenuItem> commands() {
    std::vector<ui::MenuItem> all;
    each(program->window().menus, "", [&](const Items& items, const std::string&) {
      for (const ui::MenuItem& item : items) {
        if (item.command != 0) all.push_back(item);
      }
    });
    return all;
  }

  // Those of the Edit menu between the separators around mnuUTF8, and of the submenu there.
  std::set<int> conversions() {
    std::set<int> group;
    bool there = false;
    for (const ui::MenuItem& item : program->window().menus.at(1).items) {
      if (item.separator() && there) break;
      if (item.separator()) group.clear();
      there = there || item.command == mnuUTF8;
      const bool window = shown(item).ends_with("...");  // has a page of its own in the help
      if (item.command != 0 && !window) group.insert(item.command);
      for (const ui::MenuItem& inner : item.items) group.insert(inner.command);
    }
    group.erase(mnuletters);  // beside them, but a window
    return group;
  }
};

TEST_F(Help, TheKeyboardPagesNameTheKeysOfTheMenusAndNoOther) {
  std::map<std::string, std::string> known;
  for (const ui::MenuItem& item : commands()) {
    const std::string key = ui::shortcutText(item.shortcut);
    if (!key.empty()) known[key] = plain(shown(item));
  }
  EXPECT_GT(known.size(), 12U);
  for (const char* language : kLanguages) {
    const std::string all = page(language, "keyboard");
    const std::size_t begin = all.find("<h2 id=\"commands\">");
    ASSERT_NE(begin, std::string::npos) << language;
    const std::string section = all.substr(begin, all.find("</table>", begin) - begin);
    std::map<std::string, std::string> told;
    for (const auto& row : matches(section, std::regex("<tr><td><kbd>([^<]+)</kbd></td><td>([^<]+)</td>"))) {
      EXPECT_TRUE(told.emplace(row[1], row[2]).second) << language << ": " << row[1] << " stands twice";
    }
    EXPECT_EQ(told, known) << language;
    EXPECT_EQ(matches(section, std::regex("<kbd>")).size(), told.size()) << language << ": a row is not read";
  }
}

// The pages speak of keys in passing too: each of them stands on the keyboard page.
TEST_F(Help, NoPageNamesAKeyThatTheKeyboardPageDoesNotKnow) {
  const std::regex key("\\b((?:Ctrl|Shift|Alt)\\+)*(?:F[1-9][0-9]?|Del|Ins|Tab|[A-Z])\\b");
  for (const char* language : kLanguages) {
    std::set<std::string> known;
    const std::string keyboard = page(language, "keyboard");
    for (const auto& found : matches(keyboard, std::regex("<kbd>([^<]+)</kbd>"))) known.insert(found[1]);
    int named = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(std::string(ZERVO_SOURCE) + "/docs/help/" + language)) {
      std::string text = base::readFile(file.path().string());
      text = std::regex_replace(text, std::regex("<code>[^<]*</code>|<[^>]*>"), " ");
      for (const auto& found : matches(text, key)) {
        const std::string name = found[0];
        if (name.size() == 1) continue;  // a letter alone is no key
        ++named;
        EXPECT_TRUE(known.contains(name)) << file.path() << ": " << name;
      }
    }
    EXPECT_GT(named, 40) << language;
  }
}

TEST_F(Help, TheExamplesOfConversionComeOut) {
  const std::regex row("<tr><td>([^<]+)</td><td><code>([^<]+)</code></td><td><code>([^<]+)</code></td>");
  const std::vector<ui::MenuItem> all = commands();
  for (const char* language : kLanguages) {
    int tried = 0;
    std::set<int> shownCommands;
    const std::string text = page(language, "conversion");
    for (const auto& example : matches(text, row)) {
      const auto item = std::find_if(all.begin(), all.end(), [&](const ui::MenuItem& known) {
        return plain(shown(known)) == example[1];
      });
      ASSERT_NE(item, all.end()) << language << ": no command " << example[1];
      T1.setText(bytesOf(example[2]));
      T1.select(0, static_cast<int>(T1.text().size()));
      platform.clip = {};
      program->window().command(item->command);
      const bool copies = item->command == mnuUbendkopi;
      EXPECT_EQ(copies ? std::string_view(platform.clip.bytes) : T1.text(), bytesOf(example[3]))
          << language << ": " << example[1];
      EXPECT_TRUE(!copies || T1.text() == bytesOf(example[2]));
      shownCommands.insert(item->command);
      ++tried;
    }
    EXPECT_EQ(shownCommands, conversions()) << language << ": every conversion has an example";
    EXPECT_EQ(tried, static_cast<int>(shownCommands.size())) << language << ": and one alone";
  }
}

}  // namespace
