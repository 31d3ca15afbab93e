// Measures the real program beside a bare window with the same control in it: zervo-measure ZERVO.EXE
// [start|commands|opening|typing|memory]. The bare one is this program, started with --bare [FILE].
#include <windows.h>
// windows.h first
#include <Scintilla.h>
#include <psapi.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "resources/ids.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRuns = 11;
constexpr std::size_t kMegabyte = 1U << 20U;
constexpr double kPatience = 120'000;  // ms

double since(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

double timed(const std::function<void()>& work) {
  const auto begin = Clock::now();
  work();
  return since(begin);
}

double median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

// The bare window
// ----------------------------------------------------------------------------------------------------

HWND bareControl(HWND parent) {
  return CreateWindowW(L"Scintilla", L"", WS_CHILD | WS_VISIBLE, 0, 0, 600, 400, parent,
                       reinterpret_cast<HMENU>(static_cast<INT_PTR>(IDC_FrmH_T1)), nullptr, nullptr);
}

HWND bareWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"FrmH";
  RegisterClassW(&windowClass);
  Scintilla_RegisterClasses(windowClass.hInstance);
  const HWND window = CreateWindowW(L"FrmH", L"bare", WS_OVERLAPPEDWINDOW, 0, 0, 640, 480, nullptr, nullptr,
                                    windowClass.hInstance, nullptr);
  SendMessageW(bareControl(window), SCI_SETCODEPAGE, 0, 0);
  ShowWindow(window, SW_SHOW);
  return window;
}

