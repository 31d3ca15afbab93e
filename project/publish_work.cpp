#include "project/publish_work.h"

#include <chrono>
#include <utility>

namespace project {

PublishWork::~PublishWork() {
  stop();
  if (thread_.joinable()) thread_.join();
}

void PublishWork::start(std::function<void()> work) {
  news_ = {};
  stop_ = asked_ = answered_ = false;
  failure_ = nullptr;
  thread_ = std::thread([this, work = std::move(work)] {
    std::exception_ptr failure;
    try {
      work();
    } catch (...) {
      failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = failure;
    news_.ended = true;
    changed_.notify_all();
  });
}

PublishWork::News PublishWork::wait(int milliseconds) {
  std::unique_lock lock(mutex_);
  const auto wanted = [this] { return news_.ended || (news_.question && !asked_); };
  changed_.wait_for(lock, std::chrono::milliseconds(milliseconds), wanted);
  News news = std::exchange(news_, {});
  // What stays true.
  news_.progress = news.progress;
  news_.ended = news.ended;
  news_.question = news.question;
  if (asked_)
    news.question.reset();
  else
    asked_ = news.question.has_value();
  return news;
}

void PublishWork::answer(std::optional<std::string> words) {
  const std::lock_guard lock(mutex_);
  answer_ = std::move(words);
  answered_ = true;
  changed_.notify_all();
}

void PublishWork::stop() {
  const std::lock_guard lock(mutex_);
  stop_ = true;
  changed_.notify_all();
}

void PublishWork::finish() {
  thread_.join();
  if (failure_) std::rethrow_exception(failure_);
}

bool PublishWork::stopped() {
  const std::lock_guard lock(mutex_);
  return stop_;
}

void PublishWork::log(const std::string& line) {
  const std::lock_guard lock(mutex_);
  news_.lines.push_back(line);
}

void PublishWork::progress(const publish::Progress& now) {
  const std::lock_guard lock(mutex_);
  news_.progress = now;
}

void PublishWork::done(const publish::Item& item) {
  const std::lock_guard lock(mutex_);
  news_.events.push_back({item.path, !item.here, std::nullopt});
}

void PublishWork::failed(const publish::Item& item, const publish::Failure& why) {
  const std::lock_guard lock(mutex_);
  news_.events.push_back({item.path, !item.here, why});
}

void PublishWork::retrying(const publish::Failure& why, int) {
  const std::lock_guard lock(mutex_);
  news_.again = why;
}

bool PublishWork::acceptCertificate(const publish::Certificate& certificate) {
  return ask(certificate).has_value();
}

bool PublishWork::acceptHostKey(const publish::HostKey& key) {
  return ask(key).has_value();
}

std::optional<std::string> PublishWork::password(const publish::Address& address, bool again) {
  return ask(PasswordQuestion{address, again});
}

std::optional<std::string> PublishWork::passphrase(const std::string& keyFile, bool again) {
  return ask(PassphraseQuestion{keyFile, again});
}

std::optional<std::string> PublishWork::ask(PublishQuestion question) {
  std::unique_lock lock(mutex_);
  news_.question = std::move(question);
  asked_ = answered_ = false;
  changed_.notify_all();
  changed_.wait(lock, [this] { return answered_ || stop_; });
  news_.question.reset();
  return answered_ && !stop_ ? std::exchange(answer_, std::nullopt) : std::nullopt;
}

}  // namespace project
