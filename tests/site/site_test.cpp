// A whole site: what a run says of each file, what it leaves behind, and what comes back.
#include "site/site.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <random>

#include "base/error.h"
#include "base/files.h"
#include "base/write_notes.h"
#include "site/file_list.h"
#include "site/report.h"
#include "site/result_lines.h"
#include "tests/support/iconv.h"
#include "tests/support/small_disk.h"
#include "tests/support/temp_folder.h"

namespace {

namespace fs = std::filesystem;

// "Our site is beautiful" and more, in the legacy form.
const std::string kLegacy =
    "\xDC\xC5\xC4\xCD\xC9 \xD3\xC0\xC9\xD4\xC9 \xC0\xD2\xC9\xD3 \xCB\xC0\xCC\xC0\xC6\xC9 \xC3\xC0 "
    "\xC3\xC9\xC3\xC9";
const std::string kPage =
    "<html><head><title>x</title></head><body>\r\n<p>" + kLegacy + "\r\n</body></html>\r\n";

class Results : public site::Observer {
 public:
  void done(site::FileResult& result) override { all[result.file] = std::move(result); }
  bool stopped() override { return false; }
  site::Note noteOf(const std::string& file) const {
    return all.contains(file) ? all.at(file).note : site::Note::None;
  }
  site::Done doneOf(const std::string& file) const {
    return all.contains(file) ? all.at(file).done : site::Done::Nothing;
  }
  std::map<std::string, site::FileResult> all;
};

// Bytes, rights and times of all below a folder.
using State = std::map<std::string, std::string>;
State stateOf(const std::string& folder, bool times = true) {
  State state;
  const auto add = [&](const fs::path& path) {
    struct stat known {};
    lstat(path.c_str(), &known);
    std::string about = std::to_string(known.st_mode);
    if (times)
      about += " " + std::to_string(known.st_mtim.tv_sec) + "." + std::to_string(known.st_mtim.tv_nsec);
    if (S_ISREG(known.st_mode)) about += " " + base::readFile(path.string());
    state[fs::relative(path, folder).string()] = about;
  };
  add(folder);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) add(entry.path());
  return state;
}

void put(const std::string& folder, const std::string& file, const std::string& bytes) {
  const fs::path path = fs::path(folder) / file;
  fs::create_directories(path.parent_path());
  base::writeFile(path.string(), bytes);
}

// Some of every kind, in the past, so that times show.
void makeSite(const std::string& folder, int pages) {
  for (int i = 0; i < pages; ++i) {
    std::string page = kPage;
    for (int n = i % 7; n > 0; --n) page += "<p>" + kLegacy + " " + std::to_string(i) + "</p>\n";
    put(folder, "part" + std::to_string(i % 5) + "/page" + std::to_string(i) + ".html", page);
  }
  put(folder, "მთავარი.html",
      "<head><link rel=stylesheet href='css/a.css'><script src=/a.js></script>" + kPage);
  put(folder, "css/a.css", "p:before{content:'\xDC\xC5'}");
  put(folder, "a.js", "document.write('\xDC\xC5\xC4')");
  put(folder, "keyboard.htm", "<p><font face=AcadNusx>gamarjoba Cemo qveyanav</font>");
  put(folder, "right.txt", "გამარჯობა");
  put(folder, "picture.gif", std::string("GIF89a\0\1\2", 9));
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    fs::last_write_time(entry.path(), fs::file_time_type::clock::now() - std::chrono::hours(1000));
  fs::permissions(folder + "/keyboard.htm", fs::perms(0640));
}

site::Options optionsFor(const std::string& folder, unsigned threads = 1) {
  site::Options options;
  options.folder = folder;
  options.threads = threads;
  return options;
}

Results applied(const std::string& folder, const std::string& backup, unsigned threads = 1,
                const site::DryRun* planned = nullptr) {
  Results results;
  site::apply(optionsFor(folder, threads), {"", backup, false}, planned, results);
  return results;
}

Results restored(const std::string& backup, bool overwrite = false) {
  Results results;
  site::restore({backup, "", overwrite, 2}, results);
  return results;
}

