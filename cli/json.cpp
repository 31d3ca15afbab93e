#include "cli/json.h"

#include <algorithm>

#include "base/json.h"
#include "convert/page_plan.h"

namespace cli {
namespace {

constexpr std::size_t kShownBytes = 200;

}  // namespace

std::string share(std::uint8_t percent) {
  if (percent >= 100) return "1.00";
  return {'0', '.', static_cast<char>('0' + percent / 10), static_cast<char>('0' + percent % 10)};
}

std::string oneLine(std::string_view bytes, convert::Form form) {
  std::string out;
  bool space = false;
  for (const char c : convert::PagePlan::readable(bytes, form)) {
    const bool white = c == ' ' || static_cast<std::uint8_t>(c) < 0x20 || c == 0x7F;
    if (white) {
      space = !out.empty();
      continue;
    }
    if (space) out += ' ';
    space = false;
    out += c;
  }
  return out;
}

void writeJson(std::string_view file, std::string_view page, const convert::Detection& found,
               const std::function<void(std::string_view)>& write) {
  const auto number = [](std::size_t n) { return std::to_string(n); };
  std::string line =
      "{\"file\":" + base::jsonQuoted(file) + ",\"form\":\"" + std::string(nameOf(found.page.form)) +
      "\",\"confidence\":" + share(found.page.confidence) + ",\"letters\":" + number(found.page.letters);
  if (found.page.trouble != convert::Trouble::None) {
    line += ",\"trouble\":" + base::jsonQuoted(sentenceOf(found.page.trouble));
  }
  line += ",\"runs\":[";
  convert::LineCounter lines(page);
  std::size_t i = 0;
  for (const convert::PagePiece& piece : found.parts.pieces) {
    const convert::Verdict& verdict = found.verdicts[i];
    if (i++ > 0) line += ',';
    const std::size_t size = std::min<std::size_t>(piece.end - piece.begin, kShownBytes);
    line += "{\"line\":" + number(lines.lineOf(piece.begin)) + ",\"begin\":" + number(piece.begin) +
            ",\"end\":" + number(piece.end) + ",\"place\":\"" + std::string(nameOf(piece.place)) +
            "\",\"form\":\"" + std::string(nameOf(verdict.form)) +
            "\",\"confidence\":" + share(verdict.confidence) + ",\"reason\":\"" +
            std::string(nameOf(verdict.reason)) +
            "\",\"uncertain\":" + (verdict.uncertain ? "true" : "false") +
            ",\"letters\":" + number(verdict.letters) +
            ",\"text\":" + base::jsonQuoted(oneLine(page.substr(piece.begin, size), verdict.form)) + "}";
    write(line);
    line.clear();
  }
  write(line + "]}\n");
}

}  // namespace cli
