// The main window without a window: real FrmH, code view in memory, scripted platform.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "app/FrmH.h"
#include "app/frmBOXa.h"
#include "tests/support/fake_main_peer.h"
#include "tests/support/fake_platform.h"
#include "tests/support/memory_code_view.h"
#include "tests/support/temp_folder.h"

namespace tests {

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    platform.folder = folder.makeFolder("program");
    restart();
  }

  void restart() {
    T1 = MemoryCodeView();
    H = std::make_unique<app::FrmH>(platform, T1);
    H->window = &peer;
  }

  // The next box must show `text` (as the user reads it); `answer` is given by its button.
  void expectBox(const ui::Text& title, const ui::Text& text, const char* answer) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& box = dynamic_cast<app::frmBOXa&>(form);
      EXPECT_EQ(ui::display(box.caption()), ui::display(title));
      EXPECT_EQ(box.text(), ui::display(text));
      press(box, answer);
    });
  }
  // The next box must hold `part` in its text.
  void expectBoxWith(const std::string& part, const char* answer) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& box = dynamic_cast<app::frmBOXa&>(form);
      EXPECT_NE(box.text().find(part), std::string::npos) << box.text();
      press(box, answer);
    });
  }
  void expectInput(const std::string& typed) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& box = dynamic_cast<app::frmBOXa&>(form);
      box.Tanswer.userSet(typed);
      box.COK.click();
    });
  }
  // Ticks the rows of the choice list that are named.
  void expectChoice(const std::vector<std::string>& rows) {
    platform.modal.push_back([=](ui::Form& form) {
      auto& box = dynamic_cast<app::frmBOXa&>(form);
      for (std::size_t i = 0; i < box.LV.items().size(); ++i) {
        const bool wanted = std::find(rows.begin(), rows.end(), box.LV.items()[i].text.bytes) != rows.end();
        box.LV.userCheck(static_cast<int>(i), wanted);
      }
      box.COK.click();
    });
  }
  static void press(app::frmBOXa& box, const std::string& answer) {
    ui::Button& button = answer == app::kAnswerYes  ? box.Cyes
                         : answer == app::kAnswerNo ? box.Cno
                         : answer == app::kAnswerOk ? box.COK
                                                    : box.CEXIT;
    EXPECT_TRUE(button.visible()) << "no such button: " << answer;
    button.click();
  }

  void start(const std::string& commandLine = {}) { H->entry(commandLine); }
  void open(const std::string& path) {
    platform.openAnswers.push_back({path});
    ASSERT_TRUE(H->runCommand(mnuOpen));
  }
  void type(const std::string& text) { T1.type(text); }
  void clickNode(const std::string& title) {
    const auto& nodes = H->TV.nodes();
    for (std::size_t i = 0; i < nodes.size(); ++i) {
      if (nodes[i].text == ui::Text(title)) return H->TV.userSelect(static_cast<int>(i));
    }
    FAIL() << "no node " << title;
  }
  // Titles of the list, in order.
  std::vector<std::string> titles() {
    std::vector<std::string> all;
    for (std::int16_t i = 0; i < H->WebProject.Count(); ++i) all.push_back(H->WebProject.Item(i).FileTitle);
    return all;
  }
  void TearDown() override { EXPECT_TRUE(platform.modal.empty()) << "a box did not come"; }

  TempFolder folder;
  FakePlatform platform;
  MemoryCodeView T1;
  FakeMainPeer peer;
  std::unique_ptr<app::FrmH> H;
};

}  // namespace tests
