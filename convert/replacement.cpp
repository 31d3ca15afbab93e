#include "convert/replacement.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <map>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace convert {
namespace {

static_assert(std::endian::native == std::endian::little,
              "the first byte of a text is the lowest of its word");

constexpr std::size_t kWord = sizeof(std::uint64_t);
constexpr std::size_t kBlock = 4096;
constexpr int kSizeShift = 56;
constexpr std::uint64_t kBeginsLonger = std::uint64_t{1} << 63;
// More than any real pair of tables needs; keeps a hostile pair from growing without end.
constexpr std::size_t kMaxSources = 1024;

std::uint64_t wordOf(std::string_view text) {
  std::uint64_t word = 0;
  std::memcpy(&word, text.data(), std::min(text.size(), kWord));
  return word;
}

std::uint64_t firstBytes(std::uint64_t word, std::size_t count) {
  return count >= kWord ? word : word & ((std::uint64_t{1} << (8 * count)) - 1);
}

// A proper end of `left` is a proper beginning of `right`.
bool endMeetsBeginning(std::string_view left, std::string_view right) {
  for (std::size_t size = std::min(left.size(), right.size()); size > 0; --size) {
    if (size < left.size() && size < right.size() && left.ends_with(right.substr(0, size))) return true;
  }
  return false;
}

bool contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

bool beginsLonger(std::string_view part, std::string_view text) {
  return part.size() < text.size() && text.starts_with(part);
}

// Whether `to`, once written, can be part of an occurrence of `later` in any way but as its whole beginning.
bool canMeet(std::string_view to, std::string_view later) {
  if (to.empty()) return later.size() > 1;  // what stood around the replaced text moves together
  if (contains(to, later) || endMeetsBeginning(to, later) || endMeetsBeginning(later, to)) return true;
  return later.find(to, 1) != std::string_view::npos;
}

}  // namespace

Replacement::Replacement(const std::vector<std::string>& from, const std::vector<std::string>& to)
    : from_(from), to_(to) {
  if (from.size() != to.size()) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ასოების ცხრილებს სხვადასხვა სიგრძე აქვს.");
  }
  onePass_ = compile();
}

std::string Replacement::operator()(std::string_view text) const {
  std::string out;
  append(text, out);
  return out;
}

// One pass gives what the rule gives when no two sources overlap or contain each other (then the occurrences
// in the text are disjoint, and replacing one leaves the others), and when what an entry writes cannot become
// part of a later source - except as its whole beginning, which addCompleted() turns into a source of its
// own.
bool Replacement::entriesKeepApart() const {
  for (std::size_t i = 0; i < from_.size(); ++i) {
    if (from_[i].empty()) continue;
    for (std::size_t j = 0; j < from_.size(); ++j) {
      if (from_[j].empty()) continue;
      if (endMeetsBeginning(from_[i], from_[j])) return false;
      if (i != j && contains(from_[i], from_[j])) return false;
      if (j > i && canMeet(to_[i], from_[j])) return false;
    }
  }
  return true;
}

// The UTF-8 letter that becomes byte E1, followed by 83 AF, is by then the source of the next letter: the
// five bytes together are a source too. Done for every entry and, since such a result may go on in the same
// way, for every source added.
bool Replacement::addCompleted(std::vector<Source>& sources) const {
  for (std::size_t s = 0; s < sources.size(); ++s) {
    for (std::size_t j = sources[s].entry + 1; j < from_.size(); ++j) {
      if (sources[s].to.empty() || !beginsLonger(sources[s].to, from_[j])) continue;
      if (sources.size() == kMaxSources) return false;
      sources.push_back({sources[s].from + from_[j].substr(sources[s].to.size()), to_[j], j});
    }
  }
  return true;
}

