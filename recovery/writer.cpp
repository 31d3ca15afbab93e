#include "recovery/writer.h"

#include <cerrno>
#include <chrono>
#include <utility>

#include "base/disk.h"

namespace recovery {
namespace {

// What comes together goes to the disk together.
constexpr std::chrono::milliseconds kGathering{400};
constexpr int kMostUnflushed = 16;                       // such portions
constexpr std::size_t kMuch = std::size_t{1024} * 1024;  // bytes that go at once

}  // namespace

Writer::Writer() : thread_([this] { run(); }) {}

Writer::~Writer() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
  }
  given_.notify_all();
  thread_.join();
  for (const auto& [path, file] : files_) std::fclose(file);
}

void Writer::give(Task task) {
  {
    const std::lock_guard lock(mutex_);
    waiting_ += task.bytes.size();
    tasks_.push_back(std::move(task));
  }
  given_.notify_one();
}

void Writer::create(const std::string& path) {
  give({Task::Kind::Create, path, {}});
}
void Writer::append(const std::string& path, std::string bytes) {
  if (!bytes.empty()) give({Task::Kind::Append, path, std::move(bytes)});
}
void Writer::close(const std::string& path) {
  give({Task::Kind::Close, path, {}});
}
void Writer::remove(const std::string& path) {
  give({Task::Kind::Remove, path, {}});
}

std::size_t Writer::waiting() {
  const std::lock_guard lock(mutex_);
  return waiting_;
}

int Writer::takeError() {
  const std::lock_guard lock(mutex_);
  return std::exchange(error_, 0);
}

void Writer::finish() {
  std::unique_lock lock(mutex_);
  hurry_ = true;
  given_.notify_all();
  done_.wait(lock, [this] { return tasks_.empty() && !busy_; });
  hurry_ = false;
}

void Writer::run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    given_.wait(lock, [this] { return !tasks_.empty() || ending_; });
    if (tasks_.empty()) return;
    given_.wait_for(lock, kGathering, [this] { return hurry_ || ending_ || waiting_ > kMuch; });
    std::vector<Task> tasks;
    tasks.swap(tasks_);
    busy_ = true;
    lock.unlock();
    work(tasks);
    lock.lock();
    busy_ = false;
    done_.notify_all();
  }
}

void Writer::work(std::vector<Task>& tasks) {
  int error = 0;
  const auto failed = [&error](int code) {
    if (error == 0) error = code;
  };
  const auto close = [&](const std::string& path) {
    const auto at = files_.find(path);
    if (at == files_.end()) return;
    std::fclose(at->second);
    touched_.erase(path);
    files_.erase(at);
  };
  for (Task& task : tasks) {
    if (task.kind == Task::Kind::Create) {
      close(task.path);
      base::disk::remove(task.path);
      std::FILE* const file = base::disk::open(task.path, base::disk::Mode::Create);
      if (file == nullptr) {
        failed(errno);
      } else {
        files_[task.path] = file;
      }
    } else if (task.kind == Task::Kind::Append) {
      const auto at = files_.find(task.path);
      if (at != files_.end()) {
        if (const int code = base::disk::write(at->second, task.bytes)) {
          // The rest would follow a gap, and count for nothing.
          failed(code);
          close(task.path);
        } else {
          touched_.insert(*at);
        }
      }
    } else {
      close(task.path);
      if (task.kind == Task::Kind::Remove) base::disk::remove(task.path);
    }
    const std::lock_guard lock(mutex_);
    waiting_ -= task.bytes.size();
    task.bytes = std::string();
  }
  std::unique_lock lock(mutex_);
  if (tasks_.empty() || ++unflushed_ > kMostUnflushed) {
    lock.unlock();
    for (const auto& [path, file] : touched_) {
      if (const int code = base::disk::flush(file)) failed(code);
    }
    touched_.clear();
    unflushed_ = 0;
    lock.lock();
  }
  if (error_ == 0) error_ = error;
}

}  // namespace recovery
