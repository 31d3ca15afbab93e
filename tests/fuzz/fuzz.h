// What the harnesses share. FUZZ(Name, pieces) { ... } says what must hold of any `bytes`: the rules' tests
// run it over a fixed seed, tools/fuzz under libFuzzer. Both put in `pieces`, of which interesting bytes are
// made.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>
#ifndef ZERVO_LIBFUZZER
#include <gtest/gtest.h>
#endif

namespace fuzz {

inline std::string_view current;

// Stops at once, in every build, so that a fuzzer keeps the input.
#define MUST(condition) ((condition) ? void() : ::fuzz::failed(#condition, __FILE__))
[[noreturn]] inline void failed(const char* condition, const char* file) {
  std::fprintf(stderr, "%s: not so: %s\n", file, condition);
  for (const char c : current) std::fprintf(stderr, "\\x%02x", static_cast<std::uint8_t>(c));
  std::fputc('\n', stderr);
  std::abort();
}

// Takes choices off the end of the bytes; 0 where there are no more.
inline std::size_t choose(std::string_view& bytes, std::size_t below) {
  std::size_t value = 0;
  for (std::size_t range = 1; range < below && !bytes.empty(); range *= 256) {
    value = value * 256 + static_cast<std::uint8_t>(bytes.back());
    bytes.remove_suffix(1);
  }
  return below == 0 ? 0 : value % below;
}

using Check = void (*)(std::string_view bytes);

inline void overSeed(Check check, const std::vector<std::string>& pieces) {
  constexpr int kRounds = 3000;
  std::mt19937 random(2024);  // NOLINT: the same bytes in every run
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int round = 0; round < kRounds; ++round) {
    std::string bytes;
    for (std::size_t n = below(24); n-- > 0;) {
      const std::string& piece = pieces[below(pieces.size())];
      for (std::size_t times = below(8) == 0 ? 1 + below(12) : 1; times-- > 0;) bytes += piece;
      if (below(6) == 0) bytes += static_cast<char>(random());
      if (below(30) == 0) bytes[below(bytes.size())] = static_cast<char>(random());
    }
    if (below(4) == 0) bytes.resize(below(bytes.size() + 1));
    check(current = bytes);
  }
}

}  // namespace fuzz

#ifdef ZERVO_LIBFUZZER
extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace fuzz {
inline std::size_t withPiece(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed,
                             const std::vector<std::string>& pieces) {
  std::minstd_rand random(seed);
  const std::string& piece = pieces[random() % pieces.size()];
  if (random() % 2 == 0 || piece.size() > most - size) return LLVMFuzzerMutate(data, size, most);
  std::uint8_t* const at = data + random() % (size + 1);
  std::memmove(at + piece.size(), at, size - static_cast<std::size_t>(at - data));
  std::memcpy(at, piece.data(), piece.size());
  return size + piece.size();
}
}  // namespace fuzz

#define FUZZ(Name, ...)                                                                                  \
  static void check##Name(std::string_view bytes);                                                       \
  extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                    \
    check##Name(fuzz::current = {reinterpret_cast<const char*>(data), size});                            \
    return 0;                                                                                            \
  }                                                                                                      \
  extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t most, \
                                                 unsigned seed) {                                        \
    static const std::vector<std::string> pieces = __VA_ARGS__;                                          \
    return fuzz::withPiece(data, size, most, seed, pieces);                                              \
  }                                                                                                      \
  static void check##Name([[maybe_unused]] std::string_view bytes)
#else
#define FUZZ(Name, ...)                                  \
  static void check##Name(std::string_view bytes);       \
  TEST(Fuzz, Name) {                                     \
    const std::vector<std::string> pieces = __VA_ARGS__; \
    fuzz::overSeed(check##Name, pieces);                 \
  }                                                      \
  static void check##Name([[maybe_unused]] std::string_view bytes)
#endif
