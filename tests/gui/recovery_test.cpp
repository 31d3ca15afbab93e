// The program is killed while the user works, and started again.
#include <array>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <random>
#include <set>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

// When to kill: in the time that the first round was seen to take, or a little later.
class Moments {
 public:
  // Until the file is another one. Asked without opening it, which would be in the way.
  void learn(const std::filesystem::path& file) {
    const auto look = [&file] {
      WIN32_FILE_ATTRIBUTE_DATA data{};
      GetFileAttributesExW(file.c_str(), GetFileExInfoStandard, &data);
      return std::array{data.nFileSizeLow, data.ftLastWriteTime.dwLowDateTime};
    };
    const auto before = look();
    const auto start = std::chrono::steady_clock::now();
    while (look() == before || look()[1] == 0) {
      if (std::chrono::steady_clock::now() - start > std::chrono::seconds(30)) throw Failure("no write");
    }
    takes_ = std::chrono::steady_clock::now() - start;
  }
  // Without sleeping, which could not be that short.
  void wait() {
    const auto end = std::chrono::steady_clock::now() + takes_ * (random_() % 1000) / 800;
    while (std::chrono::steady_clock::now() < end) {
    }
  }

 private:
  std::chrono::steady_clock::duration takes_{};
  std::mt19937 random_{19};
};

class Killed : public Session {
 protected:
  // As many as the environment says.
  static int rounds() {
    const char* const wanted = std::getenv("ZERVO_KILLS");
    return wanted == nullptr ? 20 : std::atoi(wanted);
  }
  static void takeBack() {
    const HWND form = shownForm(L"frmrecovery");
    press(form, IDC_frmrecovery_COK);
    waitFor("the offer to go", [&] { return !IsWindow(form); });
  }
  static void allow(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    waitFor("the time", [&] { return GetTickCount() - start >= milliseconds; });
  }
};

// Never more than the last two seconds are lost, whenever it is; and the file is what it was.
TEST_F(Killed, WhileTypingLosesTheLastTwoSecondsAtMost) {
  const std::string page = "<P>\r\n</P>\r\n";
  const auto path = file(L"page.html", page);
  std::mt19937 random(18);
  std::string typed;
  DWORD longest = 0;  // milliseconds from the first letter that was lost to the kill
  std::optional<Zervo> zervo(std::in_place, folder / L"Zervo.exe", L"\"" + path.wstring() + L"\"");
  zervo->waitForText(page);
  for (int round = 0; round < rounds(); ++round) {
    SCOPED_TRACE(round);
    zervo->select(0, 0);
    std::vector<std::pair<DWORD, std::size_t>> when;  // how much had been typed, and when
    std::string added;
    const DWORD end = GetTickCount() + 500 + random() % 2500;
    while (GetTickCount() < end) {
      for (unsigned i = 0; i <= random() % 4; ++i) {
        const auto letter = static_cast<char>('a' + random() % 26);
        zervo->type(static_cast<wchar_t>(letter));
        added += letter;
      }
      when.emplace_back(GetTickCount(), added.size());
      Sleep(10 + random() % 60);
    }
    const DWORD killed = GetTickCount();
    zervo.reset();
    zervo.emplace(folder / L"Zervo.exe", L"");
    std::size_t least = 0;
    for (const auto& [time, size] : when) {
      if (killed - time >= 2000) least = size;
    }
    // With nothing kept yet there is nothing to offer.
    if (least == 0 && typed.empty()) {
      if (FindWindowW(L"frmrecovery", nullptr) == nullptr) allow(1000);
      if (FindWindowW(L"frmrecovery", nullptr) == nullptr) continue;
    }
    takeBack();
    const std::string text = zervo->text();
    ASSERT_TRUE(text.ends_with(typed + page)) << text;
    const std::string kept = text.substr(0, text.size() - typed.size() - page.size());
    EXPECT_GE(kept.size(), least);
    for (const auto& [time, size] : when) {
      if (size <= kept.size()) continue;
      longest = std::max(longest, killed - time);
      break;
    }
    EXPECT_EQ(kept, added.substr(0, kept.size()));
    typed = kept + typed;
    ASSERT_EQ(readBytes(path), page);
  }
  zervo->command(mnuSave);
  waitFor("the saved page", [&] { return readBytes(path) == typed + page; });
  zervo->waitUntilFree();
  leave(*zervo);
  EXPECT_TRUE(std::filesystem::is_empty(folder / L"Recovery"));
  std::printf("lost at most the last %lu ms\n", longest);
}

