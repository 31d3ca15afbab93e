// The entry of zervo-cli.exe.
#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli.h"
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

}  // namespace

int wmain(int count, wchar_t** words) {
  const Utf8Console console;
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(utf8(words[i]));
  return cli::run(arguments, {stdin, stdout, stderr});
}
