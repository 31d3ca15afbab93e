#include "platform/win32/window/dialog_growth.h"

#include <algorithm>
#include <cstdlib>

namespace win32 {
namespace {

constexpr LONG kClose = 4;  // pixels by which edges that are meant to be one may differ

bool sameEdge(LONG a, LONG b) {
  return std::abs(a - b) <= kClose;
}

bool holds(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

class Growing {
 public:
  Growing(const std::vector<GrowingPlace>& places, SIZE extra)
      : places_(places),
        across_(spans(&RECT::left, &RECT::right), extra.cx),
        down_(spans(&RECT::top, &RECT::bottom), extra.cy),
        left_(places.front().place.left),
        right_(places.front().place.right) {
    for (const GrowingPlace& one : places) {
      left_ = std::min(left_, one.place.left);
      right_ = std::max(right_, one.place.right);
    }
  }

  RECT placeOf(const GrowingPlace& one) const {
    const RECT& old = one.place;
    if (one.kind == GrowingPlace::Kind::Stretches || holdsStretching(old)) {
      return {old.left + across_.at(old.left), old.top + down_.at(old.top), old.right + across_.at(old.right),
              old.bottom + down_.at(old.bottom)};
    }
    RECT place = old;
    OffsetRect(&place, beside(old), below(old));
    if (one.kind == GrowingPlace::Kind::Widens && sharesRightEdge(old.right)) {
      place.right = old.right + across_.at(old.right);
    } else if (one.kind == GrowingPlace::Kind::Button && endsAtTheRight(old.top)) {
      OffsetRect(&place, old.left + across_.at(right_) - place.left, 0);
    }
    return place;
  }

 private:
  std::vector<AxisGrowth::Span> spans(LONG RECT::*from, LONG RECT::*to) const {
    std::vector<AxisGrowth::Span> found;
    each([&](const RECT& place) { found.emplace_back(place.*from, place.*to); });
    return found;
  }
  template <class Visit>
  void each(Visit visit) const {
    for (const GrowingPlace& one : places_) {
      if (one.kind == GrowingPlace::Kind::Stretches) visit(one.place);
    }
  }
  bool holdsStretching(const RECT& place) const {
    bool found = false;
    each([&](const RECT& inner) { found = found || holds(place, inner); });
    return found;
  }
  LONG beside(const RECT& place) const {
    LONG most = 0;
    each([&](const RECT& other) {
      if (other.right <= place.left + kClose) most = std::max(most, across_.at(other.right));
    });
    return most;
  }
  LONG below(const RECT& place) const {
    LONG most = 0;
    each([&](const RECT& other) {
      if (other.bottom <= place.top + kClose) most = std::max(most, down_.at(other.bottom));
    });
    return most;
  }
  bool sharesRightEdge(LONG right) const {
    bool found = sameEdge(right, right_);
    each([&](const RECT& other) { found = found || sameEdge(right, other.right); });
    return found;
  }
  // The row of buttons at this height reaches the right edge and does not begin at the left one.
  bool endsAtTheRight(LONG top) const {
    LONG from = right_;
    LONG to = left_;
    for (const GrowingPlace& one : places_) {
      if (one.kind != GrowingPlace::Kind::Button || !sameEdge(one.place.top, top)) continue;
      from = std::min(from, one.place.left);
      to = std::max(to, one.place.right);
    }
    return sameEdge(to, right_) && !sameEdge(from, left_);
  }

  const std::vector<GrowingPlace>& places_;
  AxisGrowth across_;
  AxisGrowth down_;
  LONG left_;
  LONG right_;
};

}  // namespace

AxisGrowth::AxisGrowth(const std::vector<Span>& spans, LONG extra) : extra_(extra) {
  for (const Span& span : spans) {
    const bool follows = std::any_of(spans.begin(), spans.end(), [&span](const Span& other) {
      return other != span && span.first <= other.first && span.second >= other.second;
    });
    if (!follows) spans_.push_back(span);
  }
  std::sort(spans_.begin(), spans_.end());
  std::size_t last = 0;
  for (const Span& span : spans_) {
    if (span.first < spans_[last].second) {
      spans_[last].second = std::max(spans_[last].second, span.second);
    } else {
      spans_[++last] = span;
    }
  }
  if (!spans_.empty()) spans_.resize(last + 1);
  for (const Span& span : spans_) length_ += span.second - span.first;
}

LONG AxisGrowth::at(LONG place) const {
  LONG before = 0;
  for (const Span& span : spans_) before += std::clamp(place, span.first, span.second) - span.first;
  return length_ > 0 ? MulDiv(extra_, before, length_) : 0;
}

void growPlaces(std::vector<GrowingPlace>& places, SIZE extra) {
  if (places.empty()) return;
  const std::vector<GrowingPlace> before = places;
  const Growing growing(before, extra);
  for (GrowingPlace& one : places) one.place = growing.placeOf(one);
}

}  // namespace win32