// The file is whole old or whole new after the next start, and nothing else lies in its folder.
TEST_F(Killed, WhileSavingLeavesTheFileWholeOldOrWholeNew) {
  const auto pages = folder / L"pages";
  std::filesystem::create_directory(pages);
  const auto path = pages / L"page.txt";
  std::string before(300'000, 'o');
  writeBytes(path, before);
  Moments moments;
  int saved = 0;
  for (int round = 0; round < rounds(); ++round) {
    SCOPED_TRACE(round);
    std::optional<Zervo> zervo(open({path}));
    zervo->waitForText(before);
    zervo->waitUntilFree();
    const auto letter = static_cast<wchar_t>(L'a' + round % 26);
    zervo->type(letter);
    const std::string after = static_cast<char>(letter) + before;
    zervo->waitForText(after);
    zervo->waitUntilFree();
    zervo->command(mnuSave);
    if (round == 0) {
      moments.learn(path);
    } else {
      moments.wait();
    }
    zervo.reset();
    open();  // what the start does is done when the window is there
    const std::string now = readBytes(path);
    ASSERT_TRUE(now == before || now == after) << now.size();
    ASSERT_EQ(std::distance(std::filesystem::directory_iterator(pages), {}), 1);
    saved += now == after ? 1 : 0;
    before = now;
    std::filesystem::remove_all(folder / L"Recovery");
  }
  std::printf("%d of %d saves were done\n", saved, rounds());
}

// What the user does, up to the click that writes, and the file that it changes.
struct SmallFile {
  std::wstring name;
  std::string before;
  std::function<void(const Zervo&)> write;
  std::string after{};  // found out in the first round of each
  int rounds = 0, written = 0;
  Moments moments{};
};

TEST_F(Killed, WhileSmallFilesAreWrittenEachIsWholeOldOrWholeNew) {
  const auto one = file(L"one.html", "one"), two = file(L"two.html", "two");
  const std::string settings = readBytes(builtProgram().parent_path() / L"props.ini");
  std::vector<SmallFile> files;
  files.push_back({L"props.ini", settings, [](const Zervo& zervo) {
                     zervo.command(mnuproperties);
                     const HWND form = shownForm(L"frmproperties");
                     fill(form, IDC_frmproperties_Tsize, L"17");
                     press(form, IDC_frmproperties_Capply);
                   }});
  files.push_back({L"recentF.ini", utf8(one.wstring()) + "\r\n" + utf8(two.wstring()) + "\r\n",
                   [](const Zervo& zervo) { zervo.command(mnurecent1 + 1); }});
  files.push_back({L"FTP.ini", "A\x01h\x01u\x01\x01/", [](const Zervo& zervo) {
                     zervo.command(mnuupload);
                     const HWND form = shownForm(L"frmupload");
                     SendMessageW(GetDlgItem(form, IDC_frmupload_Command4), BM_CLICK, 0, 0);
                     SendMessageW(GetDlgItem(form, IDC_frmupload_Command2), BM_CLICK, 0, 0);
                     fill(form, IDC_frmupload_Text2, L"second");
                     press(form, IDC_frmupload_Command2 + 1);
                   }});
  files.push_back({L"formats.TFF", std::string("\0\0\1\0T\6\0X<\xA7$\xA7>", 13), [](const Zervo& zervo) {
                     zervo.command(mnutempformat);
                     const HWND form = shownForm(L"frmtempformat");
                     fill(form, IDC_frmtempformat_Tsaxeli, L"second");
                     fill(form, IDC_frmtempformat_Tfor, L"<B>");
                     press(form, IDC_frmtempformat_Cadd);
                   }});
  files.push_back({L"site.WEB", "one.html\r\ntwo.html\r\nSTOPF=one.html\r\n", [](const Zervo& zervo) {
                     zervo.waitForText("one");
                     zervo.clickNode("two.html");
                     zervo.waitForText("two");
                     zervo.waitUntilFree();
                     zervo.command(mnuSaveWEB);
                   }});
  std::set<std::wstring> names = {L"Zervo.exe", L"Recovery", L"one.html", L"two.html"};
  for (const SmallFile& small : files) names.insert(small.name);
  const auto wanted = std::max(rounds(), static_cast<int>(files.size()));
  for (int round = 0; round < wanted; ++round) {
    SCOPED_TRACE(round);
    SmallFile& small = files[static_cast<std::size_t>(round) % files.size()];
    for (const SmallFile& other : files) file(other.name, other.before);
    const bool project = small.name.ends_with(L".WEB");
    std::optional<Zervo> zervo(project ? open({folder / small.name}) : open());
    zervo->waitUntilFree();
    small.write(*zervo);
    const auto path = folder / small.name;
    if (small.rounds++ == 0) {
      small.moments.learn(path);
      small.after = readBytes(path);
    } else {
      small.moments.wait();
    }
    zervo.reset();
    open();
    for (const SmallFile& each : files) {
      const std::string now = readBytes(folder / each.name);
      const bool opened = project && each.name == L"recentF.ini";  // the project is a recent file
      ASSERT_TRUE(now == each.before || (&each == &small && now == each.after) || opened) << utf8(each.name);
      if (&each == &small && now == each.after) ++small.written;
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder.path)) {
      ASSERT_TRUE(names.contains(entry.path().filename().wstring())) << utf8(entry.path().wstring());
    }
    std::filesystem::remove_all(folder / L"Recovery");
  }
  for (const SmallFile& small : files) {
    std::printf("%s: %d of %d writes were done\n", utf8(small.name).c_str(), small.written, small.rounds);
  }
}

