#include "search/pattern.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "base/error.h"
#include "search/letter_case.h"

namespace search {
namespace {

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::uint64_t kOnes = 0x0101010101010101;
constexpr std::uint64_t kHighs = 0x8080808080808080;

constexpr std::array<std::uint8_t, 256> kItself = [] {
  std::array<std::uint8_t, 256> same{};
  for (std::size_t byte = 0; byte < 256; ++byte) same[byte] = static_cast<std::uint8_t>(byte);
  return same;
}();

static_assert(std::endian::native == std::endian::little,
              "the first byte of a text is the lowest of its word");

std::uint64_t wordAt(const char* at) {
  std::uint64_t word;
  std::memcpy(&word, at, kWord);
  return word;
}

// The high bit of every zero byte; of bytes above a zero byte perhaps too.
std::uint64_t zeroBytes(std::uint64_t word) {
  return (word - kOnes) & ~word & kHighs;
}

}  // namespace

Pattern::Pattern(std::string term, Comparison comparison)
    : fold_(comparison == Comparison::Exact ? kItself : kLowerCase), term_(std::move(term)), sieves_() {
  if (term_.empty()) throw base::Error(base::ErrorNumber::InvalidCall, "საძიებელი ტექსტი ცარიელია.");
  for (char& byte : term_) byte = static_cast<char>(folded(byte));
  for (std::size_t byte = 0; byte < 256; ++byte) sieves_[byte] = {0, static_cast<std::uint8_t>(byte)};
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const std::uint8_t lower = fold_[byte];
    const auto differing = static_cast<std::uint8_t>(byte ^ lower);
    if (differing != 0) sieves_[lower] = {differing, static_cast<std::uint8_t>(lower | differing)};
  }
}

std::size_t Pattern::matchingBytes(const char* at) const {
  std::size_t i = 0;
  while (i < term_.size() && folded(at[i]) == static_cast<std::uint8_t>(term_[i])) ++i;
  return i;
}

bool Pattern::matches(std::string_view text, std::size_t position) const {
  return position <= text.size() && text.size() - position >= size() &&
         matchingBytes(text.data() + position) == size();
}

Scanner::Scanner(const Pattern& pattern, std::string_view text) : pattern_(pattern), text_(text) {
  chooseBytes();
}

// The two bytes of the term that are rarest in a sample of the text.
void Scanner::chooseBytes() {
  constexpr std::size_t kSamples = 1024;
  std::array<std::uint32_t, 256> counts{};
  const std::size_t step = text_.size() / kSamples + 1;
  for (std::size_t at = 0; at < text_.size(); at += step) ++counts[pattern_.folded(text_[at])];
  const auto countAt = [&](std::size_t place) {
    return counts[static_cast<std::uint8_t>(pattern_.term_[place])];
  };
  for (std::size_t place = 1; place < pattern_.size(); ++place) {
    if (countAt(place) < countAt(first_)) first_ = place;
  }
  second_ = first_ == 0 ? pattern_.size() - 1 : 0;
  for (std::size_t place = 0; place < pattern_.size(); ++place) {
    if (place != first_ && countAt(place) < countAt(second_)) second_ = place;
  }
}

std::size_t Scanner::next(std::size_t from) {
  if (start_ == kNone) start_ = from;
  if (from > text_.size() || text_.size() - from < pattern_.size()) return kNone;
  return costly_ ? stepwise(from) : sift(from);
}

bool Scanner::check(std::size_t position) {
  const std::size_t matching = pattern_.matchingBytes(text_.data() + position);
  compared_ += matching + 1;
  return matching == pattern_.size();
}

// Eight places at a time: only those where both chosen bytes seem to fit are compared.
std::size_t Scanner::sift(std::size_t from) {
  const auto sieveOf = [&](std::size_t place) {
    return pattern_.sieves_[static_cast<std::uint8_t>(pattern_.term_[place])];
  };
  const Pattern::Sieve one = sieveOf(first_), two = sieveOf(second_);
  const std::uint64_t oneMask = one.mask * kOnes, oneValue = one.value * kOnes;
  const std::uint64_t twoMask = two.mask * kOnes, twoValue = two.value * kOnes;
  const std::size_t reach = std::max(first_, second_);
  const std::size_t last = text_.size() - pattern_.size();  // where the term can start
  const char* const text = text_.data();

  std::size_t at = from;
  while (at <= last && text_.size() - at >= reach + kWord) {
    const std::uint64_t misfit = ((wordAt(text + at + first_) | oneMask) ^ oneValue) |
                                 ((wordAt(text + at + second_) | twoMask) ^ twoValue);
    for (std::uint64_t fits = zeroBytes(misfit); fits != 0; fits &= fits - 1) {
      const std::size_t position = at + static_cast<std::size_t>(std::countr_zero(fits)) / 8;
      if (position > last) return kNone;
      if (check(position)) return position;
    }
    at += kWord;
    if (compared_ > 8 * (at - start_) + 4096) {
      costly_ = true;
      return next(at);
    }
  }
  for (; at <= last; ++at) {
    if (pattern_.folded(text[at + first_]) == static_cast<std::uint8_t>(pattern_.term_[first_]) &&
        check(at)) {
      return at;
    }
  }
  return kNone;
}

// One byte after the other, never going back in the text: what has matched so far tells where to go on.
std::size_t Scanner::stepwise(std::size_t from) {
  const std::string& term = pattern_.term_;
  const auto longer = [&](std::size_t matched, std::uint8_t byte) {
    while (matched > 0 && static_cast<std::uint8_t>(term[matched]) != byte) matched = border_[matched - 1];
    return static_cast<std::uint8_t>(term[matched]) == byte ? matched + 1 : 0;
  };
  if (border_.empty()) {
    border_.push_back(0);
    border_.reserve(term.size());
    for (std::size_t i = 1; i < term.size(); ++i) {
      border_.push_back(
          static_cast<std::uint32_t>(longer(border_.back(), static_cast<std::uint8_t>(term[i]))));
    }
  }
  std::size_t matched = 0;
  for (std::size_t at = from; at < text_.size(); ++at) {
    matched = longer(matched, pattern_.folded(text_[at]));
    if (matched == term.size()) return at + 1 - matched;
  }
  return kNone;
}

}  // namespace search
