// Measures the real program beside bare Win32: zervo-measure ZERVO.EXE. Start to a visible window, and a
// whole-text command on 1 MB beside what the edit control itself needs to take and give such a text.
#include <richedit.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "resources/ids.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr int kRuns = 5;
constexpr std::size_t kTextSize = 1U << 20U;

double since(Clock::time_point start) {
  return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

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

struct Started {
  PROCESS_INFORMATION process;
  HWND window;
  double milliseconds;
};

Started start(std::wstring commandLine) {
  Started started{};
  STARTUPINFOW info{};
  info.cb = sizeof info;
  const auto begin = Clock::now();
  if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &info,
                     &started.process) == FALSE) {
    throw std::runtime_error("the program cannot be started");
  }
  Search search{started.process.dwProcessId, nullptr};
  while (search.found == nullptr) {
    EnumWindows(isShown, reinterpret_cast<LPARAM>(&search));
    if (since(begin) > 60000) throw std::runtime_error("no window came");
    Sleep(2);
  }
  started.window = search.found;
  started.milliseconds = since(begin);
  return started;
}

void stop(const Started& started) {
  TerminateProcess(started.process.hProcess, 0);
  WaitForSingleObject(started.process.hProcess, INFINITE);
  CloseHandle(started.process.hThread);
  CloseHandle(started.process.hProcess);
}

double medianStart(const std::wstring& commandLine) {
  std::vector<double> times;
  for (int i = 0; i < kRuns; ++i) {
    const Started started = start(commandLine);
    times.push_back(started.milliseconds);
    stop(started);
  }
  std::sort(times.begin(), times.end());
  return times[kRuns / 2];
}

// The least that a window program does; started as a process of its own to be compared with.
int bareWindow() {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"FrmH";
  RegisterClassW(&windowClass);
  CreateWindowW(L"FrmH", L"bare", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 600, 400, nullptr, nullptr,
                windowClass.hInstance, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  return 0;
}

struct Stream {
  const char* at;
  std::size_t left;
};

DWORD CALLBACK readStream(DWORD_PTR cookie, LPBYTE buffer, LONG size, LONG* read) {
  auto& stream = *reinterpret_cast<Stream*>(cookie);
  const std::size_t count = std::min(stream.left, static_cast<std::size_t>(size));
  std::copy_n(stream.at, count, reinterpret_cast<char*>(buffer));
  stream.at += count;
  stream.left -= count;
  *read = static_cast<LONG>(count);
  return 0;
}

// A fresh control takes the text in one stream, and gives it back.
void measureControl(const std::wstring& text, double& set, double& get) {
  LoadLibraryW(L"msftedit.dll");
  const HWND edit = CreateWindowW(L"RICHEDIT50W", L"", ES_MULTILINE | WS_POPUP, 0, 0, 700, 500, nullptr,
                                  nullptr, nullptr, nullptr);
  SendMessageW(edit, EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
  Stream source{reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
  EDITSTREAM stream{reinterpret_cast<DWORD_PTR>(&source), 0, readStream};
  auto begin = Clock::now();
  SendMessageW(edit, EM_STREAMIN, SF_TEXT | SF_UNICODE, reinterpret_cast<LPARAM>(&stream));
  set = since(begin);
  std::wstring back(text.size() + 1, L'\0');
  GETTEXTEX wanted{static_cast<DWORD>(back.size() * sizeof(wchar_t)), GT_DEFAULT, 1200, nullptr, nullptr};
  begin = Clock::now();
  SendMessageW(edit, EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted), reinterpret_cast<LPARAM>(back.data()));
  get = since(begin);
  DestroyWindow(edit);
}

}  // namespace

int wmain(int count, wchar_t** words) try {
  if (count == 2 && std::wstring(words[1]) == L"--bare") return bareWindow();
  if (count != 2) throw std::runtime_error("zervo-measure ZERVO.EXE");
  const std::wstring zervo = L"\"" + std::wstring(words[1]) + L"\"";
  std::wstring self(MAX_PATH, L'\0');
  self.resize(GetModuleFileNameW(nullptr, self.data(), MAX_PATH));
  std::cout << "start to a visible window, median of " << kRuns << ": Zervo " << medianStart(zervo)
            << " ms, bare window " << medianStart(L"\"" + self + L"\" --bare") << " ms\n";

  // Letters that all become three bytes, in lines of 40.
  std::string text;
  while (text.size() < kTextSize) text += "vefxistyaosani rustaveli gvedi da vaji\r\n";
  const std::filesystem::path file = std::filesystem::temp_directory_path() / L"zervo-measure.txt";
  std::ofstream(file, std::ios::binary) << text;
  const Started program = start(zervo + L" \"" + file.wstring() + L"\"");
  // The window comes first, then the file.
  while (SendMessageW(GetDlgItem(program.window, IDC_FrmH_T1), WM_GETTEXTLENGTH, 0, 0) < 1000000) Sleep(20);
  const auto begin = Clock::now();
  SendMessageW(program.window, WM_COMMAND, mnuUTF8, 0);
  const double command = since(begin);
  stop(program);
  std::filesystem::remove(file);

  double set = 0, get = 0;
  std::wstring result;
  for (const char c : text)
    result += c >= 'a' && c <= 'z' ? std::wstring(L"\x00E1\x0192\x0090") : std::wstring(1, c);
  measureControl(result, set, get);
  std::cout << "mnuUTF8 on 1 MB: " << command << " ms; the edit control alone: set " << set << " ms, get "
            << get << " ms\n";
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