void give(HWND control, const std::string& text) {
  SendMessageW(control, SCI_SETUNDOCOLLECTION, 0, 0);
  SendMessageW(control, SCI_ALLOCATE, text.size(), 0);
  SendMessageW(control, SCI_APPENDTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  SendMessageW(control, SCI_SETUNDOCOLLECTION, 1, 0);
}

int runBare(const wchar_t* file) {
  const HWND window = bareWindow();
  if (file != nullptr) {
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    give(GetDlgItem(window, IDC_FrmH_T1), {std::istreambuf_iterator<char>(in), {}});
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

// Programs under measure
// ---------------------------------------------------------------------------------------------

struct Search {
  DWORD process;
  HWND found;
};

BOOL CALLBACK isShown(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  std::array<wchar_t, 16> name{};
  GetWindowThreadProcessId(window, &process);
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (process != search.process || std::wstring(name.data()) != L"FrmH" || IsWindowVisible(window) == 0)
    return TRUE;
  search.found = window;
  return FALSE;
}

class Running {
 public:
  Running(const std::wstring& program, const std::wstring& arguments) {
    std::wstring line = L"\"" + program + L"\" " + arguments;
    STARTUPINFOW info{};
    info.cb = sizeof info;
    const auto begin = Clock::now();
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info,
                       &process_) == 0)
      throw std::runtime_error("the program cannot be started");
    Search search{process_.dwProcessId, nullptr};
    await(
        [&] {
          EnumWindows(isShown, reinterpret_cast<LPARAM>(&search));
          return search.found != nullptr;
        },
        2);
    window_ = search.found;
    shownAfter = since(begin);
    begin_ = begin;
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() {
    TerminateProcess(process_.hProcess, 0);
    WaitForSingleObject(process_.hProcess, INFINITE);
    CloseHandle(process_.hThread);
    CloseHandle(process_.hProcess);
  }

  HWND window() const { return window_; }
  LRESULT send(UINT message, WPARAM first = 0, LPARAM second = 0) const {
    return SendMessageW(GetDlgItem(window_, IDC_FrmH_T1), message, first, second);
  }
  void command(int id) const { SendMessageW(window_, WM_COMMAND, static_cast<WPARAM>(id), 0); }
  std::size_t length() const { return static_cast<std::size_t>(send(SCI_GETLENGTH)); }
  SIZE viewSize() const {
    RECT area;
    GetWindowRect(GetDlgItem(window_, IDC_FrmH_T1), &area);
    return {area.right - area.left, area.bottom - area.top};
  }
  void paint() const { send(WM_PAINT); }

  // From the start until a text of so many bytes is there and painted.
  double opened(std::size_t size) const {
    await([&] { return length() == size; }, 5);
    paint();
    return since(begin_);
  }
  PROCESS_MEMORY_COUNTERS memory() const {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(process_.hProcess, &counters, sizeof counters);
    return counters;
  }

  static void await(const std::function<bool()>& condition, DWORD pause) {
    const auto begin = Clock::now();
    while (!condition()) {
      if (since(begin) > kPatience) throw std::runtime_error("waited in vain");
      Sleep(pause);
    }
  }

  double shownAfter = 0;  // ms

 private:
  PROCESS_INFORMATION process_{};
  HWND window_ = nullptr;
  Clock::time_point begin_;
};

// A file of lines, gone with the object.
class Page {
 public:
  // Letters in lines of a page, or (lines = false) in one.
  explicit Page(std::size_t megabytes, bool lines = true)
      : path_(std::filesystem::temp_directory_path() /
              (L"zervo-measure-" + std::to_wstring(megabytes) + L".txt")) {
    while (text.size() < megabytes * kMegabyte) {
      text += "<P CLASS=\"x\">vefxistyaosani rustaveli gvedi da vaji</P>";
      if (lines) text += "\r\n";
    }
    std::ofstream(path_, std::ios::binary) << text;
  }
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  ~Page() { std::filesystem::remove(path_); }
  std::wstring argument() const { return L"\"" + path_.wstring() + L"\""; }
  std::uintmax_t sizeOnDisk() const {
    std::error_code none;
    return std::filesystem::file_size(path_, none);
  }

  std::string text;

 private:
  std::filesystem::path path_;
};

struct Programs {
  std::wstring zervo;
  std::wstring self;
  Running startZervo(const std::wstring& arguments = L"") const { return {zervo, arguments}; }
  Running startBare(const std::wstring& arguments = L"") const { return {self, L"--bare " + arguments}; }
};

// What is measured
// ---------------------------------------------------------------------------------------------------

void measureStart(const Programs& programs) {
  std::vector<double> zervo, bare;
  for (int i = 0; i < kRuns; ++i) {
    bare.push_back(programs.startBare().shownAfter);
    zervo.push_back(programs.startZervo().shownAfter);
  }
  const auto best = [](const std::vector<double>& times) {
    return *std::min_element(times.begin(), times.end());
  };
  std::printf("start to a visible window, median of %d: Zervo %.0f ms, bare %.0f ms: %.2f times", kRuns,
              median(zervo), median(bare), median(zervo) / median(bare));
  std::printf("; at best %.0f and %.0f ms: %.2f times\n", best(zervo), best(bare), best(zervo) / best(bare));
}

// As Zervo's mnuUTF8 leaves the text, for the control to take by itself.
std::string lettersTripled(const std::string& text) {
  std::string result;
  for (const char c : text) {
    if (c >= 'a' && c <= 'z') {
      result += "\xE1\x83";
      result += static_cast<char>(0x90 + (c - 'a'));
    } else {
      result += c;
    }
  }
  return result;
}

double bareReplace(HWND window, SIZE size, const std::string& from, const std::string& to) {
  const HWND control = GetDlgItem(window, IDC_FrmH_T1);
  MoveWindow(window, 0, 0, size.cx + 50, size.cy + 50, TRUE);
  MoveWindow(control, 0, 0, size.cx, size.cy, TRUE);
  SendMessageW(control, SCI_CLEARALL, 0, 0);
  give(control, from);
  SendMessageW(control, WM_PAINT, 0, 0);
  SendMessageW(control, SCI_EMPTYUNDOBUFFER, 0, 0);
  return timed([&] {
    SendMessageW(control, SCI_SETTARGETRANGE, 0, static_cast<LPARAM>(from.size()));
    SendMessageW(control, SCI_REPLACETARGET, to.size(), reinterpret_cast<LPARAM>(to.data()));
    SendMessageW(control, WM_PAINT, 0, 0);
  });
}

void measureCommands(const Programs& programs, HWND bare) {
  for (const std::size_t megabytes : {1U, 10U}) {
    const Page page(megabytes);
    const Running zervo = programs.startZervo(page.argument());
    zervo.opened(page.text.size());
    std::vector<double> commands, replaces, colours;
    for (int i = 0; i < kRuns; ++i) {
      commands.push_back(timed([&] {
        zervo.command(mnuUTF8);
        zervo.paint();
      }));
      if (zervo.length() == page.text.size()) throw std::runtime_error("nothing was converted");
      zervo.command(mnuUndo);
      zervo.send(SCI_GOTOPOS, 0);
      zervo.paint();
      replaces.push_back(bareReplace(bare, zervo.viewSize(), page.text, lettersTripled(page.text)));
      colours.push_back(timed([&] {
        zervo.send(WM_KEYUP, VK_F12, 1);
        zervo.paint();
      }));
      zervo.send(WM_KEYDOWN, VK_SHIFT, 1);
    }
    std::printf("%2u MB: mnuUTF8 %.1f ms, the control's own replace %.1f ms: %.2f times; F12 %.1f ms\n",
                static_cast<unsigned>(megabytes), median(commands), median(replaces),
                median(commands) / median(replaces), median(colours));
  }
}

void measureOpening(const Programs& programs) {
  for (const auto& [megabytes, lines] : {std::pair{1U, true}, {10U, true}, {100U, true}, {5U, false}}) {
    const Page page(megabytes, lines);
    const double bare = programs.startBare(page.argument()).opened(page.text.size());
    const double zervo = programs.startZervo(page.argument()).opened(page.text.size());
    std::printf("%3u MB%s, from the start until painted: Zervo %.0f ms, bare %.0f ms\n", megabytes,
                lines ? "" : " in one line", zervo, bare);
  }
}

void measureTyping(const Programs& programs) {
  const Page page(10);
  const auto measure = [&](const char* name, const Running& program) {
    program.opened(page.text.size());
    std::printf("a letter in 10 MB, %s:", name);
    for (const double part : {0.0, 0.5, 1.0}) {
      program.send(SCI_GOTOPOS, static_cast<WPARAM>(part * static_cast<double>(page.text.size())));
      program.paint();
      std::vector<double> times;
      for (int i = 0; i < 3 * kRuns; ++i) {
        times.push_back(timed([&] {
          program.send(WM_CHAR, L'a', 1);
          program.paint();
        }));
      }
      std::printf(" at %.1f %.2f ms (at worst %.2f)", part, median(times),
                  *std::max_element(times.begin(), times.end()));
    }
    std::printf("\n");
  };
  measure("Zervo", programs.startZervo(page.argument()));
  measure("bare", programs.startBare(page.argument()));
}

void measureMemory(const Programs& programs) {
  for (const auto& [command, name] : {std::pair{mnuTkod, "mnuTkod"}, {mnuUTF8, "mnuUTF8"}}) {
    const Page page(100);
    const Running zervo = programs.startZervo(page.argument());
    const auto report = [&](const char* after, double milliseconds) {
      const PROCESS_MEMORY_COUNTERS memory = zervo.memory();
      std::printf("100 MB %s: %.0f ms, memory %u MB, at most %u MB\n", after, milliseconds,
                  static_cast<unsigned>(memory.WorkingSetSize / kMegabyte),
                  static_cast<unsigned>(memory.PeakWorkingSetSize / kMegabyte));
    };
    report("opened", zervo.opened(page.text.size()));
    const auto lines = zervo.send(SCI_GETLINECOUNT);
    report("scrolled, 20 places", timed([&] {
             for (int i = 0; i <= 20; ++i) {
               zervo.send(SCI_SETFIRSTVISIBLELINE, static_cast<WPARAM>(lines / 20 * i));
               zervo.paint();
             }
           }));
    std::uintmax_t saved = 0;
    // A box in the way would be waited for without end.
    PostMessageW(zervo.window(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    const double converted = timed([&] {
      Sleep(50);
      zervo.paint();
    });
    if (IsWindowEnabled(zervo.window()) == 0) {
      std::printf("100 MB %s: refused in a box\n", name);
      continue;
    }
    report(name, converted);
    const double save = timed([&] {
      zervo.command(mnuSave);
      Running::await([&] { return (saved = page.sizeOnDisk()) == zervo.length(); }, 20);
    });
    report("saved", save);
  }
}

}  // namespace

int wmain(int count, wchar_t** words) try {
  if (count >= 2 && std::wstring(words[1]) == L"--bare") return runBare(count > 2 ? words[2] : nullptr);
  if (count < 2) throw std::runtime_error("zervo-measure ZERVO.EXE [WHAT]");
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  std::wstring self(MAX_PATH, L'\0');
  self.resize(GetModuleFileNameW(nullptr, self.data(), MAX_PATH));
  const Programs programs{words[1], self};
  const auto wanted = [&](const wchar_t* what) { return count == 2 || std::wstring(words[2]) == what; };
  if (wanted(L"start")) measureStart(programs);
  if (wanted(L"commands")) {
    const HWND bare = bareWindow();
    measureCommands(programs, bare);
    DestroyWindow(bare);
  }
  if (wanted(L"opening")) measureOpening(programs);
  if (wanted(L"typing")) measureTyping(programs);
  if (wanted(L"memory")) measureMemory(programs);
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s\n", error.what());
  return 1;
}
