#include "app/progress.h"

namespace app {
namespace {

constexpr std::chrono::milliseconds kBetween{60};

}  // namespace

Progress::Progress(ui::Platform& platform, std::function<void(const std::string&)> show, std::size_t steps)
    : platform_(platform), show_(std::move(show)), steps_(steps), shown_(std::chrono::steady_clock::now()) {
  platform_.setHourglass(true);
  platform_.stopRequested();  // forgets an Esc that was meant for something else
}

Progress::~Progress() {
  show_("");
  platform_.setHourglass(false);
}

bool Progress::step(const std::string& what) {
  ++done_;
  const auto now = std::chrono::steady_clock::now();
  if (now - shown_ >= kBetween) {
    shown_ = now;
    show_(std::to_string(done_) + " / " + std::to_string(steps_) + "  " + what);
    platform_.pumpEvents();
  }
  return !platform_.stopRequested();
}

}  // namespace app
