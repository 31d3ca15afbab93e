// The entry of zervo-cli.
#include <cstdio>
#include <string>
#include <vector>

#include "cli/cli.h"

int main(int count, char** words) {
  const std::vector<std::string> arguments(words + 1, words + count);
  return cli::run(arguments, {stdin, stdout, stderr});
}
