// Every file that the program writes: at each fault of the disk, and whenever the program is killed, each is
// whole old or whole new, and nothing else is left behind.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>

#include "base/write_notes.h"
#include "editor/frmxascvla.h"
#include "generators/frmtempformat.h"
#include "generators/generators.h"
#include "generators/page_library.h"
#include "platform/posix/disk_faults.h"
#include "project/frmWEB.h"
#include "project/frmupload.h"
#include "publish/state.h"
#include "recent/recent_list.h"
#include "tests/support/main_window.h"

namespace {

namespace faults = base::disk::faults;
using generators::TemplateFormat;

struct NoFtp : ui::Ftp {
  ui::FtpResult connect(const ui::FtpServer&, int, const ui::FtpWatch&) override { return {}; }
  ui::FtpResult askUtf8(bool&, int, const ui::FtpWatch&) override { return {}; }
  ui::FtpResult put(const std::string&, const std::string&, bool, int, const ui::FtpWatch&) override {
    return {};
  }
  void disconnect() override {}
  bool connected() const override { return false; }
};

class Writers : public tests::MainWindowTest {
 protected:
  using Files = std::map<std::string, std::string>;  // by path below the folder

  // `prepare` makes the old state, of which the files alone count; `change` writes the new one.
  struct Writer {
    const char* name;
    std::function<void()> prepare, change;
    bool tells = true;  // the user of a failure
    std::function<void()> afterFailure = [] {};
  };

  Writers() {
    setenv("XDG_STATE_HOME", own.path().c_str(), 1);
    start();
    templates = generators::attach(*H);
  }
  ~Writers() override { unsetenv("XDG_STATE_HOME"); }

