// The dialog templates: each form's is there with all its controls, and fits a screen.
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "base/files.h"

namespace {

std::string source(const std::string& path) {
  return base::readFile(std::string(ZERVO_SOURCE) + "/" + path);
}

TEST(Resources, EveryDialogHasItsTemplateWithAllItsControlsAndNoNumberTwice) {
  const std::regex id("#define ((ID[DC])_\\w+) (\\d+)");
  std::set<std::string> dialogs;
  for (const std::string& file : base::fileNames(std::string(ZERVO_SOURCE) + "/resources/dialogs")) {
    const std::string dialog = source("resources/dialogs/" + file);
    const std::string name = "IDD_" + file.substr(0, file.find('.'));
    EXPECT_NE(dialog.find(name + " DIALOGEX"), std::string::npos) << file;
    std::set<std::string> numbers;
    for (std::sregex_iterator at(dialog.begin(), dialog.end(), id), end; at != end; ++at) {
      const std::string number = (*at)[3];
      EXPECT_TRUE(numbers.insert(number).second) << file << ": " << number << " twice";
      if ((*at)[2] == "IDD") {
        EXPECT_TRUE(dialogs.insert(number).second) << file << ": " << number;
        continue;
      }
      const std::string rest = at->suffix();
      EXPECT_TRUE(std::regex_search(rest, std::regex((*at)[1].str() + "\\b"))) << file << ": " << (*at)[1];
    }
  }
  EXPECT_GT(dialogs.size(), 5U);
}

// A unit of their templates is there 11/4 wide and 21/8 high; beside the dialog a screen has the frame and
// the title of its window, and a task bar.
TEST(Resources, EveryDialogFitsAScreenOf1280By900At144DotsAnInch) {
  const std::regex size("IDD_(\\w+) DIALOGEX 0, 0, (\\d+), (\\d+)");
  int dialogs = 0;
  for (const std::string& file : base::fileNames(std::string(ZERVO_SOURCE) + "/resources/dialogs")) {
    const std::string dialog = source("resources/dialogs/" + file);
    for (std::sregex_iterator at(dialog.begin(), dialog.end(), size), end; at != end; ++at) {
      ++dialogs;
      EXPECT_LE(std::stoi((*at)[2]) * 11 / 4, 1280 - 12) << (*at)[1];
      EXPECT_LE(std::stoi((*at)[3]) * 21 / 8, 900 - 45) << (*at)[1];
    }
  }
  EXPECT_GT(dialogs, 20);
}

}  // namespace
