#include "convert/review_lines.h"

#include <algorithm>

namespace convert {
namespace {

bool isEnd(std::string_view text, std::size_t at) {
  return text[at] == '\n' || (text[at] == '\r' && (at + 1 == text.size() || text[at + 1] != '\n'));
}

bool continues(char c) {
  return (static_cast<std::uint8_t>(c) & 0xC0U) == 0x80;
}

// The lines of a text, without their ends; control characters as blanks.
std::vector<std::string> linesOf(std::string_view letters) {
  std::vector<std::string> lines(1);
  for (std::size_t at = 0; at < letters.size(); ++at) {
    const char c = letters[at];
    if (isEnd(letters, at))
      lines.emplace_back();
    else if (c != '\r')
      lines.back() += static_cast<std::uint8_t>(c) < ' ' || c == 0x7F ? ' ' : c;
  }
  return lines;
}

// Cuts a line where it is too long for the window.
std::vector<std::vector<LinePart>> wrapped(const std::vector<LinePart>& line, std::size_t columns) {
  std::vector<std::vector<LinePart>> all(1);
  std::size_t used = 0;
  for (const LinePart& part : line) {
    std::size_t begin = 0;
    const auto add = [&](std::size_t end) {
      if (end > begin)
        all.back().push_back({part.letters.substr(begin, end - begin), part.changed, part.selected});
      begin = end;
    };
    for (std::size_t at = 0; at < part.letters.size(); ++at) {
      if (continues(part.letters[at])) continue;
      if (used == columns) {
        add(at);
        all.emplace_back();
        used = 0;
      }
      ++used;
    }
    add(part.letters.size());
  }
  return all;
}

class Pairing {
 public:
  Pairing(const PageReview& review, std::size_t top, std::size_t rows, std::size_t columns)
      : review_(review), top_(top), rows_(rows), columns_(std::max<std::size_t>(1, columns)) {}

  std::vector<LinePair> run(std::optional<std::uint32_t> selected) {
    const std::vector<Change>& changes = review_.plan().changes;
    const std::string_view page = review_.page();
    // A text of several lines that begins above is taken from its beginning on.
    auto change = std::ranges::upper_bound(changes, top_, {}, &Change::begin);
    while (change != changes.begin() && (change - 1)->end > top_) --change;
    std::size_t at = top_;
    if (change != changes.end()) at = std::min<std::size_t>(at, change->begin);
    for (std::size_t i = at; i < top_; ++i) hidden_ += isEnd(page, i) ? 1U : 0U;
    while (!full() && at < page.size()) {
      const std::size_t next = change == changes.end() ? page.size() : change->begin;
      if (at < next) {
        std::size_t end = std::min(next, at + kBlock);
        while (end < next && end > at + 1 && (continues(page[end]) || page[end - 1] == '\r')) --end;
        const std::vector<std::string> lines = linesOf(review_.raw(page.substr(at, end - at)));
        add(lines, lines, false, false);
        at = end;
        continue;
      }
      if (change == changes.end()) break;
      const auto index = static_cast<std::uint32_t>(change - changes.begin());
      std::vector<std::string> before = linesOf(review_.raw(page.substr(at, change->end - at)));
      std::vector<std::string> after = linesOf(review_.written(index));
      const std::size_t most = std::max(before.size(), after.size());
      // What adds a line leaves an empty one beside it.
      before.resize(most);
      after.resize(most);
      add(before, after, before != after, selected == index);
      at = std::max<std::size_t>(at, change->end);
      ++change;
    }
    if (!full()) finishLine();
    pairs_.resize(std::min(pairs_.size(), rows_));
    return std::move(pairs_);
  }

 private:
  static constexpr std::size_t kBlock = 4096;

  bool full() const { return pairs_.size() >= rows_; }

  void add(const std::vector<std::string>& before, const std::vector<std::string>& after, bool changed,
           bool selected) {
    for (std::size_t i = 0; i < before.size() && !full(); ++i) {
      if (i > 0) finishLine();
      if (!before[i].empty()) line_.before.push_back({before[i], changed, selected});
      if (!after[i].empty()) line_.after.push_back({after[i], changed, selected});
    }
  }

  void finishLine() {
    if (hidden_ > 0) {
      --hidden_;
    } else {
      auto before = wrapped(line_.before, columns_);
      auto after = wrapped(line_.after, columns_);
      const std::size_t most = std::max(before.size(), after.size());
      before.resize(most);
      after.resize(most);
      for (std::size_t i = 0; i < most; ++i) pairs_.push_back({std::move(before[i]), std::move(after[i])});
    }
    line_ = {};
  }

  const PageReview& review_;
  std::size_t top_;
  std::size_t rows_;
  std::size_t columns_;
  std::size_t hidden_ = 0;  // lines above the window
  LinePair line_;
  std::vector<LinePair> pairs_;
};

}  // namespace

std::vector<LinePair> linesFrom(const PageReview& review, std::size_t top, std::size_t rows,
                                std::size_t columns, std::optional<std::uint32_t> selected) {
  return Pairing(review, top, rows, columns).run(selected);
}

std::size_t lineBeginning(std::string_view page, std::size_t place, int lines, std::size_t most) {
  std::size_t at = std::min(place, page.size());
  const auto back = [&] {
    const std::size_t stop = at > most ? at - most : 0;
    while (at > stop && !isEnd(page, at - 1)) --at;
    while (at > 0 && at < page.size() && continues(page[at])) --at;
  };
  if (lines == 0) back();
  for (; lines > 0; --lines) {
    const std::size_t stop = std::min(page.size(), at + most);
    std::size_t next = at;
    while (next < stop && !isEnd(page, next)) ++next;
    if (next < page.size() && isEnd(page, next)) ++next;
    while (next < page.size() && continues(page[next])) ++next;
    if (next >= page.size()) return at;  // the last line stays in view
    at = next;
  }
  for (; lines < 0 && at > 0; ++lines) {
    --at;
    back();
  }
  return at;
}

}  // namespace convert
