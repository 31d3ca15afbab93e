// Every form has its dialog template among the program's resources, with every control of ids.h in it.
#include <gtest/gtest.h>

#include <regex>

#include "base/files.h"

namespace {

std::string source(const std::string& path) {
  return base::readFile(std::string(ZERVO_SOURCE) + "/" + path);
}

TEST(Resources, EveryFormHasItsTemplateWithAllItsControls) {
  const std::string ids = source("resources/ids.h");
  const std::string resources = source("resources/Zervo.rc");
  const std::regex form("#define IDD_(\\w+)");
  int forms = 0;
  for (std::sregex_iterator at(ids.begin(), ids.end(), form), end; at != end; ++at) {
    const std::string name = (*at)[1];
    if (name == "FrmH") continue;                       // a window, no dialog
    if (name.find('_') != std::string::npos) continue;  // a second window of a form
    ++forms;
    const std::string file = "resources/dialogs/" + name + ".rc";
    EXPECT_NE(resources.find("#include \"" + file + "\""), std::string::npos) << file;
    const std::string dialog = source(file);
    EXPECT_NE(dialog.find("IDD_" + name + " DIALOGEX"), std::string::npos) << file;
    const std::regex control("#define (IDC_" + name + "_\\w+)");
    for (std::sregex_iterator row(ids.begin(), ids.end(), control); row != end; ++row) {
      EXPECT_TRUE(std::regex_search(dialog, std::regex((*row)[1].str() + "\\b"))) << (*row)[1];
    }
  }
  EXPECT_GT(forms, 5);
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
