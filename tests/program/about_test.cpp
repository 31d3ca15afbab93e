// The about box.
#include "program/about.h"

#include "program/frmabout.h"
#include "tests/support/main_window.h"

namespace {

class About : public tests::MainWindowTest {};

TEST_F(About, ShowsVersionAndLicenceAndOpensTheLink) {
  program::attachAbout(*H);
  start();
  platform.resources["CODE_LICENCE"] = "Copyright 1998-2021 by Neil Hodgson";
  platform.resources["FONT_LICENCE"] = base::readFile(ZERVO_SOURCE "/resources/fonts/LICENSE-DejaVu.txt");
  platform.resources["NET_LICENCE"] = "COPYRIGHT AND PERMISSION NOTICE";
  platform.modal.push_back([this](ui::Form& form) {
    auto& box = dynamic_cast<program::frmabout&>(form);
    EXPECT_EQ(box.Lname.caption(), ui::Text("Zervo " ZERVO_VERSION));
    EXPECT_NE(box.Tlicence.text().find("Zervo Mono are made from\r\nDejaVu"), std::string::npos);
    EXPECT_NE(box.Tlicence.text().find("free of charge, to any person obtaining a copy\r\nof the fonts"),
              std::string::npos);
    EXPECT_TRUE(box.Tlicence.text().starts_with("Copyright 1998-2021 by Neil Hodgson"));
    EXPECT_NE(box.Tlicence.text().find("COPYRIGHT AND PERMISSION NOTICE"), std::string::npos);
    box.Clink.click();
    EXPECT_EQ(platform.opened, std::vector<std::string>{"https://dejavu-fonts.github.io/ 1"});
    EXPECT_FALSE(box.closed());
    box.COK.click();
    EXPECT_TRUE(box.closed());
  });
  ASSERT_TRUE(H->runCommand(mnuAbout));
  // Below the help file's line, where users look for it.
  const ui::MenuItem& help = H->menus.back();
  EXPECT_EQ(help.items.back().command, mnuAbout);
}

}  // namespace
