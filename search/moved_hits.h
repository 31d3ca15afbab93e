// Finding a hit again in a text that was edited since it was found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace search {

// Where an occurrence stands and what stands around it. Eight bytes, for there may be millions.
struct Place {
  std::uint32_t position;  // from 0
  std::uint16_t before;    // marks of the few bytes on either side
  std::uint16_t behind;
};
Place placeOf(std::string_view text, std::size_t position, std::size_t length);

// The two sides, 0 to 2, on which both have the same.
inline int sidesAlike(const Place& a, const Place& b) {
  return (a.before == b.before ? 1 : 0) + (a.behind == b.behind ? 1 : 0);
}

// `old` are the hits in their order, `now` all the occurrences of the same term in the edited text: which of
// them the hit `mine` has become. They are paired without crossing so that as much as possible around them is
// alike; with nothing alike only where there are as many now as there were. Nothing: it is gone. `whole`:
// `old` are all the occurrences that there were.
std::optional<std::size_t> foundAgain(std::span<const Place> old, std::size_t mine,
                                      std::span<const Place> now, bool whole);

}  // namespace search
