#include "program/program.h"

#include "app/FrmH.h"
#include "base/write_notes.h"
#include "convert/attach.h"
#include "editor/editor.h"
#include "generators/generators.h"
#include "options/options.h"
#include "preview/preview.h"
#include "print/printing.h"
#include "program/about.h"
#include "project/project_commands.h"
#include "recent/recent_commands.h"
#include "recovery/attach.h"
#include "search/attach.h"
#include "site/attach.h"

namespace program {

struct Program::Parts {
  Parts(ui::Platform& platform, ui::CodeView& codeView, const publish::MakeTransport& connect)
      : window(platform, codeView) {
    project::attach(window, connect);
    recent::attach(window);
    print::attachPrinting(window);
    attachAbout(window);
    options::attachOptions(window);
  }

  app::FrmH window;
  std::unique_ptr<convert::Attached> converting = convert::attach(window);
  std::unique_ptr<search::Search> finding = search::attach(window);
  std::unique_ptr<editor::Editor> editing = editor::attach(window);
  std::unique_ptr<generators::Generators> generating = generators::attach(window);
  preview::Preview previewing{window};
  std::unique_ptr<site::frmsite> converter = site::attach(window);
  std::unique_ptr<recovery::Recovery> recovering = recovery::attach(window);
};

Program::Program(ui::Platform& platform, ui::CodeView& codeView, const publish::MakeTransport& connect)
    : parts_(std::make_unique<Parts>(platform, codeView, connect)) {}

Program::~Program() = default;

ui::MainForm& Program::window() {
  return parts_->window;
}

void Program::start(const std::string& commandLine) {
  base::finishInterruptedWrites();
  parts_->window.entry(commandLine);
  parts_->recovering->start(commandLine.empty());
}

}  // namespace program