TEST(Site, IsPlannedAppliedAndRestoredToTheLastTimeStamp) {
  const tests::TempFolder folder;
  const std::string top = folder.path() + "/site";
  makeSite(top, 40);
  fs::create_symlink("/etc", top + "/etc");
  fs::create_symlink("keyboard.htm", top + "/link.htm");
  const State old = stateOf(top);

  Results planned;
  site::plan(optionsFor(top, 2), nullptr, planned);
  EXPECT_EQ(stateOf(top), old) << "a plan writes nothing";
  EXPECT_EQ(planned.all.size(), 48U) << "40 and 6 files, 2 links";
  EXPECT_EQ(planned.all["part3/page3.html"].form, convert::Form::Legacy);
  EXPECT_TRUE(planned.all["part3/page3.html"].changes);
  EXPECT_FALSE(planned.all["right.txt"].changes);
  EXPECT_EQ(planned.all["css/a.css"].from, convert::Form::Legacy) << "from the page that links it";
  EXPECT_EQ(planned.noteOf("etc"), site::Note::Link);
  const site::FileResult& page = planned.all["part0/page0.html"];
  ASSERT_EQ(page.differences.size(), 2U);
  EXPECT_EQ(page.differences[1].line, 2U);
  EXPECT_EQ(page.differences[1].after, tests::convertWithIconv(kLegacy, "GEORGIAN-PS", "UTF-8"));

  const std::string backup = folder.path() + "/backup";
  applied(top, backup, 2);
  EXPECT_NE(base::readFile(top + "/part0/page0.html").find(page.differences[1].after), std::string::npos);
  EXPECT_EQ(base::readFile(top + "/css/a.css"), "@charset \"utf-8\";\r\np:before{content:'ჩვ'}");
  EXPECT_EQ(base::readFile(top + "/a.js"), "document.write('ჩვე')");
  const State now = stateOf(top);
  EXPECT_EQ(applied(top, backup).doneOf("a.js"), site::Done::Already);
  EXPECT_EQ(stateOf(top), now) << "once more changes nothing";

  restored(backup);
  EXPECT_EQ(stateOf(top), old);
  applied(top, backup);
  EXPECT_EQ(stateOf(top, false), [&] {
    applied(top, backup);
    return stateOf(top, false);
  }());
  EXPECT_EQ(base::readFile(top + "/a.js"), "document.write('ჩვე')");
}

TEST(Site, ANewFolderGetsAllFilesAndLosesNone) {
  const tests::TempFolder folder;
  const std::string top = folder.path() + "/site";
  makeSite(top, 10);
  fs::create_symlink("keyboard.htm", top + "/link.htm");
  fs::create_symlink("/etc/hostname", top + "/outside.htm");
  const State old = stateOf(top);
  const std::string out = folder.path() + "/out";
  Results results;
  site::apply(optionsFor(top, 2), {out, "", false}, nullptr, results);
  EXPECT_EQ(stateOf(top), old);
  EXPECT_EQ(base::readFile(out + "/picture.gif"), base::readFile(top + "/picture.gif"));
  EXPECT_EQ(fs::last_write_time(out + "/picture.gif"), fs::last_write_time(top + "/picture.gif"));
  EXPECT_EQ(fs::status(out + "/keyboard.htm").permissions(), fs::perms(0640));
  EXPECT_EQ(base::readFile(out + "/link.htm"), base::readFile(out + "/keyboard.htm"));
  EXPECT_FALSE(fs::exists(out + "/outside.htm"));

  // What is there and other stays, and nothing is written through a link.
  base::writeFile(out + "/keyboard.htm", "mine");
  fs::remove_all(out + "/css");
  fs::create_directory(folder.path() + "/elsewhere");
  fs::create_symlink(folder.path() + "/elsewhere", out + "/css");
  Results again;
  site::apply(optionsFor(top), {out, "", false}, nullptr, again);
  EXPECT_EQ(again.noteOf("keyboard.htm"), site::Note::Exists);
  EXPECT_EQ(base::readFile(out + "/keyboard.htm"), "mine");
  EXPECT_EQ(again.noteOf("css/a.css"), site::Note::Denied);
  EXPECT_TRUE(fs::is_empty(folder.path() + "/elsewhere"));
  EXPECT_EQ(again.doneOf("picture.gif"), site::Done::Already);
  EXPECT_THROW(site::apply(optionsFor(top), {top + "/new", "", false}, nullptr, again), base::Error);
  EXPECT_THROW(applied(top, folder.path()), base::Error);
}

