#include "editor/list_replace.h"

#include <array>

#include "base/error.h"
#include "base/line_ends.h"
#include "base/text.h"

namespace editor {
namespace {

constexpr std::string_view kPlain = "\\\t\r\n";
constexpr std::string_view kEscaped = "\\trn";

bool isWordByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= 0x80 || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         c == '_';
}

bool standsAlone(std::string_view text, std::size_t at, std::size_t size) {
  return (at == 0 || !isWordByte(text[at - 1])) && (at + size == text.size() || !isWordByte(text[at + size]));
}

// A pair as it is looked for in one text.
struct Wanted {
  std::string find;
  std::string replace;
  std::size_t number;  // of the pair
};

// By the first byte of what is looked for, in the order of the list.
using Table = std::array<std::vector<Wanted>, 256>;

Table tableOf(const std::vector<ReplacePair>& pairs, base::LineEnd lineEnd, bool matchCase) {
  Table table;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (pairs[i].find.empty()) continue;
    std::string find = base::withLineEnds(pairs[i].find, lineEnd);
    if (!matchCase) find = base::upperAscii(find);
    table[static_cast<unsigned char>(find[0])].push_back(
        {find, base::withLineEnds(pairs[i].replace, lineEnd), i});
  }
  return table;
}

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    const std::size_t at = kPlain.find(c);
    if (at != std::string_view::npos) out += '\\';
    out += at == std::string_view::npos ? c : kEscaped[at];
  }
  return out;
}

std::string unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::size_t at =
        text[i] == '\\' && i + 1 < text.size() ? kEscaped.find(text[i + 1]) : std::string_view::npos;
    out += at == std::string_view::npos ? text[i] : kPlain[at];
    if (at != std::string_view::npos) ++i;
  }
  return out;
}

}  // namespace

std::string replaceByList(std::string_view text, const std::vector<ReplacePair>& pairs, base::LineEnd lineEnd,
                          ReplaceOptions options, std::vector<int>& counts) {
  const Table table = tableOf(pairs, lineEnd, options.matchCase);
  const std::string folded = options.matchCase ? std::string() : base::upperAscii(text);
  const std::string_view where = options.matchCase ? text : folded;
  std::string out;
  std::size_t done = 0;
  for (std::size_t at = 0; at < text.size();) {
    const Wanted* found = nullptr;
    for (const Wanted& wanted : table[static_cast<unsigned char>(where[at])]) {
      if (where.compare(at, wanted.find.size(), wanted.find) != 0) continue;
      if (options.wholeWord && !standsAlone(text, at, wanted.find.size())) continue;
      found = &wanted;
      break;
    }
    if (found == nullptr) {
      ++at;
      continue;
    }
    out += text.substr(done, at - done);
    out += found->replace;
    at += found->find.size();
    done = at;
    ++counts[found->number];
  }
  out += text.substr(done);
  return out;
}

std::string formatPairs(const std::vector<ReplacePair>& pairs) {
  std::string file;
  for (const ReplacePair& pair : pairs) {
    file += escaped(pair.find) + "\t" + escaped(pair.replace);
    file += base::kCrLf;
  }
  return file;
}

std::vector<ReplacePair> parsePairs(std::string_view file) {
  std::vector<ReplacePair> pairs;
  int number = 0;
  for (std::string line : base::split(file, "\n")) {
    ++number;
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty()) continue;
    const std::size_t tab = line.find('\t');
    if (tab == 0 || tab == std::string::npos || line.find('\t', tab + 1) != std::string::npos) {
      throw base::Error(
          base::ErrorNumber::BadFileFormat,
          "სტრიქონი " + std::to_string(number) + " არ არის წყვილი: საძებნი, ტაბულაცია, შემცვლელი.");
    }
    pairs.push_back({unescaped(std::string_view(line).substr(0, tab)),
                     unescaped(std::string_view(line).substr(tab + 1))});
  }
  return pairs;
}

}  // namespace editor
