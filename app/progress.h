// The sign of life of a long command: tells how far it is, lets window events run, and hears Esc.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "ui/platform/platform.h"

namespace app {

class Progress {
 public:
  // `show` takes the line to show; empty in the end. Shown a few times a second, however short the steps are.
  Progress(ui::Platform& platform, std::function<void(const std::string&)> show, std::size_t steps);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  // Before each step; `what` is being done. False: the user pressed Esc.
  bool step(const std::string& what);

 private:
  ui::Platform& platform_;
  std::function<void(const std::string&)> show_;
  std::size_t steps_;
  std::size_t done_ = 0;
  std::chrono::steady_clock::time_point shown_;
};

}  // namespace app
