// The entry of zervo-cli.exe.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/machine.h"
#include "platform/curl/curl_transport.h"
#include "platform/win32/system/windows_api.h"

namespace {

std::string utf8(const wchar_t* wide) {
  const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
  std::string text(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
  text.resize(text.size() - 1);
  return text;
}

// What is written to a console is UTF-8, which is put back afterwards.
class Utf8Console {
 public:
  Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
  Utf8Console(const Utf8Console&) = delete;
  Utf8Console& operator=(const Utf8Console&) = delete;
  ~Utf8Console() { SetConsoleOutputCP(before_); }

 private:
  UINT before_ = GetConsoleOutputCP();
};

std::optional<std::string> ask(const std::string& prompt, bool echo) {
  const HANDLE console = GetStdHandle(STD_INPUT_HANDLE);
  DWORD before = 0;
  if (GetConsoleMode(console, &before) == FALSE) return std::nullopt;
  std::fputs(prompt.c_str(), stderr);
  SetConsoleMode(console, ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT | (echo ? ENABLE_ECHO_INPUT : 0U));
  std::wstring line;
  bool whole = false;
  wchar_t piece[128];
  for (DWORD read = 0; !whole && ReadConsoleW(console, piece, 128, &read, nullptr) != FALSE && read > 0;) {
    line.append(piece, read);
    whole = line.ends_with(L'\n');
  }
  SetConsoleMode(console, before);
  if (!echo) std::fputc('\n', stderr);
  if (!whole) return std::nullopt;
  line.resize(line.find_first_of(L"\r\n"));
  return utf8(line.c_str());
}

}  // namespace

int wmain(int count, wchar_t** words) {
  const Utf8Console console;
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(utf8(words[i]));
  cli::Machine machine;
  machine.connect = platform::makeCurlTransport;
  machine.ask = ask;
  if (const wchar_t* const password = _wgetenv(L"ZERVO_PASSWORD")) machine.password = utf8(password);
  return cli::run(arguments, {stdin, stdout, stderr}, machine);
}
