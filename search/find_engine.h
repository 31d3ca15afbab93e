// Finding and replacing in byte texts: terms, ranges, the hits of several documents.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "search/moved_hits.h"
#include "search/pattern.h"

namespace search {

inline constexpr std::string_view kTermSeparator = "|>";

// The non-empty terms of a find text, in their order.
std::vector<std::string> splitTerms(std::string_view findText);

// A term as it is looked for. A whole word has one space on each side: at the ends of a text, beside a line
// end or punctuation it is not found.
struct Term {
  Term(const std::string& term, bool wholeWord, Comparison comparison)
      : pattern(wholeWord ? " " + term + " " : term, comparison), padded(wholeWord) {}
  Pattern pattern;
  bool padded;
};
std::vector<Term> makeTerms(const std::vector<std::string>& terms, bool wholeWord, Comparison comparison);

enum class Scope : std::uint8_t { WholeText, Selection, BeforeCaret, FromCaret };

// Where an occurrence may start: positions from 0, the end not included.
struct Range {
  std::size_t begin;
  std::size_t end;
};
// Clamped to the text. `caret` is the start of the selection where there is one.
Range rangeOf(Scope scope, std::size_t caret, std::size_t selectionEnd, std::size_t textSize);

// One occurrence; positions from 0, with the padding.
struct Occurrence {
  std::size_t position;
  std::size_t length;
  bool padded;
};
// What of it is selected: the padding is left out.
struct Selection {
  int start;
  int length;
};
Selection selectionOf(const Occurrence& occurrence);

// The first occurrence of any term at or behind `from`; of two at one place that of the earlier term.
std::optional<Occurrence> findNext(std::string_view text, const std::vector<Term>& terms, std::size_t from,
                                   Range range);
// The last one that starts before `before`, of those that findAll() would list.
std::optional<Occurrence> findPrevious(std::string_view text, const std::vector<Term>& terms,
                                       std::size_t before, Range range);

inline constexpr int kGone = -2;  // in place of the number of a document that is no longer open

struct Hit {
  int document;           // as the caller numbers them, -1 and above; or kGone
  std::int32_t position;  // from 1, padding included, like the length
  std::int32_t length;
  bool padded;
};

// The hits of a search, in the order document, term, position. Eight bytes a hit, and each term once a
// document.
class HitList {
 public:
  std::size_t size() const { return places_.size(); }
  bool empty() const { return places_.empty(); }
  void clear();
  Hit operator[](std::size_t hit) const;

  // Adds every occurrence of every term in one document, each behind the end of the one before.
  void findAll(int document, std::string_view text, const std::vector<Term>& terms, Range range);

  // What to select for a hit in its document's present text, which may have been edited since. Told by its
  // place, by what stands around it, and by its number among the occurrences; nothing when no occurrence of
  // the term can be it. Time linear in the text.
  std::optional<Selection> locate(std::size_t hit, std::string_view text) const;

  // A document left the list: its hits are gone, later documents have moved down.
  void documentRemoved(int document);
  void documentMoved(int from, int to);
  void allDocumentsRemoved();
  // The document without a number, -1, got one.
  void documentNumbered(int document);

 private:
  struct Group {  // the hits of one term in one document
    int document;
    bool padded;
    bool whole;            // all the text was searched
    std::size_t textSize;  // when it was searched
    std::size_t first;     // of its places
    Pattern pattern;
  };
  std::optional<std::size_t> search(std::size_t hit, std::string_view text) const;
  std::size_t groupOf(std::size_t hit) const;  // its number

  std::vector<Group> groups_;
  std::vector<Place> places_;
};

// Exchanges every occurrence that lies in `part`; the rest of the text stays. Nothing when there is none.
// Needs no memory but the result's. Throws base::Error(OutOfMemory) when that cannot be a document.
struct Replaced {
  std::string text;
  std::size_t count;
  std::size_t partSize;  // of what stands in the part's place now
};
std::optional<Replaced> replaceAll(std::string_view text, const Pattern& pattern,
                                   std::string_view replacement, Range part);

}  // namespace search
