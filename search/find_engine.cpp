#include "search/find_engine.h"

#include <algorithm>
#include <limits>

#include "base/error.h"
#include "base/moved_place.h"
#include "base/text.h"

namespace search {
namespace {

// The longest text the code view counts positions in.
constexpr std::uint64_t kMaxText = std::numeric_limits<std::int32_t>::max();

// Visits the occurrences that start in the range, from left to right, each behind the end of the one before.
template <class Visit>
void forEach(std::string_view text, const Pattern& pattern, Range range, Visit visit) {
  Scanner scanner(pattern, text.substr(0, std::min(text.size(), range.end + pattern.size() - 1)));
  std::size_t at = range.begin;
  while (at < range.end && (at = scanner.next(at)) != Scanner::kNone) {
    visit(at);
    at += pattern.size();
  }
}

}  // namespace

std::vector<std::string> splitTerms(std::string_view findText) {
  std::vector<std::string> terms = base::split(findText, kTermSeparator);
  std::erase(terms, "");
  return terms;
}

std::vector<Term> makeTerms(const std::vector<std::string>& terms, bool wholeWord, Comparison comparison) {
  std::vector<Term> made;
  made.reserve(terms.size());
  for (const std::string& term : terms) made.emplace_back(term, wholeWord, comparison);
  return made;
}

Range rangeOf(Scope scope, std::size_t caret, std::size_t selectionEnd, std::size_t textSize) {
  caret = std::min(caret, textSize);
  selectionEnd = std::clamp(selectionEnd, caret, textSize);
  switch (scope) {
    case Scope::Selection:
      return {caret, selectionEnd};
    case Scope::BeforeCaret:
      return {0, caret};
    case Scope::FromCaret:
      return {caret, textSize};
    case Scope::WholeText:
      break;
  }
  return {0, textSize};
}

Selection selectionOf(const Occurrence& occurrence) {
  const std::size_t padding = occurrence.padded ? 1 : 0;
  return {static_cast<int>(occurrence.position + padding), static_cast<int>(occurrence.length - 2 * padding)};
}

std::optional<Occurrence> findNext(std::string_view text, const std::vector<Term>& terms, std::size_t from,
                                   Range range) {
  std::optional<Occurrence> found;
  for (const Term& term : terms) {
    // An earlier term has the first place already: look no further than that.
    const std::size_t end = found ? found->position : std::min(range.end, text.size());
    if (from >= end) continue;
    const std::size_t size = term.pattern.size();
    const std::size_t at = Scanner(term.pattern, text.substr(0, end + size - 1)).next(from);
    if (at != Scanner::kNone) found = Occurrence{at, size, term.padded};
  }
  return found;
}

std::optional<Occurrence> findPrevious(std::string_view text, const std::vector<Term>& terms,
                                       std::size_t before, Range range) {
  std::optional<Occurrence> found;
  range.end = std::min({range.end, before, text.size()});
  for (const Term& term : terms) {
    forEach(text, term.pattern, range, [&](std::size_t at) {
      if (!found || at > found->position) found = Occurrence{at, term.pattern.size(), term.padded};
    });
  }
  return found;
}

void HitList::clear() {
  groups_ = std::vector<Group>();
  places_ = std::vector<Place>();
}

std::size_t HitList::groupOf(std::size_t hit) const {
  const auto behind =
      std::upper_bound(groups_.begin(), groups_.end(), hit,
                       [](std::size_t number, const Group& group) { return number < group.first; });
  return static_cast<std::size_t>(behind - groups_.begin()) - 1;
}

Hit HitList::operator[](std::size_t hit) const {
  const Group& group = groups_[groupOf(hit)];
  return {group.document, static_cast<std::int32_t>(places_.at(hit).position + 1),
          static_cast<std::int32_t>(group.pattern.size()), group.padded};
}

void HitList::findAll(int document, std::string_view text, const std::vector<Term>& terms, Range range) {
  if (text.size() > kMaxText) return;
  for (const Term& term : terms) {
    const std::size_t first = places_.size();
    forEach(text, term.pattern, range,
            [&](std::size_t at) { places_.push_back(placeOf(text, at, term.pattern.size())); });
    if (places_.size() == first) continue;
    const bool whole = range.begin == 0 && range.end >= text.size();
    groups_.push_back({document, term.padded, whole, text.size(), first, term.pattern});
  }
}

std::optional<Selection> HitList::locate(std::size_t hit, std::string_view text) const {
  const Group& group = groups_[groupOf(hit)];
  const Place& place = places_.at(hit);
  const std::size_t length = group.pattern.size();
  const auto stands = [&](std::size_t at) {
    if (!group.pattern.matches(text, at)) return false;
    return sidesAlike(placeOf(text, at, length), place) == 2;
  };
  // Where it was, or as far from the end as it was.
  std::size_t at = place.position;
  if (!stands(at)) at += text.size() - group.textSize;  // wraps around below 0, and is then outside the text
  if (!stands(at)) {
    const auto found = search(hit, text);
    if (!found) return std::nullopt;
    at = *found;
  }
  return selectionOf({at, length, group.padded});
}

// Among all the occurrences that there are now.
std::optional<std::size_t> HitList::search(std::size_t hit, std::string_view text) const {
  const std::size_t number = groupOf(hit);
  const Group& group = groups_[number];
  const std::size_t length = group.pattern.size();
  std::vector<Place> now;
  forEach(text, group.pattern, {0, text.size()},
          [&](std::size_t at) { now.push_back(placeOf(text, at, length)); });
  const auto begin = places_.begin() + static_cast<std::ptrdiff_t>(group.first);
  const auto end = number + 1 < groups_.size()
                       ? places_.begin() + static_cast<std::ptrdiff_t>(groups_[number + 1].first)
                       : places_.end();
  const auto found = foundAgain({begin, end}, hit - group.first, now, group.whole);
  return found ? std::optional<std::size_t>(now[*found].position) : std::nullopt;
}

void HitList::documentRemoved(int document) {
  for (Group& group : groups_) {
    if (group.document == document) {
      group.document = kGone;
    } else if (group.document > document) {
      --group.document;
    }
  }
}

void HitList::documentMoved(int from, int to) {
  for (Group& group : groups_) group.document = base::placeAfterMove(group.document, from, to);
}

void HitList::documentNumbered(int document) {
  for (Group& group : groups_) {
    if (group.document == -1) group.document = document;
  }
}

void HitList::allDocumentsRemoved() {
  for (Group& group : groups_) group.document = kGone;
}

std::optional<Replaced> replaceAll(std::string_view text, const Pattern& pattern,
                                   std::string_view replacement, Range part) {
  part.end = std::min(part.end, text.size());
  part.begin = std::min(part.begin, part.end);
  const std::string_view inside = text.substr(part.begin, part.end - part.begin);
  const Range whole{0, inside.size()};
  // Counted first: a result of known size is never moved while it grows.
  std::size_t count = 0;
  forEach(inside, pattern, whole, [&](std::size_t) { ++count; });
  if (count == 0) return std::nullopt;
  const std::uint64_t size = std::uint64_t{text.size()} - std::uint64_t{count} * pattern.size() +
                             std::uint64_t{count} * replacement.size();
  if (size > kMaxText) {
    throw base::Error(base::ErrorNumber::OutOfMemory, "შეცვლის შემდეგ ტექსტი ძალიან გრძელი იქნებოდა.");
  }

  Replaced result;
  result.count = count;
  result.text.reserve(static_cast<std::size_t>(size));
  result.text += text.substr(0, part.begin);
  std::size_t done = 0;
  forEach(inside, pattern, whole, [&](std::size_t at) {
    result.text += inside.substr(done, at - done);
    result.text += replacement;
    done = at + pattern.size();
  });
  result.text += inside.substr(done);
  result.partSize = result.text.size() - part.begin;
  result.text += text.substr(part.end);
  return result;
}

}  // namespace search
