// Searches files as a process of its own, to be timed beside grep; prints its hits as `grep -b -o -H` does.
//   search_files pages COUNT SIZE FOLDER     the made-up pages
//   search_files terms                       the terms, one a line
//   search_files find exact|nocase FILE...   every hit of the terms
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "bench/search_text.h"
#include "search/find_engine.h"

namespace {

void readInto(std::string& text, const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) throw std::runtime_error("cannot read " + path);
  std::setvbuf(file, nullptr, _IONBF, 0);
  text.resize(std::filesystem::file_size(path));
  const std::size_t read = std::fread(text.data(), 1, text.size(), file);
  std::fclose(file);
  if (read != text.size()) throw std::runtime_error("cannot read " + path);
}

void flush(std::string& out) {
  for (std::size_t done = 0; done < out.size();) {
    const ssize_t written = ::write(STDOUT_FILENO, out.data() + done, out.size() - done);
    if (written < 0) throw std::runtime_error("cannot write");
    done += static_cast<std::size_t>(written);
  }
  out.clear();
}

void find(search::Comparison comparison, const std::vector<std::string>& files) {
  const auto terms = search::makeTerms(bench::searchTerms(), false, comparison);
  search::HitList hits;
  std::string text, out;
  for (const std::string& path : files) {
    readInto(text, path);
    hits.clear();
    hits.findAll(0, text, terms, {0, text.size()});
    for (std::size_t i = 0; i < hits.size(); ++i) {
      const search::Hit hit = hits[i];
      char number[16];
      const char* const end = std::to_chars(number, number + sizeof number, hit.position - 1).ptr;
      out += path;
      out += ':';
      out.append(number, static_cast<std::size_t>(end - number));
      out += ':';
      out.append(text, static_cast<std::size_t>(hit.position - 1), static_cast<std::size_t>(hit.length));
      out += '\n';
      if (out.size() > 1 << 15) flush(out);
    }
  }
  flush(out);
}

int run(const std::vector<std::string>& words) {
  if (words.size() == 1 && words[0] == "terms") {
    for (const std::string& term : bench::searchTerms()) std::printf("%s\n", term.c_str());
  } else if (words.size() == 4 && words[0] == "pages") {
    for (unsigned number = 0; number < std::stoul(words[1]); ++number) {
      std::ofstream(words[3] + "/" + std::to_string(1000 + number) + ".html", std::ios::binary)
          << bench::page(number, std::stoul(words[2]));
    }
  } else if (words.size() > 2 && words[0] == "find") {
    find(words[1] == "exact" ? search::Comparison::Exact : search::Comparison::IgnoreCase,
         {words.begin() + 2, words.end()});
  } else {
    throw std::runtime_error("see the head of search_files.cpp");
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
