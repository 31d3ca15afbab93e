// The window for publishing, without a server.
#include <gtest/gtest.h>

#include <mutex>

#include "base/disk.h"
#include "project/frmpublish.h"
#include "tests/support/main_window.h"

namespace {

using Words = std::vector<std::string>;

// A server with an empty folder, whose password is "right".
struct Server {
  std::mutex mutex;
  Words passwords;      // that were tried; the connections share them
  bool answers = true;  // else a list comes never
};

class FakeTransport : public publish::Transport {
 public:
  explicit FakeTransport(Server& server) : server_(server) {}
  void connect() override {
    const std::lock_guard lock(server_.mutex);
    server_.passwords.push_back(login.password.value_or("none"));
    if (login.password != "right") throw publish::Failure(publish::Fault::Login);
  }
  std::vector<publish::Entry> list(const std::string&) override {
    while (!server_.answers) {
      if (watch.stopped()) throw publish::Failure(publish::Fault::Stopped);
      base::disk::pause(1);
    }
    return {};
  }
  void put(const std::string&, std::int64_t, std::int64_t,
           const std::function<std::size_t(char*, std::size_t)>&) override {}
  void get(const std::string&, const std::function<void(std::string_view)>&) override {}
  void makeFolder(const std::string&) override {}
  void rename(const std::string&, const std::string&) override {}
  bool renameReplaces() const override { return true; }
  void remove(const std::string&) override {}
  void removeFolder(const std::string&) override {}
  publish::HostKey hostKey() const override { return {}; }
  publish::Certificate certificate() override { return {}; }

 private:
  Server& server_;
};

class Publishing : public tests::MainWindowTest {
 protected:
  Publishing() {
    start();
    folder.make("a.htm", "x");
  }
  Words show(const std::function<void(project::frmpublish&)>& act) {
    project::frmpublish form(
        *H, [this](const publish::Address&) { return std::make_unique<FakeTransport>(server); });
    platform.modal.push_front([&](ui::Form&) {
      form.Taddress.userSet("ftps://host/www");
      form.Tuser.userSet("me");
      form.Tfolder.userSet(folder.path());
      act(form);
    });
    platform.showModal(form);
    EXPECT_TRUE(platform.modal.empty()) << "a box did not come";
    return std::exchange(server.passwords, {});
  }
  Server server;
};

TEST_F(Publishing, APasswordIsKeptBySystemWhereTheUserWantsIt) {
  const auto compare = [](project::frmpublish& form) {
    form.Ccompare.click();
    EXPECT_EQ(form.LV.items().size(), 1u);
  };
  const auto kept = [this] { return platform.store.kept.empty() ? "" : platform.store.kept.begin()->second; };
  expectInput("right");
  show(compare);
  EXPECT_EQ(kept(), "");

  expectInput("wrong");
  expectInput("right");
  show([&](project::frmpublish& form) {
    form.CKkeep.userSet(true);
    compare(form);
  });
  EXPECT_EQ(kept(), "me\nright");
  EXPECT_EQ(show([&](project::frmpublish& form) {
              EXPECT_TRUE(form.CKkeep.checked());
              EXPECT_EQ(form.Tpassword.text(), "");
              compare(form);
              form.Tuser.userSet("somebody else");
              EXPECT_FALSE(form.CKkeep.checked());
            }),
            (Words{"right"}));

  // Changed at the server since.
  platform.store.kept.begin()->second = "me\nold";
  expectInput("right");
  EXPECT_EQ(show(compare), (Words{"old", "right"}));
  EXPECT_EQ(kept(), "me\nright");
  show([](project::frmpublish& form) { form.CKkeep.userSet(false); });
  EXPECT_EQ(kept(), "");
}

TEST_F(Publishing, ARunIsStoppedByItsButtonAndByClosingTheWindow) {
  server.answers = false;
  show([&](project::frmpublish& form) {
    form.Tpassword.userSet("right");
    platform.whilePumping = [&] {
      EXPECT_FALSE(form.Ccompare.enabled());
      EXPECT_FALSE(form.Cremote.enabled());
      form.Cstop.click();
    };
    form.Ccompare.click();
    EXPECT_TRUE(form.Ccompare.enabled());
    EXPECT_FALSE(form.Cstop.enabled());
    EXPECT_FALSE(form.Cupload.enabled());
    EXPECT_NE(form.Lprogress.caption(), ui::Text(""));

    bool closed = false;
    platform.whilePumping = [&] { closed = closed || form.queryClose(); };
    form.Ccompare.click();
    EXPECT_FALSE(closed) << "closed while the run went on";
    EXPECT_TRUE(form.queryClose());
  });
  platform.whilePumping = {};
}

}  // namespace
