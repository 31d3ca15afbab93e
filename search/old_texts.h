// The texts of documents as they were before the last replacing in all files.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace search {

class OldTexts {
 public:
  struct Entry {
    int document;  // position in the list
    std::string text;
    bool changed;         // had unsaved changes already
    std::size_t newHash;  // of the text that took its place
  };

  static std::size_t hashOf(std::string_view text) { return std::hash<std::string_view>()(text); }

  void clear() { entries_.clear(); }
  bool empty() const { return entries_.empty(); }
  void keep(Entry entry) { entries_.push_back(std::move(entry)); }
  // Hands them out; what must stay for another time is kept again.
  std::vector<Entry> take() { return std::exchange(entries_, {}); }

  void documentRemoved(int document);
  void documentMoved(int from, int to);

 private:
  std::vector<Entry> entries_;
};

}  // namespace search
