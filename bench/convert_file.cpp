// Converts a file into another one, as a process of its own, to be timed beside iconv.
//   convert_file text PAIR SIZE OUT    the made-up page in the form that the pair reads
//   convert_file one-pass PAIR IN OUT
//   convert_file by-entry PAIR IN OUT
#include <sys/mman.h>
#include <sys/stat.h>

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

// A whole file in memory, as iconv has it.
class Mapped {
 public:
  explicit Mapped(const char* path) : file_(open(path, "rb")) {
    struct stat state {};
    if (fstat(fileno(file_.get()), &state) != 0) throw std::runtime_error("cannot read");
    size_ = static_cast<std::size_t>(state.st_size);
    bytes_ = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE | MAP_POPULATE, fileno(file_.get()), 0);
    if (bytes_ == MAP_FAILED) throw std::runtime_error("cannot map");
  }
  Mapped(const Mapped&) = delete;
  Mapped& operator=(const Mapped&) = delete;
  ~Mapped() { munmap(bytes_, size_); }

  std::string_view text() const { return {static_cast<const char*>(bytes_), size_}; }

 private:
  File file_;
  std::size_t size_ = 0;
  void* bytes_ = nullptr;
};

// No letter of any table holds a line end, so whole lines can be converted one block after another.
void convertLines(const convert::Replacement& by, std::string_view text, std::FILE* out) {
  constexpr std::size_t kBlock = std::size_t{128} * 1024;
  std::string converted;
  while (!text.empty()) {
    const std::size_t lineEnd = text.find('\n', kBlock);
    const std::string_view block = text.substr(0, lineEnd == std::string_view::npos ? lineEnd : lineEnd + 1);
    converted.clear();
    by.append(block, converted);
    write(out, converted);
    text.remove_prefix(block.size());
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
    convertLines(convert::Replacement(tables.*pair.from, tables.*pair.to), Mapped(words[2].c_str()).text(),
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
