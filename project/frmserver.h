// What the windows that speak to a server have in common: a run on another thread while the window lives.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/workbench.h"
#include "project/publish_work.h"
#include "ui/controls.h"

namespace project {

class ServerForm : public ui::Form {
 public:
  // A run is stopped first; the window closes behind it.
  bool queryClose() override;
  // What the user has typed when the last run asked for it, and the server has taken.
  const std::optional<std::string>& typedPassword() const { return typedPassword_; }

 protected:
  // `bench` must outlive the form.
  ServerForm(const char* name, int id, app::Workbench& bench) : Form(name, id), bench_(bench) {}

  // Does it on another thread, while the window lives; false: it was stopped or has failed, and the user
  // knows.
  bool run(const std::function<void()>& task);
  bool running() const { return running_; }
  bool stopping() const { return stop_; }
  void stop() { stop_ = true; }
  void tell(const std::string& text);

  // What the run tells meanwhile.
  virtual void take(const PublishWork::News& news) = 0;
  // The controls can be used again. `why` it did not get to its end; empty: it did, or the user was told.
  virtual void ended(const std::string& why) = 0;

  app::Workbench& bench_;
  PublishWork work_;
  ui::Button* stopButton_ = nullptr;  // the only one that can be used while it runs, but for these:
  std::vector<ui::Control*> stayOpen_;

 private:
  void setRunning(bool on);
  std::optional<std::string> answerTo(const PublishQuestion& question);

  std::optional<std::string> typedPassword_;
  bool running_ = false, stop_ = false, closeBehindRun_ = false;
};

}  // namespace project
