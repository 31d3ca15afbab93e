// Places in a list of which one entry is moved.
#pragma once

namespace base {

// Where the entry that was at `place` is when the one at `from` has been moved to `to`.
constexpr int placeAfterMove(int place, int from, int to) {
  if (place == from) return to;
  if (from < place && place <= to) return place - 1;
  if (to <= place && place < from) return place + 1;
  return place;
}

}  // namespace base
