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
  double worst = 0;
  LARGE_INTEGER frequency, before, after;
  QueryPerformanceFrequency(&frequency);
  constexpr int kKeys = 150;
  for (int i = 0; i < kKeys; ++i) {
    QueryPerformanceCounter(&before);
    SendMessageW(T1, WM_CHAR, L'x', 1);
    QueryPerformanceCounter(&after);
    if (i > 0)
      worst =
          std::max(worst, static_cast<double>(after.QuadPart - before.QuadPart) * 1000 / frequency.QuadPart);
    Sleep(20);
  }
  RecordProperty("worst_key_ms", static_cast<int>(worst));
  std::printf("worst key while 20 MB are kept: %.1f ms\n", worst);
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
  zervo->waitForText(std::string(kKeys, 'x') + page);
}

}  // namespace
}  // namespace gui
