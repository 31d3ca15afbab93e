// What a run tells, in order.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "publish/publisher.h"

namespace publish {

// Passes on one call at a time, and keeps the progress.
class Publisher::Chatter : public Talk {
 public:
  explicit Chatter(Talk& to) : to_(to) {}

  bool stopped() override { return given_up || to_.stopped(); }
  void log(const std::string& line) override {
    const std::scoped_lock lock(one_);
    to_.log(line);
  }
  void done(const Item& item) override {
    const std::scoped_lock lock(one_);
    ++now_.filesDone;
    to_.done(item);
    show(true);
  }
  void failed(const Item& item, const Failure& why) override {
    const std::scoped_lock lock(one_);
    to_.failed(item, why);
  }
  void retrying(const Failure& why, int milliseconds) override {
    const std::scoped_lock lock(one_);
    to_.retrying(why, milliseconds);
  }
  bool acceptCertificate(const Certificate& certificate) override {
    const std::scoped_lock lock(one_);
    return to_.acceptCertificate(certificate);
  }
  bool acceptHostKey(const HostKey& key) override {
    const std::scoped_lock lock(one_);
    return to_.acceptHostKey(key);
  }
  std::optional<std::string> password(const Address& address, bool again) override {
    const std::scoped_lock lock(one_);
    return to_.password(address, again);
  }
  std::optional<std::string> passphrase(const std::string& keyFile, bool again) override {
    const std::scoped_lock lock(one_);
    return to_.passphrase(keyFile, again);
  }

  void begin(int files, std::int64_t bytes) {
    const std::scoped_lock lock(one_);
    now_ = {};
    now_.files = files;
    now_.bytes = bytes;
    begun_ = Clock::now();
    shown_ = {};
    skipped_ = 0;
  }
  // `skipped`: was at the server already, and says nothing of the rate.
  void moved(const Item& item, std::int64_t done, std::int64_t bytes, bool skipped) {
    const std::scoped_lock lock(one_);
    now_.path = item.path;
    now_.size = item.local.size;
    now_.done = done;
    now_.bytesDone += bytes;
    if (skipped) skipped_ += bytes;
    show(false);
  }

  // Set when the run cannot go on: the other connections end.
  std::atomic<bool> given_up = false;

 private:
  using Clock = std::chrono::steady_clock;

  void show(bool anyway) {
    constexpr auto kPause = std::chrono::milliseconds(100);
    const auto time = Clock::now();
    if (!anyway && time - shown_ < kPause) return;
    shown_ = time;
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(time - begun_).count();
    const std::int64_t sent = now_.bytesDone - skipped_;
    now_.rate = passed > 0 && sent > 0 ? sent * 1000 / passed : 0;
    now_.secondsLeft = now_.rate > 0 ? (now_.bytes - now_.bytesDone + now_.rate - 1) / now_.rate : -1;
    to_.progress(now_);
  }

  Talk& to_;
  std::mutex one_;
  Progress now_;
  Clock::time_point begun_, shown_;
  std::int64_t skipped_ = 0;
};

}  // namespace publish
