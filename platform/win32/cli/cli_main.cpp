// zervo-cli.exe: starts Zervo.exe beside it as a command-line program. The rules are in there already, and a
// second copy of them would be a third of the download.
#include <cstdio>
#include <cwchar>
#include <initializer_list>

#include "platform/win32/cli/command_line.h"
#include "platform/win32/system/windows_api.h"

namespace {

constexpr int kCannotStart = 3;
// The longest path and the longest command line of Windows, with its NUL. Plain arrays: strings of the
// library would make this program ten times as large.
constexpr std::size_t kLongest = 32768;
wchar_t program[kLongest];
wchar_t line[kLongest];

// What stands behind the program's own name, exactly as it was given.
const wchar_t* ownWords() {
  const wchar_t* const all = GetCommandLineW();
  if (*all != L'"') return all + std::wcscspn(all, L" \t");
  const wchar_t* const quote = std::wcschr(all + 1, L'"');
  return quote == nullptr ? L"" : quote + 1;
}

bool add(const wchar_t* text) {
  const std::size_t used = std::wcslen(line);
  if (used + std::wcslen(text) >= kLongest) return false;
  std::wcscpy(line + used, text);
  return true;
}

int failed(const char* sentence) {
  std::fputs(sentence, stderr);
  return kCannotStart;
}

}  // namespace

int wmain() {
  constexpr const wchar_t* kProgram = L"Zervo.exe";
  if (GetModuleFileNameW(nullptr, program, kLongest) >= kLongest - std::wcslen(kProgram))
    return failed("zervo-cli: its own path is too long\n");
  std::wcscpy(std::wcsrchr(program, L'\\') + 1, kProgram);
  if (!add(L"\"") || !add(program) || !add(L"\" ") || !add(win32::kCommandLineWord) || !add(ownWords()))
    return failed("zervo-cli: the command line is too long\n");
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
  start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  for (const HANDLE stream : {start.hStdInput, start.hStdOutput, start.hStdError}) {
    SetHandleInformation(stream, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  }
  // Whoever ends this program ends both.
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  PROCESS_INFORMATION process{};
  if (CreateProcessW(program, line, nullptr, nullptr, TRUE, CREATE_SUSPENDED, nullptr, nullptr, &start,
                     &process) == FALSE) {
    return failed("zervo-cli: Zervo.exe cannot be started; it has to be in the same folder\n");
  }
  AssignProcessToJobObject(job, process.hProcess);
  ResumeThread(process.hThread);
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD code = kCannotStart;
  GetExitCodeProcess(process.hProcess, &code);
  return static_cast<int>(code);
}