TEST(Site, LeavesWhatOthersChangedAndSaysSo) {
  const tests::TempFolder folder;
  const std::string top = folder.path() + "/site";
  const std::string backup = folder.path() + "/backup";
  makeSite(top, 3);
  const State old = stateOf(top);
  Results results;
  site::plan(optionsFor(top), nullptr, results);
  site::DryRun planned;
  for (const auto& [file, result] : results.all) planned.add(*site::resultOf(site::lineOf(result)));
  planned.tick("keyboard.htm", false);
  put(top, "part0/page0.html", kPage + "changed");
  put(top, "new.html", kPage);
  Results some = applied(top, backup, 1, &planned);
  EXPECT_EQ(some.noteOf("part0/page0.html"), site::Note::Changed);
  EXPECT_EQ(some.noteOf("new.html"), site::Note::NotPlanned);
  EXPECT_EQ(base::readFile(top + "/new.html"), kPage);
  EXPECT_EQ(some.doneOf("keyboard.htm"), site::Done::Nothing) << "not ticked";
  EXPECT_EQ(some.doneOf("css/a.css"), site::Done::Written);
  EXPECT_EQ(base::readFile(top + "/css/a.css"), "@charset \"utf-8\";\r\np:before{content:'ჩვ'}");

  put(top, "a.js", "mine");
  fs::remove(top + "/part1/page1.html");
  EXPECT_EQ(applied(top, backup).noteOf("a.js"), site::Note::Changed);
  Results back = restored(backup);
  EXPECT_EQ(back.noteOf("a.js"), site::Note::Changed);
  EXPECT_EQ(base::readFile(top + "/a.js"), "mine");
  EXPECT_EQ(back.noteOf("part1/page1.html"), site::Note::NotFound);
  EXPECT_EQ(back.doneOf("css/a.css"), site::Done::Restored);
  put(backup + "/pages", "part2/page2.html", "damaged");
  put(top, "part2/page2.html", "x");
  back = restored(backup, true);
  EXPECT_EQ(back.noteOf("part2/page2.html"), site::Note::Damaged);
  State now = stateOf(top);
  for (const char* const other :
       {"", ".", "part0", "part0/page0.html", "part2", "part2/page2.html", "new.html"})
    now.erase(other);
  for (const auto& [file, state] : now) EXPECT_EQ(state, old.at(file)) << file;
  EXPECT_THROW(restored(top), base::Error);
  EXPECT_THROW(applied(folder.makeFolder("other"), backup), base::Error) << "a backup of another folder";
}

TEST(Site, WhatCannotBeDoneIsNamedAndAllElseIsDone) {
  const tests::TempFolder folder;
  const std::string top = folder.path() + "/site";
  std::string deep = "d";
  while (deep.size() < 600) deep += "/" + std::string(100, 'd');
  for (const std::string& name :
       {std::string("good.html"), std::string("read-only.html"), std::string("locked.html"),
        deep + "/გვერდი.html", std::string("<b>&\"'\n.html"), std::string("back\\slash.html"),
        std::string("\xFF.html")})
    std::filesystem::create_directories((fs::path(top) / name).parent_path());
  const auto make = [&](const std::string& name) {
    const int file = open((top + "/" + name).c_str(), O_CREAT | O_WRONLY, 0644);
    ASSERT_EQ(write(file, kPage.data(), kPage.size()), static_cast<ssize_t>(kPage.size()));
    close(file);
  };
  for (const std::string& name :
       {std::string("good.html"), std::string("read-only.html"), std::string("locked.html"),
        deep + "/გვერდი.html", std::string("<b>&\"'\n.html"), std::string("back\\slash.html"),
        std::string("\xFF.html")})
    make(name);
  put(top, "wide.html", std::string("\xFF\xFE<\0h\0", 6));
  put(top, "program.html",
      std::string("\x7F"
                  "ELF\0\0\0\0\0\0\0\0\0\0\0\0",
                  16));
  fs::permissions(top + "/read-only.html", fs::perms(0444));
  ASSERT_EQ(mkfifo((top + "/pipe.html").c_str(), 0600), 0);
  // Nothing can be put in the place of a file on which something is mounted, nor written into that.
  const std::string locked = top + "/locked.html";
  const bool mounted =
      mount(locked.c_str(), locked.c_str(), nullptr, MS_BIND, nullptr) == 0 &&
      mount(nullptr, locked.c_str(), nullptr, MS_BIND | MS_REMOUNT | MS_RDONLY, nullptr) == 0;
  Results results = applied(top, folder.path() + "/backup", 2);
  if (mounted) {
    EXPECT_EQ(results.noteOf("locked.html"), site::Note::Denied);
    EXPECT_EQ(base::readFile(locked), kPage);
  }
  umount(locked.c_str());
  using site::Note;
  EXPECT_EQ(results.noteOf("read-only.html"), Note::Denied);
  EXPECT_EQ(base::readFile(top + "/read-only.html"), kPage);
  EXPECT_EQ(results.noteOf("wide.html"), Note::Utf16);
  EXPECT_EQ(results.noteOf("program.html"), Note::Binary);
  EXPECT_EQ(results.noteOf("pipe.html"), Note::Special);
  EXPECT_EQ(results.noteOf("back\\slash.html"), Note::BadName);
  EXPECT_EQ(results.noteOf("\xFF.html"), Note::BadName);
  for (const std::string& name :
       {std::string("good.html"), deep + "/გვერდი.html", std::string("<b>&\"'\n.html")})
    EXPECT_EQ(results.doneOf(name), site::Done::Written) << name;
}