bool Replacement::compile() {
  if (!entriesKeepApart()) return false;
  std::vector<Source> sources;
  for (std::size_t i = 0; i < from_.size(); ++i) {
    if (!from_[i].empty()) sources.push_back({from_[i], to_[i], i});
  }
  if (!addCompleted(sources)) return false;

  for (std::size_t byte = 0; byte < single_.size(); ++byte)
    single_[byte] = byte | std::uint64_t{1} << kSizeShift;
  for (const Source& source : sources) {
    const auto first = static_cast<std::uint8_t>(source.from[0]);
    const std::size_t size = source.from.size();
    if (size > kWord || source.to.size() > (size == 1 ? kWord - 1 : kWord)) return false;
    if (size == 1) {
      single_[first] = wordOf(source.to) | std::uint64_t{source.to.size()} << kSizeShift;
    } else {
      probe_[first] =
          static_cast<std::uint8_t>(probe_[first] == 0 ? size : std::min<std::size_t>(probe_[first], size));
    }
  }

  std::ranges::stable_sort(sources, std::ranges::greater(), [](const Source& s) { return s.from.size(); });
  std::map<std::uint64_t, std::vector<Candidate>> byKey;
  for (const Source& source : sources) {
    if (source.from.size() == 1) continue;
    const Candidate candidate{wordOf(source.from), wordOf(source.to),
                              static_cast<std::uint8_t>(source.from.size()),
                              static_cast<std::uint8_t>(source.to.size())};
    const std::size_t first = candidate.from & 0xFF;
    single_[first] |= kBeginsLonger;
    byKey[firstBytes(candidate.from, probe_[first])].push_back(candidate);
  }
  std::vector<std::uint64_t> keys;
  keys.reserve(byKey.size());
  for (const auto& [key, candidates] : byKey) keys.push_back(key);
  chooseHash(keys);
  for (const auto& [key, candidates] : byKey) {
    std::size_t at = slotOf(key);
    while (slots_[at].count != 0) at = (at + 1) & (slots_.size() - 1);
    const Candidate& shortest = candidates.back();
    const std::size_t size = probe_[key & 0xFF];
    bool whole = shortest.fromSize == size;
    for (const Candidate& longer : candidates) {
      whole = whole && (longer.fromSize == size || (longer.from >> (8 * size) & 0xFF) != (key & 0xFF));
    }
    slots_[at] = {key,
                  shortest.to,
                  shortest.toSize,
                  whole,
                  candidates.size() > 1,
                  static_cast<std::uint16_t>(candidates.size()),
                  static_cast<std::uint32_t>(candidates_.size())};
    candidates_.insert(candidates_.end(), candidates.begin(), candidates.end());
  }
  return true;
}

// Sets up empty slots, if possible such that no two keys meet: a second look costs more than all the rest.
void Replacement::chooseHash(const std::vector<std::uint64_t>& keys) {
  slots_.resize(std::bit_ceil(4 * keys.size() + 2));
  slotShift_ = 64 - std::countr_zero(slots_.size());
  std::vector<int> takenIn(slots_.size(), -1);
  for (int attempt = 0; attempt < 500; ++attempt) {
    multiplier_ = 0x9E3779B97F4A7C15U * static_cast<std::uint64_t>(2 * attempt + 1);
    const bool apart = std::ranges::all_of(
        keys, [&](std::uint64_t key) { return std::exchange(takenIn[slotOf(key)], attempt) != attempt; });
    if (apart) return;
  }
}

inline std::size_t Replacement::slotOf(std::uint64_t key) const {
  return static_cast<std::size_t>((key * multiplier_) >> slotShift_);
}

inline const Replacement::Slot* Replacement::slotFor(std::uint64_t key) const {
  std::size_t at = slotOf(key);
  while (slots_[at].key != key && slots_[at].count != 0) at = (at + 1) & (slots_.size() - 1);
  return slots_.data() + at;
}

// The longest source that `window` begins with, of those longer than a byte; `left` bytes of it are text.
const Replacement::Candidate* Replacement::find(std::uint64_t window, std::uint8_t first,
                                                std::size_t left) const {
  const Slot& slot = *slotFor(firstBytes(window, probe_[first]));
  for (std::uint32_t i = 0; i < slot.count; ++i) {
    const Candidate& candidate = candidates_[slot.first + i];
    if (candidate.fromSize <= left && firstBytes(window, candidate.fromSize) == candidate.from)
      return &candidate;
  }
  return nullptr;
}

