#include "base/text.h"

#include <algorithm>

namespace base {
namespace {

unsigned char fold(char c) {
  return static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
}

}  // namespace

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> pieces;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(separator, from)) != std::string_view::npos;
       from = at + separator.size()) {
    pieces.emplace_back(text.substr(from, at - from));
  }
  pieces.emplace_back(text.substr(from));
  return pieces;
}

std::string join(const std::vector<std::string>& pieces, std::string_view separator) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += separator;
    text += pieces[i];
  }
  return text;
}

std::string replaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string out;
  out.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t at; (at = text.find(from, done)) != std::string_view::npos; done = at + from.size()) {
    out += text.substr(done, at - done);
    out += to;
  }
  out += text.substr(done);
  return out;
}

std::string_view trimSpaces(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string upperAscii(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), [](char c) { return static_cast<char>(fold(c)); });
  return out;
}

int compareNoCase(std::string_view a, std::string_view b) {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const int difference = fold(a[i]) - fold(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

bool equalNoCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && compareNoCase(a, b) == 0;
}

std::size_t commonPrefix(std::string_view a, std::string_view b) {
  const auto end = std::mismatch(
      a.begin(), a.begin() + static_cast<std::ptrdiff_t>(std::min(a.size(), b.size())), b.begin());
  return static_cast<std::size_t>(end.first - a.begin());
}

}  // namespace base
