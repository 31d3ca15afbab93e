#include "site/task.h"

#include <chrono>
#include <utility>

namespace site {

Task::Task(std::function<void(Observer&)> work, std::function<void(FileResult&)> take)
    : take_(std::move(take)), thread_([this, work = std::move(work)] {
        std::exception_ptr failure;
        try {
          work(*this);
        } catch (...) {
          failure = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        failure_ = failure;
        state_.ended = true;
        end_.notify_all();
      }) {}

Task::~Task() {
  stop();
  if (thread_.joinable()) thread_.join();
}

Task::State Task::wait(int milliseconds) {
  std::unique_lock lock(mutex_);
  end_.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return state_.ended; });
  return state_;
}

void Task::stop() {
  const std::lock_guard lock(mutex_);
  stop_ = true;
}

void Task::finish() {
  thread_.join();
  if (failure_) std::rethrow_exception(failure_);
}

void Task::found(std::size_t files) {
  const std::lock_guard lock(mutex_);
  state_.files = files;
}

void Task::begins(std::string_view file) {
  const std::lock_guard lock(mutex_);
  state_.file = file;
}

void Task::done(FileResult& result) {
  take_(result);
  const std::lock_guard lock(mutex_);
  ++state_.done;
}

bool Task::stopped() {
  const std::lock_guard lock(mutex_);
  return stop_;
}

}  // namespace site
