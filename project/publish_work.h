// A run of publishing on a thread of its own, and what it tells and asks the window meanwhile.
#pragma once

#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include "publish/talk.h"

namespace project {

// What only the user can tell.
struct PasswordQuestion {
  publish::Address address;
  bool again = false;  // the last answer was wrong
};
struct PassphraseQuestion {
  std::string keyFile;
  bool again = false;
};
using PublishQuestion =
    std::variant<publish::Certificate, publish::HostKey, PasswordQuestion, PassphraseQuestion>;

// One run at a time; used by the window's thread, but for what it is as a Talk.
class PublishWork : public publish::Talk {
 public:
  PublishWork() = default;
  PublishWork(const PublishWork&) = delete;
  PublishWork& operator=(const PublishWork&) = delete;
  ~PublishWork() override;  // stops the run and waits until it has ended

  // What happened to a file.
  struct Event {
    std::string path;
    bool removed = false;
    std::optional<publish::Failure> failure;  // none: it is done
  };
  struct News {
    publish::Progress progress;
    std::vector<std::string> lines;         // of the conversation, since the last look
    std::vector<Event> events;              // since the last look
    std::optional<publish::Failure> again;  // a fault after which the same is tried again
    std::optional<PublishQuestion> question;
    bool ended = false;
  };

  void start(std::function<void()> work);
  // Waits so many milliseconds at most for the end or a question.
  News wait(int milliseconds);
  // To the question of the last news: nothing or "" is no. Of passwords what is typed, of others anything.
  void answer(std::optional<std::string> words);
  void stop();
  void finish();  // waits for the end; throws what the run has thrown

 private:
  bool stopped() override;
  void log(const std::string& line) override;
  void progress(const publish::Progress& now) override;
  void done(const publish::Item& item) override;
  void failed(const publish::Item& item, const publish::Failure& why) override;
  void retrying(const publish::Failure& why, int milliseconds) override;
  bool acceptCertificate(const publish::Certificate& certificate) override;
  bool acceptHostKey(const publish::HostKey& key) override;
  std::optional<std::string> password(const publish::Address& address, bool again) override;
  std::optional<std::string> passphrase(const std::string& keyFile, bool again) override;
  std::optional<std::string> ask(PublishQuestion question);

  std::mutex mutex_;
  std::condition_variable changed_;
  News news_;
  bool stop_ = false;
  bool asked_ = false;     // the question has been handed out
  bool answered_ = false;  // and so is the answer
  std::optional<std::string> answer_;
  std::exception_ptr failure_;
  std::thread thread_;
};

}  // namespace project
