// Puts the program together: the main window and every subsystem attached to it.
#pragma once

#include <memory>
#include <string>

#include "publish/transport.h"
#include "ui/code_view.h"
#include "ui/main_form.h"
#include "ui/platform/platform.h"

namespace program {

class Program {
 public:
  // Both must outlive the program. `connect` makes the connections of publishing. Nothing is shown or read
  // yet.
  Program(ui::Platform& platform, ui::CodeView& codeView, const publish::MakeTransport& connect);
  ~Program();

  ui::MainForm& window();
  // The entry routine. `commandLine` is UTF-8, without the program's own name. The main window's peer must be
  // there (hidden); it is shown on return.
  void start(const std::string& commandLine);

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace program
