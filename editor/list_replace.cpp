#include "editor/list_replace.h"

#include "base/error.h"
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

std::string replacePair(const std::string& text, const ReplacePair& pair, ReplaceOptions options,
                        int& count) {
  const std::string folded = options.matchCase ? std::string() : base::upperAscii(text);
  const std::string& where = options.matchCase ? text : folded;
  const std::string what = options.matchCase ? pair.find : base::upperAscii(pair.find);
  std::string out;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = where.find(what, at)) != std::string::npos;) {
    if (options.wholeWord && !standsAlone(text, at, what.size())) {
      ++at;
      continue;
    }
    out.append(text, done, at - done);
    out += pair.replace;
    at += what.size();
    done = at;
    ++count;
  }
  out.append(text, done);
  return out;
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

std::string replaceByList(std::string_view text, const std::vector<ReplacePair>& pairs,
                          ReplaceOptions options, std::vector<int>& counts) {
  std::string result(text);
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (!pairs[i].find.empty()) result = replacePair(result, pairs[i], options, counts[i]);
  }
  return result;
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