TEST(Site, AFullDiskTakesNothingAway) {
  const tests::SmallDisk disk("400k");
  if (!disk.made) GTEST_SKIP() << "cannot mount a small disk here";
  const std::string top = disk.path + "/site";
  std::string page = kPage;
  while (page.size() < 20000) page += "<p>" + kLegacy + "</p>\n";
  for (int i = 0; i < 8; ++i) put(top, "page" + std::to_string(i) + ".html", page + std::to_string(i));
  const State old = stateOf(top);
  const std::string backup = disk.path + "/backup";
  Results results = applied(top, backup);
  int full = 0;
  for (const auto& [file, result] : results.all) full += result.note == site::Note::DiskFull ? 1 : 0;
  EXPECT_GT(full, 0);
  EXPECT_EQ(results.doneOf("page0.html"), site::Done::Written);
  for (const auto& entry : fs::recursive_directory_iterator(disk.path))
    EXPECT_FALSE(entry.path().extension() == ".tmp") << entry.path();
  restored(backup);
  EXPECT_EQ(stateOf(top), old);
}

// In a process of its own, ended after some microseconds.
void killedApply(const std::string& top, const std::string& backup, unsigned microseconds) {
  const pid_t child = fork();
  if (child == 0) {
    try {
      applied(top, backup, 2);
    } catch (...) {
      _exit(1);
    }
    _exit(0);
  }
  usleep(microseconds);
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
}

TEST(Site, ARunKilledAtAnyMomentIsTakenUpOrTakenBack) {
  const char* const wanted = std::getenv("ZERVO_KILLS");
  const int kills = wanted != nullptr ? std::atoi(wanted) : 20;
  const tests::TempFolder folder;
  setenv("XDG_STATE_HOME", folder.path().c_str(), 1);
  const std::string origin = folder.path() + "/origin";
  makeSite(origin, 60);
  const auto copy = [](const std::string& from, const std::string& to) {
    fs::remove_all(to);
    ASSERT_EQ(std::system(("cp -a " + from + " " + to).c_str()), 0);
  };
  const State old = stateOf(origin);
  const State bytes = stateOf(origin, false);
  const std::string good = folder.path() + "/good";
  copy(origin, good);
  const auto start = std::chrono::steady_clock::now();
  applied(good, folder.path() + "/good-backup", 2);
  const auto whole =
      std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
  const State undisturbed = stateOf(good, false);
  const std::string top = folder.path() + "/site";
  const std::string backup = folder.path() + "/backup";
  std::mt19937 random(2024);
  int amidst = 0;
  for (int i = 0; i < kills; ++i) {
    SCOPED_TRACE(i);
    copy(origin, top);
    fs::remove_all(backup);
    // Twice: the second dies in taking up the first.
    for (int n = 1 + i % 2; n > 0; --n)
      killedApply(top, backup, static_cast<unsigned>(random() % static_cast<unsigned>(whole.count())));
    int halves[2] = {0, 0};
    for (const auto& [file, state] : stateOf(top, false)) {
      if (file.find(".zervo-") != std::string::npos) continue;  // beside the file, not it
      const std::string before = bytes.contains(file) ? bytes.at(file) : std::string();
      ASSERT_TRUE(state == before || state == undisturbed.at(file)) << file << " is neither";
      ++halves[state == before && state != undisturbed.at(file) ? 0 : 1];
    }
    amidst += halves[0] > 0 && base::folderExists(backup) ? 1 : 0;
    if (i % 3 == 0 && !base::folderExists(backup)) continue;
    if (i % 3 != 0) {
      applied(top, backup, 2);
      ASSERT_EQ(stateOf(top, false), undisturbed);
      if (i % 3 == 1) continue;
    }
    try {
      restored(backup);
    } catch (const base::Error&) {
      // Killed before the backup had begun.
      base::finishInterruptedWrites();
    }
    ASSERT_EQ(stateOf(top), old);
  }
  EXPECT_GT(amidst, kills / 5) << "most kills came too early or too late";
  unsetenv("XDG_STATE_HOME");
}