  static std::vector<std::string> pathsOf(const Files& files) {
    std::vector<std::string> paths;
    for (const auto& [path, bytes] : files) paths.push_back(path);
    return paths;
  }
  Files files() const {
    Files all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path())) {
      all[entry.path().string()] = entry.is_regular_file() ? base::readFile(entry.path().string()) : "/";
    }
    return all;
  }
  void restore(const Files& wanted) const {
    for (const std::string& path : pathsOf(files())) {
      if (!wanted.contains(path)) std::filesystem::remove_all(path);
    }
    for (const auto& [path, bytes] : wanted) {
      if (bytes != "/") base::writeFile(path, bytes);
    }
  }
  void shown(ui::Form& form, const std::function<void()>& act) {
    platform.modal.push_front([act](ui::Form&) { act(); });
    platform.showModal(form);
  }
  std::string own_(const char* name) const { return base::joinPath(platform.folder, name); }

  std::vector<Writer> writers() {
    const auto raw = [this](const char* name, const std::string& bytes) {
      return [=, this] { base::writeFile(own_(name), bytes); };
    };
    const std::string site = folder.makeFolder("site"), fresh = folder.makeFolder("fresh");
    const std::string many(3000, 'm');
    std::vector<Writer> all;
    all.push_back({"settings", [this] { H->setProps({}); },
                   [=, this] {
                     H->perform([&] {
                       app::PropsRecord props;
                       props.HeaderText = many;
                       H->setProps(props);
                     });
                   }});
    all.back().afterFailure = [this] { EXPECT_EQ(H->Props.HeaderText, ""); };
    all.push_back({"recent files", raw("recentF.ini", "C:\\a.html\r\n"),
                   [this] { recent::addRecent(platform.folder, "C:\\b.html"); }, false});
    all.push_back({"recent files, edited", raw("recentF.ini", "C:\\a.html\r\nC:\\b.html\r\n"),
                   [this] { H->perform([&] { recent::writeRecent(platform.folder, {"C:\\b.html"}); }); }});
    all.push_back({"accounts", raw("FTP.ini", project::accountLine({"A", "h", "u", "p", "/"})), [this] {
                     project::frmupload form(*H, ftp);
                     shown(form, [&] {
                       form.Command4.click();
                       form.Command2[0]->click();
                       form.Text2[0]->userSet("second");
                       form.Command2[1]->click();
                     });
                   }});
    all.push_back({"templates",
                   [this] {
                     templates->templates() = {TemplateFormat::of("a", "<A>", "</A>")};
                     base::writeFile(own_("formats.TFF"),
                                     generators::encodeTemplates(templates->templates()));
                   },
                   [this] {
                     platform.modal.push_front([](ui::Form& shown) {
                       auto& form = dynamic_cast<generators::frmtempformat&>(shown);
                       form.Tsaxeli.userSet("b");
                       form.Tfor.userSet("<B>");
                       form.Cadd.click();
                     });
                     H->runCommand(mnutempformat);
                   }});
    all.push_back({"templates, written elsewhere",
                   [=, this] {
                     templates->templates() = {TemplateFormat::of("a", "<A>", "</A>")};
                     base::writeFile(own_("mine.TFF"), many);
                   },
                   [this] {
                     platform.modal.push_front([this](ui::Form& shown) {
                       platform.saveAnswers = {own_("mine.TFF")};
                       dynamic_cast<generators::frmtempformat&>(shown).Csave.click();
                     });
                     H->runCommand(mnutempformat);
                   }});
    all.push_back({"a project and its documents",
                   [=, this] {
                     for (const char* name : {"a.html", "b.html"})
                       base::writeFile(base::joinPath(site, name), name);
                     const std::string web = base::joinPath(site, "p.WEB");
                     base::writeFile(web, "a.html\r\nb.html\r\nSTOPF=a.html\r\n");
                     H->WEB_Open(web);
                   },
                   [this] {
                     if (!H->FileChanged) type("typed ");
                     clickNode("b.html");
                     H->runCommand(mnuSaveWEB);
                   }});
    all.back().afterFailure = [this] { EXPECT_EQ(H->documentText(0), "typed a.html"); };
    all.push_back({"a project that replaces another",
                   [=] {
                     for (const char* name : {"n.WEB", "Index.HTML"})
                       base::writeFile(base::joinPath(fresh, name), "another's");
                   },
                   [=, this] {
                     project::frmWEB form(*H);
                     platform.modal.push_front(
                         [](ui::Form& box) { press(dynamic_cast<app::frmBOXa&>(box), app::kAnswerYes); });
                     form.Tpname.userSet("n");
                     form.Twebpath.userSet(fresh);
                     form.COK[4]->click();
                   }});
    all.push_back({"a saved page", raw("page.html", "old"), [=, this] {
                     H->perform([&] { generators::PageLibrary(platform.folder).write("page.html", many); });
                   }});
    all.push_back({"a list of pairs", raw("pairs.txt", "old"), [this] {
                     editor::frmxascvla form(*H);
                     form.Tfind.userSet("find");
                     form.Treplace.userSet("replace");
                     form.Cadd.click();
                     platform.saveAnswers = {own_("pairs.txt")};
                     form.Csave.click();
                   }});
    all.push_back({"what was published", raw("state", "old"), [=, this] {
                     publish::State state;
                     state.id = "12345678";
                     state.files["a.html"].digest = many;
                     H->perform([&] { publish::writeState(own_("state"), {}, state); });
                   }});
    return all;
  }

  // What is there without the writer's own files stays; of those each is one of the two.
  void expectWhole(const Files& before, const Files& after) const {
    const Files now = files();
    for (const auto& [path, bytes] : now) {
      const auto old = before.find(path), made = after.find(path);
      EXPECT_TRUE((old != before.end() && old->second == bytes) ||
                  (made != after.end() && made->second == bytes))
          << path << ": " << bytes;
    }
    for (const auto& [path, bytes] : before) {
      EXPECT_TRUE(now.contains(path) || !after.contains(path)) << path << " is gone";
    }
    EXPECT_TRUE(base::fileNames(own.path() + "/zervo/Writing").empty());
  }
  // The boxes that come are answered; what they said.
  std::string boxesOf(const std::function<void()>& action) {
    std::string said;
    for (int i = 0; i < 4; ++i) {
      platform.modal.push_back([&said](ui::Form& form) {
        auto& box = dynamic_cast<app::frmBOXa&>(form);
        said += box.text();
        press(box, app::kAnswerOk);
      });
    }
    action();
    platform.modal.clear();
    return said;
  }
  std::pair<Files, Files> states(const Writer& writer) {
    writer.prepare();
    const Files before = files();
    writer.change();
    Files after = files();
    EXPECT_NE(before, after) << "it writes nothing";
    return {before, std::move(after)};
  }

  const tests::TempFolder own;
  NoFtp ftp;
  std::unique_ptr<generators::Generators> templates;
};

