#include "search/moved_hits.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace search {
namespace {

// How far around a hit its surroundings are remembered.
constexpr std::size_t kAround = 8;

// More pairs than this are not weighed against each other.
constexpr std::size_t kMostPairs = std::size_t{1} << 22;

std::uint16_t markOf(std::string_view bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes.data(), std::min(sizeof word, bytes.size()));
  return static_cast<std::uint16_t>((word + bytes.size()) * 0x9E3779B97F4A7C15 >> 48);
}

// The best pairing, by dynamic programming from the ends.
std::optional<std::size_t> paired(std::span<const Place> old, std::size_t mine, std::span<const Place> now,
                                  bool strangers) {
  enum Step : std::uint8_t { kPair, kOldGone, kNewCame };
  const std::size_t width = now.size();
  std::vector<std::uint8_t> steps(old.size() * width);
  std::vector<std::uint32_t> below(width + 1), here(width + 1);
  for (std::size_t i = old.size(); i-- > 0; std::swap(below, here)) {
    here[width] = 0;
    for (std::size_t j = width; j-- > 0;) {
      const auto alike = static_cast<std::uint32_t>(sidesAlike(old[i], now[j]));
      const std::uint32_t worth = alike > 0 || strangers ? below[j + 1] + 4 * alike + 1 : 0;
      here[j] = std::max({worth, below[j], here[j + 1]});
      steps[i * width + j] = here[j] == worth ? kPair : here[j] == below[j] ? kOldGone : kNewCame;
    }
  }
  for (std::size_t i = 0, j = 0; i <= mine && j < width;) {
    const std::uint8_t step = steps[i * width + j];
    if (step == kPair && i == mine) {
      const bool known = strangers || sidesAlike(old[i], now[j]) > 0;
      return known ? std::optional(j) : std::nullopt;
    }
    if (step != kNewCame) ++i;
    if (step != kOldGone) ++j;
  }
  return std::nullopt;
}

}  // namespace

Place placeOf(std::string_view text, std::size_t position, std::size_t length) {
  const std::size_t before = std::min(position, kAround);
  return {static_cast<std::uint32_t>(position), markOf(text.substr(position - before, before)),
          markOf(text.substr(position + length, kAround))};
}

std::optional<std::size_t> foundAgain(std::span<const Place> old, std::size_t mine,
                                      std::span<const Place> now, bool whole) {
  std::size_t front = 0;  // of `now`, done with
  if (whole) {
    // What stands as it did, at both ends, is not this one; usually little is left.
    while (mine > 0 && !now.empty() && sidesAlike(old.front(), now.front()) == 2) {
      old = old.subspan(1);
      now = now.subspan(1);
      ++front;
      --mine;
    }
    while (mine + 1 < old.size() && !now.empty() && sidesAlike(old.back(), now.back()) == 2) {
      old = old.first(old.size() - 1);
      now = now.first(now.size() - 1);
    }
  }
  const bool strangers = whole && old.size() == now.size();
  if (now.empty()) return std::nullopt;
  if (now.size() <= kMostPairs / old.size()) {
    const auto found = paired(old, mine, now, strangers);
    return found ? std::optional(front + *found) : std::nullopt;
  }
  if (strangers) return front + mine;
  std::optional<std::size_t> nearest;
  const auto distance = [&](std::size_t at) {
    return std::max(now[at].position, old[mine].position) - std::min(now[at].position, old[mine].position);
  };
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (sidesAlike(old[mine], now[i]) == 2 && (!nearest || distance(i) < distance(*nearest))) nearest = i;
  }
  return nearest ? std::optional(front + *nearest) : std::nullopt;
}

}  // namespace search