TEST(Site, ListsGlobsAndProjects) {
  EXPECT_TRUE(site::fits("*.HTM", "a/b/x.htm"));
  EXPECT_FALSE(site::fits("a/*.htm", "a/b/x.htm"));
  EXPECT_TRUE(site::fits("a/**", "a/b/x.htm"));
  EXPECT_TRUE(site::fits("**/x.?tm", "x.გtm"));
  EXPECT_FALSE(site::fits("b*", "a/b/x.htm"));
  const tests::TempFolder folder;
  const std::string top = folder.path() + "/site";
  makeSite(top, 5);
  put(folder.path(), "secret.html", kPage);
  const auto names = [](const site::Options& options) {
    std::string all;
    for (const site::ListedFile& file : site::filesOf(options).files)
      all += file.file + (file.note != site::Note::None ? "!" : "") +
             (file.kind == site::FileKind::Other ? "- " : " ");
    return all;
  };
  site::Options options = optionsFor(top);
  options.include = {"*.htm", "*.css"};
  options.exclude = {"part?"};
  EXPECT_EQ(names(options), "a.js- keyboard.htm picture.gif- right.txt- მთავარი.html- css/a.css ");
  options = optionsFor(top);
  options.list = {"./a.js", top + "/keyboard.htm", "../secret.html", "gone.html", "a.js"};
  EXPECT_EQ(names(options), "../secret.html!- gone.html! keyboard.htm a.js ");
  put(top, "p.WEB", "keyboard.htm\r\n..\\secret.html\r\n\r\npart1\\page1.html\r\nSTOPF=x\r\na.js\r\n");
  EXPECT_EQ(names(optionsFor(top + "/p.WEB")), "../secret.html!- keyboard.htm part1/page1.html ");
}

TEST(Site, AReportShowsHostileNamesAndTextsAsTheyAre) {
  site::FileResult result;
  result.file = "<script>alert(1)</script>\"'.html";
  result.kind = site::FileKind::Html;
  result.form = convert::Form::Legacy;
  result.changes = true;
  result.changeCount = 2;
  result.uncertainCount = 1;
  result.differences.push_back({7, convert::ChangeKind::Letters, convert::Place::Text, convert::Form::Legacy,
                                convert::Reason::Letters, 90, true, "</table><img onerror=x>", "გ"});
  site::FileResult calm = result;
  calm.file = "a.html";
  calm.uncertainCount = 0;
  site::Report report;
  report.add(calm);
  const auto again = site::resultOf(site::lineOf(result));
  ASSERT_TRUE(again);
  EXPECT_EQ(site::lineOf(*again), site::lineOf(result));
  report.add(*again);
  report.add(*again);
  std::string page;
  report.write([&](std::string_view bytes) { page += bytes; });
  EXPECT_EQ(page.find("<script>alert"), std::string::npos);
  EXPECT_EQ(page.find("<img"), std::string::npos);
  const std::size_t name = page.find("&lt;script&gt;alert(1)&lt;/script&gt;&quot;&#39;.html");
  EXPECT_LT(name, page.find("a.html")) << "the uncertain one comes first";
  EXPECT_EQ(page.find("&lt;script&gt;alert", name + 1), std::string::npos) << "twice is once";
}

}  // namespace
