// The program is killed while the user works, and started again.
#include <cstdlib>
#include <optional>
#include <random>

#include "tests/gui/fixture.h"

namespace gui {
namespace {

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
    EXPECT_EQ(kept, added.substr(0, kept.size()));
    typed = kept + typed;
    ASSERT_EQ(readBytes(path), page);
  }
  zervo->command(mnuSave);
  waitFor("the saved page", [&] { return readBytes(path) == typed + page; });
  zervo->waitUntilFree();
  leave(*zervo);
  EXPECT_TRUE(std::filesystem::is_empty(folder / L"Recovery"));
}

// The file is whole old or whole new after the next start, and nothing else lies in its folder.
TEST_F(Killed, WhileSavingLeavesTheFileWholeOldOrWholeNew) {
  const auto pages = folder / L"pages";
  std::filesystem::create_directory(pages);
  const auto path = pages / L"page.txt";
  std::string before(300'000, 'o');
  writeBytes(path, before);
  std::mt19937 random(19);
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
    zervo->command(mnuSave);
    Sleep(random() % 60);
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
