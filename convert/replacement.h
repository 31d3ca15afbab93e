// Replaces the entries of one table by those of another, in one pass over the text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace convert {

// The rule is entry by entry: all occurrences of from[0] are replaced, then all of from[1] in the result, and
// so on. The result is exactly that for every text. Tables for which one pass cannot be proven equal to the
// rule are worked off entry by entry.
class Replacement {
 public:
  // Throws base::Error(InvalidCall) when the tables differ in length.
  Replacement(const std::vector<std::string>& from, const std::vector<std::string>& to);

  std::string operator()(std::string_view text) const;
  // The same, behind what `out` holds already; for callers that reuse one buffer.
  void append(std::string_view text, std::string& out) const;

  bool onePass() const { return onePass_; }

 private:
  struct Source {
    std::string from;
    std::string to;
    std::size_t entry;
  };
  // Texts of up to 8 bytes live in one word, the first byte lowest.
  struct Candidate {
    std::uint64_t from = 0;
    std::uint64_t to = 0;
    std::uint8_t fromSize = 0;
    std::uint8_t toSize = 0;
  };
  // A slot of the hash table: the sources that share their first bytes, as many as `probe_` says.
  struct alignas(32) Slot {
    std::uint64_t key = 0;
    std::uint64_t to = 0;  // of the source that is the key alone, when `whole`
    std::uint8_t toSize = 0;
    bool whole = false;       // there is such a source
    bool longer = false;      // and longer ones, none of which goes on with the byte that it begins with
    std::uint16_t count = 0;  // 0: empty slot
    std::uint32_t first = 0;  // of `candidates_`, the longest first
  };

  bool entriesKeepApart() const;
  bool addCompleted(std::vector<Source>& sources) const;
  bool compile();
  void chooseHash(const std::vector<std::uint64_t>& keys);
  std::size_t slotOf(std::uint64_t key) const;
  const Slot* slotFor(std::uint64_t key) const;
  const Candidate* find(std::uint64_t window, std::uint8_t first, std::size_t left) const;
  template <bool kNearEnd>
  const char* convertBlock(const char* at, const char* stop, const char* end, char*& out) const;
  void entryByEntry(std::string_view text, std::string& out) const;

  std::vector<std::string> from_, to_;
  bool onePass_ = false;

  // What to write for a byte that begins no longer source, itself or its letter: up to seven bytes, the size
  // in the top byte. The top bit marks the bytes that longer sources begin with.
  std::array<std::uint64_t, 256> single_{};
  // How many bytes of a longer source are looked up, by its first byte.
  std::array<std::uint8_t, 256> probe_{};
  std::vector<Slot> slots_;  // open addressing; a power of two
  int slotShift_ = 0;
  std::uint64_t multiplier_ = 0;
  std::vector<Candidate> candidates_;
};

}  // namespace convert
