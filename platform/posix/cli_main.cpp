// The entry of zervo-cli.
#include <termios.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/machine.h"
#include "platform/curl/curl_transport.h"

namespace {

std::optional<std::string> ask(const std::string& prompt, bool echo) {
  if (isatty(STDIN_FILENO) == 0) return std::nullopt;
  std::fputs(prompt.c_str(), stderr);
  termios before{};
  tcgetattr(STDIN_FILENO, &before);
  termios hidden = before;
  if (!echo) hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  std::string line;
  int c = std::getchar();
  for (; c != EOF && c != '\n'; c = std::getchar()) line += static_cast<char>(c);
  tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
  if (!echo) std::fputc('\n', stderr);
  if (c == EOF) return std::nullopt;
  return line;
}

}  // namespace

int main(int count, char** words) {
  const std::vector<std::string> arguments(words + 1, words + count);
  cli::Machine machine;
  machine.connect = platform::makeCurlTransport;
  machine.ask = ask;
  if (const char* const password = std::getenv("ZERVO_PASSWORD")) machine.password = password;
  return cli::run(arguments, {stdin, stdout, stderr}, machine);
}
