#include "base/json.h"

#include <charconv>

#include "base/utf8.h"

namespace base {
namespace {

constexpr int kDeepest = 50;
constexpr std::string_view kHex = "0123456789abcdef";

class Parser {
 public:
  explicit Parser(std::string_view text) : text_(text) {}

  std::optional<Json> all() {
    Json value;
    if (!read(value, 0)) return std::nullopt;
    space();
    if (at_ != text_.size()) return std::nullopt;
    return value;
  }

 private:
  void space() {
    while (at_ < text_.size() && std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos)
      ++at_;
  }
  bool take(char c) {
    space();
    if (at_ >= text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  bool take(std::string_view word) {
    if (!text_.substr(at_).starts_with(word)) return false;
    at_ += word.size();
    return true;
  }

  bool read(Json& value, int depth) {
    space();
    if (depth > kDeepest || at_ >= text_.size()) return false;
    switch (text_[at_]) {
      case '{':
        value.kind = Json::Kind::Object;
        return list('{', '}', [&] {
          auto& member = value.members.emplace_back();
          space();
          return string(member.name) && take(':') && read(member.value, depth + 1);
        });
      case '[':
        value.kind = Json::Kind::List;
        return list('[', ']', [&] { return read(value.items.emplace_back(), depth + 1); });
      case '"':
        value.kind = Json::Kind::Text;
        return string(value.text);
      case 't':
        value.kind = Json::Kind::True;
        return take(std::string_view("true"));
      case 'f':
        value.kind = Json::Kind::False;
        return take(std::string_view("false"));
      case 'n':
        return take(std::string_view("null"));
      default:
        value.kind = Json::Kind::Number;
        while (at_ < text_.size() &&
               std::string_view("+-.0123456789eE").find(text_[at_]) != std::string_view::npos)
          value.text += text_[at_++];
        return !value.text.empty();
    }
  }

  template <class One>
  bool list(char open, char close, One one) {
    take(open);
    if (take(close)) return true;
    do {
      if (!one()) return false;
    } while (take(','));
    return take(close);
  }

  std::optional<std::uint32_t> unit() {
    std::uint32_t value = 0;
    const std::string_view digits = text_.substr(at_, 4);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (digits.size() < 4 || read.ec != std::errc() || read.ptr != digits.data() + 4) return std::nullopt;
    at_ += 4;
    return value;
  }

  bool string(std::string& out) {
    if (at_ >= text_.size() || text_[at_] != '"') return false;
    for (++at_; at_ < text_.size();) {
      const char c = text_[at_++];
      if (c == '"') return true;
      if (c != '\\') {
        out += c;
        continue;
      }
      if (at_ >= text_.size()) return false;
      const char escape = text_[at_++];
      constexpr std::string_view kNames = "\"\\/bfnrt";
      constexpr std::string_view kBytes = "\"\\/\b\f\n\r\t";
      if (const std::size_t known = kNames.find(escape); known != std::string_view::npos) {
        out += kBytes[known];
        continue;
      }
      const auto first = escape == 'u' ? unit() : std::nullopt;
      if (!first) return false;
      char32_t character = *first;
      if (*first >= 0xD800 && *first < 0xDC00 && take(std::string_view("\\u"))) {
        const auto second = unit();
        if (!second || *second < 0xDC00 || *second >= 0xE000) return false;
        character = 0x10000 + ((*first - 0xD800) << 10) + (*second - 0xDC00);
      }
      if (character >= 0xD800 && character < 0xE000) character = 0xFFFD;
      appendUtf8(out, character);
    }
    return false;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace

std::string jsonQuoted(std::string_view text) {
  std::string out = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<std::uint8_t>(text[at]);
    if (byte < 0x20) {
      out += "\\u00";
      out += kHex[byte >> 4];
      out += kHex[byte & 15];
      ++at;
    } else if (byte < 0x80) {
      if (byte == '"' || byte == '\\') out += '\\';
      out += text[at++];
    } else {
      const std::size_t begin = at;
      if (nextUtf8(text, at)) {
        out += text.substr(begin, at - begin);
      } else {
        out += "\xEF\xBF\xBD";
        ++at;
      }
    }
  }
  return out + '"';
}

const Json& Json::operator[](std::string_view name) const {
  static const Json kNothing;
  for (const auto& [own, value] : members) {
    if (own == name) return value;
  }
  return kNothing;
}

std::uint64_t Json::number() const {
  std::uint64_t value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = kind == Kind::Number && read.ec == std::errc() && read.ptr == text.data() + text.size();
  return whole ? value : 0;
}

std::optional<Json> parseJson(std::string_view text) {
  return Parser(text).all();
}

}  // namespace base
