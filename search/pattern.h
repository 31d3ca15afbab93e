// Looks for one term in byte texts, in time linear in the text whatever the term.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace search {

enum class Comparison {
  Exact,       // byte by byte
  IgnoreCase,  // letter_case.h
};

class Pattern {
 public:
  // Throws base::Error(InvalidCall) for an empty term.
  Pattern(std::string term, Comparison comparison);

  std::size_t size() const { return term_.size(); }
  // The text has the term at `position` (which may lie outside the text).
  bool matches(std::string_view text, std::size_t position) const;

 private:
  friend class Scanner;
  // How a byte of the term is recognised: (byte | mask) == value. Lets a few other bytes pass.
  struct Sieve {
    std::uint8_t mask;
    std::uint8_t value;
  };

  std::uint8_t folded(char byte) const { return fold_[static_cast<std::uint8_t>(byte)]; }
  // How many bytes at `at` agree with the term's beginning; there must be size() of them.
  std::size_t matchingBytes(const char* at) const;

  const std::array<std::uint8_t, 256>& fold_;
  std::string term_;               // folded
  std::array<Sieve, 256> sieves_;  // by folded byte
};

// Walks through one text. Both arguments must outlive it.
class Scanner {
 public:
  static constexpr std::size_t kNone = std::string_view::npos;

  Scanner(const Pattern& pattern, std::string_view text);
  // The first occurrence that starts at or behind `from`; kNone: there is no more. Calls go from left to
  // right.
  std::size_t next(std::size_t from);

 private:
  std::size_t sift(std::size_t from);
  std::size_t stepwise(std::size_t from);
  bool check(std::size_t position);
  void chooseBytes();

  const Pattern& pattern_;
  std::string_view text_;
  std::size_t first_ = 0, second_ = 0;  // the two places of the term that candidates are recognised by
  std::size_t start_ = kNone;           // of the first call
  std::size_t compared_ = 0;
  bool costly_ = false;                // so many candidates fail that comparing them is no longer linear
  std::vector<std::uint32_t> border_;  // of each beginning of the term, once that is so
};

}  // namespace search
