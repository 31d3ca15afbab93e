// The whole program without a window: all subsystems together, as it ships.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "program/program.h"
#include "tests/support/main_window.h"

namespace tests {

class WholeProgram : public testing::Test {
 protected:
  using Items = std::vector<ui::MenuItem>;

  WholeProgram() {
    platform.folder = folder.makeFolder("program");
    program = std::make_unique<program::Program>(platform, T1, nullptr);
    program->window().window = &peer;
    program->start("");
  }

  // Every menu with its caption, submenus too.
  void each(const Items& items, const std::string& name,
            const std::function<void(const Items&, const std::string&)>& visit) {
    visit(items, name);
    for (const ui::MenuItem& item : items) {
      if (!item.items.empty()) each(item.items, name + " > " + shown(item), visit);
    }
  }
  // As the user reads it; the letter that chooses it is marked with "&".
  static std::string shown(const ui::MenuItem& item) {
    return ui::display(ui::menuCaption(item.caption).text);
  }

  TempFolder folder;
  FakePlatform platform;
  MemoryCodeView T1;
  FakeMainPeer peer;
  std::unique_ptr<program::Program> program;
};

}  // namespace tests