// Converts the sources that begin before `stop`; gives the place behind the last. Always writes whole words:
// `out` has room for one more than it needs.
template <bool kNearEnd>
inline const char* Replacement::convertBlock(const char* at, const char* stop, const char* end,
                                             char*& out) const {
  char* to = out;
  const auto put = [&to](std::uint64_t word, std::size_t size) {
    std::memcpy(to, &word, kWord);
    to += size;
  };
  const auto single = [this](const char* byte) { return single_[static_cast<std::uint8_t>(*byte)]; };
  while (at < stop) {
    // Four at a time: most texts are runs of bytes that begin no longer source.
    while (stop - at >= 4) {
      const std::uint64_t a = single(at);
      const std::uint64_t b = single(at + 1);
      const std::uint64_t c = single(at + 2);
      const std::uint64_t d = single(at + 3);
      if (((a | b | c | d) & kBeginsLonger) != 0) break;
      put(a, a >> kSizeShift);
      put(b, b >> kSizeShift);
      put(c, c >> kSizeShift);
      put(d, d >> kSizeShift);
      at += 4;
    }
    if (at == stop) break;
    const std::uint64_t word = single(at);
    if ((word & kBeginsLonger) != 0) {
      const auto first = static_cast<std::uint8_t>(*at);
      if constexpr (!kNearEnd) {
        // Letters of one form follow each other: with their size known, the next is looked up while this one
        // is still on its way.
        const char* const before = at;
        const std::size_t size = probe_[first];
        const std::uint64_t mask = firstBytes(~std::uint64_t{0}, size);
        const Slot* slot = nullptr;
        do {
          slot = slotFor(wordOf({at, kWord}) & mask);
          if (!slot->whole) break;
          put(slot->to, slot->toSize);
          at += size;
          if (at < stop && static_cast<std::uint8_t>(*at) == first) continue;
          if (slot->longer) {  // nothing but such a letter behind it would have ruled the longer ones out
            at -= size;
            to -= slot->toSize;
            break;
          }
          // Mostly a space between two words.
          if (at + 1 >= stop) break;
          const std::uint64_t between = single(at);
          if ((between & kBeginsLonger) != 0) break;
          put(between, between >> kSizeShift);
          ++at;
        } while (static_cast<std::uint8_t>(*at) == first);
        if (at != before && !slot->longer) continue;
      }
      const std::size_t left = kNearEnd ? static_cast<std::size_t>(end - at) : kWord;
      if (const Candidate* const found = find(wordOf({at, left}), first, left)) {
        put(found->to, found->toSize);
        at += found->fromSize;
        continue;
      }
    }
    put(word, (word & ~kBeginsLonger) >> kSizeShift);
    ++at;
  }
  out = to;
  return at;
}

void Replacement::append(std::string_view text, std::string& out) const {
  if (!onePass_) return entryByEntry(text, out);
  std::array<char, (kBlock + 1) * kWord> buffer;  // NOLINT: every byte taken from it was written before
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  const std::size_t before = out.size();
  for (const char* at = begin; at < end;) {
    char* to = buffer.data();
    const auto left = static_cast<std::size_t>(end - at);
    if (left >= kWord) {
      at = convertBlock<false>(at, at + std::min(kBlock, left - kWord + 1), end, to);
    } else {
      at = convertBlock<true>(at, end, end, to);
    }
    out.append(buffer.data(), to);
    if (at < end && out.capacity() - out.size() < buffer.size()) {
      // As much room as the rest takes if it grows like what is done, so that a long text is not moved
      // often.
      const double growth = static_cast<double>(out.size() - before) / static_cast<double>(at - begin);
      out.reserve(out.size() + buffer.size() +
                  static_cast<std::size_t>(growth * 1.05 * static_cast<double>(end - at)));
    }
  }
}

void Replacement::entryByEntry(std::string_view text, std::string& out) const {
  std::string result(text);
  for (std::size_t i = 0; i < from_.size(); ++i) result = base::replaceAll(result, from_[i], to_[i]);
  out += result;
}

}  // namespace convert
