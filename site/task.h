// A run on a thread of its own, for whoever must stay alive meanwhile.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "site/site.h"

namespace site {

class Task : private Observer {
 public:
  // `work` begins at once and passes the observer on to plan(), apply() or restore(); `take` gets the
  // results. Both are called on threads of the run.
  Task(std::function<void(Observer&)> work, std::function<void(FileResult&)> take);
  Task(const Task&) = delete;
  Task& operator=(const Task&) = delete;
  ~Task() override;  // stops the run and waits until it has ended

  struct State {
    std::size_t files = 0;  // that will be looked at; 0: not known yet
    std::size_t done = 0;
    std::string file;  // that is being looked at; empty: none yet
    bool ended = false;
  };
  State wait(int milliseconds);  // no longer than that for the end
  void stop();                   // behind the files that are being done
  void finish();                 // waits for the end; throws what the run has thrown

 private:
  void found(std::size_t files) override;
  void begins(std::string_view file) override;
  void done(FileResult& result) override;
  bool stopped() override;

  std::function<void(FileResult&)> take_;
  std::mutex mutex_;
  std::condition_variable end_;
  State state_;
  bool stop_ = false;
  std::exception_ptr failure_;
  std::thread thread_;  // the last member: it uses the others
};

}  // namespace site
