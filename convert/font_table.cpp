#include "convert/font_table.h"

#include <algorithm>

#include "base/text.h"
#include "convert/letter_data.h"

namespace convert {
namespace {

std::string folded(std::string_view name) {
  std::string out;
  for (const char c : name) {
    if (c == ' ' || c == '_' || c == '-' || c == '\t' || c == '\'' || c == '"') continue;
    out += c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  return out;
}

// Linear in both but for the last "*" tried.
bool matches(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t mark = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      mark = n;
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = ++mark;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

}  // namespace

const FontTable& FontTable::builtIn() {
  static const FontTable table = [] {
    FontTable made;
    made.add(fontLines());
    return made;
  }();
  return table;
}

std::vector<std::size_t> FontTable::add(std::string_view lines) {
  std::vector<std::size_t> bad;
  std::vector<Pattern> added;
  std::size_t number = 0;
  for (const std::string& line : base::split(base::replaceAll(lines, "\r", ""), "\n")) {
    ++number;
    const std::string_view text = base::trimSpaces(line);
    if (text.empty() || text[0] == '#') continue;
    const std::size_t colon = text.find(':');
    const auto form = formNamed(base::trimSpaces(text.substr(0, colon)));
    if (colon == std::string_view::npos || !form) {
      bad.push_back(number);
      continue;
    }
    for (const std::string& font : base::split(text.substr(colon + 1), ",")) {
      const std::string name = folded(font);
      if (name.empty()) continue;
      if (name.find('*') == std::string::npos)
        names_[name] = *form;
      else
        added.push_back({name, *form});
    }
  }
  std::ranges::reverse(added);
  std::ranges::stable_sort(added,
                           [](const Pattern& a, const Pattern& b) { return a.name.size() > b.name.size(); });
  patterns_.insert(patterns_.begin(), added.begin(), added.end());
  return bad;
}

std::optional<Form> FontTable::formOf(std::string_view font) const {
  // No font has a longer name.
  constexpr std::size_t kLongest = 100;
  const std::string name = folded(font.substr(0, kLongest));
  if (name.empty()) return std::nullopt;
  if (const auto at = names_.find(name); at != names_.end()) return at->second;
  for (const Pattern& pattern : patterns_) {
    if (matches(pattern.name, name)) return pattern.form;
  }
  return std::nullopt;
}

}  // namespace convert
