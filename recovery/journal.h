// What the recovery folder keeps of one document: a file of records, each with its checksum. A copy of the
// text comes first, in pieces, so that nobody waits for a large one; every change of what was copied already
// follows it. A torn last record counts as not written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace recovery {

// Where a document stands and how it is read.
struct Place {
  std::uint64_t document = 0;           // its number in the run that kept it
  std::string title, path;              // UTF-8; an untitled document has no path
  bool utf8 = false;                    // shown as letters
  bool viewChosen = false;              // by the user
  std::uint32_t start = 0, length = 0;  // the selection, in bytes
  bool operator==(const Place&) const = default;
};

// All documents of a run in their order.
struct Documents {
  std::string project;  // full path of the open web project; empty: none
  std::vector<Place> places;
  std::int32_t shown = -1;  // among `places`
  bool operator==(const Documents&) const = default;
};

// A text on its way into a journal. It never holds the text itself.
class Journal {
 public:
  // What the file begins with. `time`: seconds since 1970.
  static std::string head(const Place& place, std::int64_t time);

  // The record of a change that `text` has already had; nothing to write where the changed part was not
  // copied yet.
  std::string change(std::size_t position, std::size_t removed, std::string_view added);
  // The record of the next piece: `piece` begins at copied(). With `last` the copy is whole.
  std::string copy(std::string_view piece, bool last);

  std::size_t copied() const { return copied_; }
  bool whole() const { return whole_; }
  // Bytes that the changes have taken.
  std::size_t logged() const { return logged_; }

 private:
  std::size_t copied_ = 0;
  std::size_t logged_ = 0;
  bool whole_ = false;
};

std::string timeRecord(std::int64_t time);

struct KeptText {
  Place place;  // as it was when the copy began
  std::string text;
  std::int64_t time = 0;  // of its last change, about
};
// Nothing where the copy is not whole or the file is none of ours.
std::optional<KeptText> replay(std::string_view file);

// The list of a run's documents: the last whole record of the file counts.
std::string documentsRecord(const Documents& documents);
Documents readDocuments(std::string_view file);

}  // namespace recovery