// A large page is kept by what changes; nobody waits for it. Untitled ones come back, too.
TEST_F(Killed, ALargePageIsKeptWhileTypingGoesOn) {
  std::string page;
  while (page.size() < 20'000'000)
    page += "<P>a line of a large page, which is copied piece by piece</P>\r\n";
  const auto path = file(L"large.html", page);
  std::optional<Zervo> zervo(open({path}));
  zervo->waitForText(page);
  zervo->select(0, 0);
  const HWND T1 = zervo->control(IDC_FrmH_T1);
  constexpr int kKeys = 100;
  // Milliseconds of the longest key, while the page is copied and, as a yardstick, afterwards.
  const auto slowest = [&] {
    LARGE_INTEGER frequency, before, after;
    QueryPerformanceFrequency(&frequency);
    double worst = 0;
    for (int i = 0; i < kKeys; ++i) {
      QueryPerformanceCounter(&before);
      SendMessageW(T1, WM_CHAR, L'x', 1);
      QueryPerformanceCounter(&after);
      const auto ticks = static_cast<double>(after.QuadPart - before.QuadPart);
      if (i > 0) worst = std::max(worst, ticks * 1000 / static_cast<double>(frequency.QuadPart));
      Sleep(15);
    }
    return worst;
  };
  const double copying = slowest();
  allow(2000);
  const double copied = slowest();
  std::printf("longest key of %d: %.1f ms while 20 MB are copied, %.1f ms afterwards\n", kKeys, copying,
              copied);
  allow(2000);
  zervo->command(mnunewT);
  zervo->waitForText("");
  for (const wchar_t key : {L'n', L'e', L'w'}) zervo->type(key);
  zervo->waitForText("new");
  allow(2000);
  zervo.reset();
  zervo.emplace(folder / L"Zervo.exe", L"");
  takeBack();
  zervo->waitForText("new");
  zervo->clickNode("large.html");
  zervo->waitForText(std::string(2 * kKeys, 'x') + page);
}

}  // namespace
}  // namespace gui
