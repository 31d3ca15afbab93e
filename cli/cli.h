// zervo-cli: what the program knows of letters, without its window.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace cli {

struct Streams {
  std::FILE* in;
  std::FILE* out;
  std::FILE* err;
};

enum ExitCode : int {
  kDone = 0,
  kUncertain = 1,   // done, but texts were left because nobody knows what they are
  kUsage = 2,       // the words cannot be understood; nothing was done
  kNoReadWrite = 3  // a file cannot be read, is no page, or cannot be written
};

struct Machine;

// `arguments` are UTF-8, without the program's name. Throws nothing.
int run(const std::vector<std::string>& arguments, const Streams& streams, const Machine& machine);

}  // namespace cli
