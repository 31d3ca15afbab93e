#include "platform/win32/cli/command_line.h"

#include <fcntl.h>
#include <io.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/cli.h"
#include "cli/machine.h"
#include "platform/curl/curl_transport.h"
#include "platform/win32/system/strings.h"
#include "platform/win32/system/windows_api.h"

namespace win32 {
namespace {

// The console of the program that started this one, if it has one. A program with windows is not given it,
// and what it inherits of a console it can only use once it belongs to it. What is written there is UTF-8,
// which is put back afterwards.
class Console {
 public:
  Console() {
    if (AttachConsole(ATTACH_PARENT_PROCESS) == FALSE) return;
    attached_ = true;
    before_ = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    reopen(stdin, L"CONIN$", L"r");
    reopen(stdout, L"CONOUT$", L"w");
    reopen(stderr, L"CONOUT$", L"w");
  }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;
  ~Console() {
    std::fflush(stdout);
    if (attached_) SetConsoleOutputCP(before_);
  }

 private:
  // Files and pipes stay what they are.
  static void reopen(std::FILE* stream, const wchar_t* name, const wchar_t* mode) {
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    if (handle == INVALID_HANDLE_VALUE || GetFileType(handle) == FILE_TYPE_CHAR ||
        GetFileType(handle) == FILE_TYPE_UNKNOWN) {
      _wfreopen(name, mode, stream);
    }
  }

  bool attached_ = false;
  UINT before_ = 0;
};

std::optional<std::string> ask(const std::string& prompt, bool echo) {
  const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stdin)));
  DWORD before = 0;
  if (GetConsoleMode(console, &before) == FALSE) return std::nullopt;
  std::fputs(prompt.c_str(), stderr);
  SetConsoleMode(console, ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT | (echo ? ENABLE_ECHO_INPUT : 0U));
  std::wstring line;
  bool whole = false;
  std::array<wchar_t, 128> piece{};
  for (DWORD read = 0;
       !whole &&
       ReadConsoleW(console, piece.data(), static_cast<DWORD>(piece.size()), &read, nullptr) != FALSE &&
       read > 0;) {
    line.append(piece.data(), read);
    whole = line.ends_with(L'\n');
  }
  SetConsoleMode(console, before);
  if (!echo) std::fputc('\n', stderr);
  if (!whole) return std::nullopt;
  line.resize(line.find_first_of(L"\r\n"));
  return utf8FromWide(line);
}

}  // namespace

bool startedAsCommandLine() {
  return __argc > 1 && std::wstring_view(__wargv[1]) == kCommandLineWord;
}

int runCommandLine() {
  const Console console;
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  std::vector<std::string> words;
  for (int i = 2; i < __argc; ++i) words.push_back(utf8FromWide(__wargv[i]));
  cli::Machine machine;
  machine.connect = platform::makeCurlTransport;
  machine.ask = ask;
  if (const wchar_t* const password = _wgetenv(L"ZERVO_PASSWORD")) machine.password = utf8FromWide(password);
  return cli::run(words, {stdin, stdout, stderr}, machine);
}

}  // namespace win32
