#include "markup/tag_text.h"

#include "base/text.h"
#include "markup/server_blocks.h"

namespace markup {
namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text), servers_(text) {}
  bool atEnd() const { return at_ >= text_.size(); }
  char front() const { return text_[at_]; }
  std::size_t at() const { return at_; }
  void back(std::size_t to) { at_ = to; }
  std::string_view since(std::size_t start) const { return text_.substr(start, at_ - start); }
  void skipBlanks() {
    while (!atEnd() && isBlank(front())) ++at_;
  }
  std::string_view upTo(std::string_view ends) {
    const std::size_t start = at_;
    while (!atEnd() && ends.find(front()) == std::string_view::npos) {
      const std::size_t behind = servers_.behind(at_);
      at_ = behind != at_ ? behind : at_ + 1;
    }
    return since(start);
  }
  void skip() { ++at_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  ServerBlocks servers_;
};

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kNameEnds = " \t\r\n=";

std::string_view readValue(Reader& reader) {
  reader.skipBlanks();
  if (reader.atEnd()) return {};
  const char quote = reader.front();
  if (quote != '"' && quote != '\'') return reader.upTo(kBlanks);
  reader.skip();
  const std::string_view value = reader.upTo(std::string_view(&quote, 1));
  if (!reader.atEnd()) reader.skip();
  return value;
}

}  // namespace

TagText parseTag(std::string_view tag) {
  TagText parsed;
  std::string_view inside = tag.substr(1, tag.size() - 2);
  std::size_t tail = inside.size();
  while (tail > 0 && isBlank(inside[tail - 1])) --tail;
  if (tail > 1 && inside[tail - 1] == '/' && (isBlank(inside[tail - 2]) || inside[tail - 2] == '"')) --tail;
  while (tail > 0 && isBlank(inside[tail - 1])) --tail;
  parsed.tail = inside.substr(tail);
  Reader reader(inside.substr(0, tail));
  parsed.name = reader.upTo(kBlanks);
  while (!reader.atEnd()) {
    const std::size_t start = reader.at();
    reader.skipBlanks();
    TagText::Attribute attribute{};
    attribute.name = reader.front() == '"' ? readValue(reader) : reader.upTo(kNameEnds);
    const std::size_t nameEnd = reader.at();
    reader.skipBlanks();
    attribute.hasValue = !reader.atEnd() && reader.front() == '=';
    if (attribute.hasValue) {
      reader.skip();
      attribute.value = readValue(reader);
    } else {
      reader.back(nameEnd);
    }
    attribute.raw = reader.since(start);
    parsed.attributes.push_back(std::move(attribute));
  }
  return parsed;
}

std::string formatTag(const TagText& tag) {
  std::string text = "<" + tag.name;
  for (const TagText::Attribute& attribute : tag.attributes) {
    if (!attribute.raw.empty()) {
      text += attribute.raw;
      continue;
    }
    text += " " + attribute.name;
    if (!attribute.hasValue) continue;
    const bool quoted = attribute.value.find('"') != std::string::npos;
    if (quoted && attribute.value.find('\'') == std::string::npos) {
      text += "='" + attribute.value + "'";
    } else {
      text += "=\"" + base::replaceAll(attribute.value, "\"", "&quot;") + "\"";
    }
  }
  return text + tag.tail + ">";
}

}  // namespace markup
