// Find and replace as a part of the program.
#pragma once

#include <memory>

#include "app/workbench.h"

namespace search {

class frmsuch;

// Keep it as long as the main window lives.
class Search {
 public:
  explicit Search(app::Workbench& bench);
  ~Search();
  frmsuch& dialog() { return *dialog_; }

 private:
  void mnumarkfinddel_Click();

  app::Workbench& bench_;
  std::unique_ptr<frmsuch> dialog_;
};

// Adds the commands to the main window; `bench` must outlive what is returned.
std::unique_ptr<Search> attach(app::Workbench& bench);

}  // namespace search