TEST_F(Writers, AtEveryFaultEachFileIsWholeAndTheUserIsTold) {
  int points = 0;
  for (const Writer& writer : writers()) {
    const auto [before, after] = states(writer);
    for (const int code : {ENOSPC, EIO, faults::kDie}) {
      bool happened = true;
      for (int nth = 1; happened; ++nth) {
        SCOPED_TRACE(std::string(writer.name) + ", " + std::to_string(code) + " at " + std::to_string(nth));
        restore(before);
        writer.prepare();
        if (code == faults::kDie) {
          const pid_t dying = fork();
          if (dying == 0) {
            faults::planAt(nth, code);
            boxesOf(writer.change);
            _exit(1);
          }
          int status = 0;
          waitpid(dying, &status, 0);
          happened = WEXITSTATUS(status) == 0;
        } else {
          const std::string said = boxesOf([&] {
            faults::planAt(nth, code);
            writer.change();
            happened = faults::happened();
          });
          const bool written = files() == after;
          EXPECT_TRUE(written || happened);
          EXPECT_EQ(said.empty(), written || !writer.tells) << said;
          if (!written) writer.afterFailure();
        }
        points += happened ? 1 : 0;
        base::finishInterruptedWrites();
        expectWhole(before, after);
        if (HasFailure()) return;
        ASSERT_LT(nth, 60);
      }
    }
    restore(before);
  }
  std::printf("%d failure points\n", points);
}

// By the system, at any moment. As many rounds as the environment says.
TEST_F(Writers, KilledWheneverTheyWriteEachFileIsWhole) {
  const char* const wanted = std::getenv("ZERVO_KILLS");
  const int rounds = wanted == nullptr ? 20 : std::atoi(wanted);
  std::mt19937 random(21);
  const auto all = writers();
  std::map<std::string, int> killed, changed;
  struct State {
    Files before, after;
    std::chrono::microseconds takes{std::chrono::hours(1)};
  };
  std::vector<State> known;
  for (const Writer& writer : all) {
    State& state = known.emplace_back();
    std::tie(state.before, state.after) = states(writer);
    for (int i = 0; i < 3; ++i) {
      restore(state.before);
      writer.prepare();
      const auto start = std::chrono::steady_clock::now();
      writer.change();
      state.takes = std::min(state.takes, std::chrono::duration_cast<std::chrono::microseconds>(
                                              std::chrono::steady_clock::now() - start));
    }
    restore(state.before);
  }
  for (int round = 0; round < rounds; ++round) {
    const std::size_t which = static_cast<std::size_t>(round) % all.size();
    SCOPED_TRACE(std::string(all[which].name) + ", round " + std::to_string(round));
    restore(known[which].before);
    all[which].prepare();
    const pid_t writing = fork();
    if (writing == 0) {
      all[which].change();
      _exit(0);
    }
    usleep(static_cast<useconds_t>(random() % static_cast<unsigned>(known[which].takes.count() * 3 / 2 + 1)));
    kill(writing, SIGKILL);
    int status = 0;
    waitpid(writing, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
    killed[all[which].name] += WIFSIGNALED(status) ? 1 : 0;
    base::finishInterruptedWrites();
    expectWhole(known[which].before, known[which].after);
    if (HasFailure()) return;
    changed[all[which].name] += files() != known[which].before ? 1 : 0;
  }
  if (wanted == nullptr) return;
  for (const auto& [name, kills] : killed) {
    std::printf("%s: %d killed, %d had written\n", name.c_str(), kills, changed[name]);
  }
}

}  // namespace
