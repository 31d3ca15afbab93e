#include "site/crew.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <map>
#include <mutex>
#include <thread>

namespace site {
namespace {

constexpr std::size_t kMostAtOnce = 64;
constexpr std::size_t kPortionsAThread = 16;  // of even a short list, so that all end together
// Portions that may wait for one before them: their results take room.
constexpr std::size_t kMostWaiting = 32;

class Crew {
 public:
  Crew(std::size_t count, unsigned threads, const Portion& portion, Observer& observer)
      : count_(count),
        size_(std::clamp<std::size_t>(count / (threads * kPortionsAThread), 1, kMostAtOnce)),
        portion_(portion),
        observer_(observer) {}

  void run(unsigned threads) {
    std::vector<std::thread> others;
    try {
      for (unsigned i = 1; i < threads; ++i) others.emplace_back([this] { work(); });
    } catch (const std::exception&) {
      // The system gives no more threads: fewer do it.
    }
    work();
    for (std::thread& other : others) other.join();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void work() {
    for (;;) {
      std::size_t number = 0;
      {
        std::unique_lock lock(mutex_);
        room_.wait(lock, [this] { return ended_ || next_ < delivered_ + kMostWaiting; });
        if (ended_ || next_ * size_ >= count_) return;
        number = next_++;
      }
      std::vector<FileResult> results;
      try {
        if (!observer_.stopped()) portion_(number * size_, std::min(count_, (number + 1) * size_), results);
        deliver(number, std::move(results));
      } catch (...) {
        const std::lock_guard lock(mutex_);
        if (!failure_) failure_ = std::current_exception();
        ended_ = true;
        room_.notify_all();
        return;
      }
    }
  }

  void deliver(std::size_t number, std::vector<FileResult> results) {
    const std::lock_guard order(order_);
    waiting_.emplace(number, std::move(results));
    for (auto first = waiting_.begin(); first != waiting_.end() && first->first == delivered_;
         first = waiting_.erase(first)) {
      for (FileResult& result : first->second) observer_.done(result);
      const std::lock_guard lock(mutex_);
      ++delivered_;
      room_.notify_all();
    }
  }

  const std::size_t count_;
  const std::size_t size_;
  const Portion& portion_;
  Observer& observer_;
  std::mutex mutex_, order_;
  std::condition_variable room_;
  std::size_t next_ = 0;
  std::size_t delivered_ = 0;  // written under both, read under either
  bool ended_ = false;
  std::map<std::size_t, std::vector<FileResult>> waiting_;
  std::exception_ptr failure_;
};

}  // namespace

void inOrder(std::size_t count, unsigned threads, const Portion& portion, Observer& observer) {
  Crew(count, std::max(threads, 1U), portion, observer).run(std::max(threads, 1U));
}

}  // namespace site
