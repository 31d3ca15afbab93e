// How the controls of a dialog share what the user gives its window beyond the size of its template.
#pragma once

#include <utility>
#include <vector>

#include "platform/win32/system/windows_api.h"

namespace win32 {

// Along one axis: what stretches takes the room in proportion, all else keeps its size.
class AxisGrowth {
 public:
  using Span = std::pair<LONG, LONG>;
  // `spans` are those of what stretches. One that holds another whole only follows it.
  AxisGrowth(const std::vector<Span>& spans, LONG extra);
  // How far a place moves.
  LONG at(LONG place) const;

 private:
  std::vector<Span> spans_;  // apart from each other, in order
  LONG length_ = 0;
  LONG extra_;
};

struct GrowingPlace {
  enum class Kind {
    Stretches,  // takes room both ways
    Widens,     // a field or label: takes its width from the edge that it shares
    Button,     // a row of them at the right edge stays there
    Rigid,
  };
  Kind kind;
  RECT place;  // before; after growPlaces() its new place
};

void growPlaces(std::vector<GrowingPlace>& places, SIZE extra);

}  // namespace win32
