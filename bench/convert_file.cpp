// Converts a file into another one, as a process of its own, to be timed beside iconv.
//   convert_file text PAIR SIZE OUT    the made-up page in the form that the pair reads
//   convert_file one-pass PAIR IN OUT
//   convert_file by-entry PAIR IN OUT
#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_text.h"
#include "tests/support/entry_by_entry.h"

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File open(const char* path, const char* mode) {
  File file(std::fopen(path, mode));
  if (!file) throw std::runtime_error(std::string("cannot open ") + path);
  std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

void write(std::FILE* file, std::string_view bytes) {
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size())
    throw std::runtime_error("cannot write");
}

// No letter of any table holds a line end, so whole lines can be converted one block after another.
void convertLines(const convert::Replacement& by, std::FILE* in, std::FILE* out) {
  constexpr std::size_t kBlock = std::size_t{128} * 1024;
  std::string block;
  std::string converted;
  std::size_t kept = 0;
  for (bool more = true; more;) {
    block.resize(kept + kBlock);
    const std::size_t read = std::fread(block.data() + kept, 1, kBlock, in);
    block.resize(kept + read);
    more = read == kBlock;
    const std::size_t lineEnd = more ? block.rfind('\n') : block.size() - 1;
    const std::size_t whole = lineEnd + 1;  // npos + 1: no line end yet, nothing is whole
    converted.clear();
    by.append(std::string_view(block).substr(0, whole), converted);
    write(out, converted);
    block.erase(0, whole);
    kept = block.size();
  }
}

int run(const std::vector<std::string>& words) {
  if (words.size() != 4) throw std::runtime_error("see the head of convert_file.cpp");
  const convert::LetterTables tables = bench::letterTables();
  const bench::Pair& pair = bench::pairNamed(words[1]);
  const File out = open(words[3].c_str(), "wb");
  if (words[0] == "text") {
    write(out.get(), bench::sourceOf(pair, tables, std::stoul(words[2])));
  } else if (words[0] == "one-pass") {
    convertLines(convert::Replacement(tables.*pair.from, tables.*pair.to), open(words[2].c_str(), "rb").get(),
                 out.get());
  } else {
    write(out.get(), tests::entryByEntry(bench::readAll(words[2]), tables.*pair.from, tables.*pair.to));
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(std::vector<std::string>(argv + 1, argv + argc));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
