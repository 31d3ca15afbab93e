#include "program/program.h"

#include "app/FrmH.h"
#include "recent/recent_list.h"

namespace program {

struct Program::Parts {
  Parts(ui::Platform& platform, ui::CodeView& codeView) : window(platform, codeView) {
    window.documentOpened.connect(
        [&platform](const std::string& path) { recent::addRecent(platform.programFolder(), path); });
  }

  app::FrmH window;
};

Program::Program(ui::Platform& platform, ui::CodeView& codeView)
    : parts_(std::make_unique<Parts>(platform, codeView)) {}

Program::~Program() = default;

ui::MainForm& Program::window() {
  return parts_->window;
}

void Program::start(const std::string& commandLine) {
  parts_->window.entry(commandLine);
}

}  // namespace program
