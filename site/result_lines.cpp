#include "site/result_lines.h"

#include <array>
#include <charconv>

#include "base/hash.h"
#include "base/json.h"

namespace site {
namespace {

using base::jsonQuoted;

constexpr std::array<std::string_view, 4> kChangeKinds = {"letters", "bytes", "charset", "font"};
constexpr std::size_t kPlaces = 6;
constexpr std::size_t kReasons = 9;
constexpr std::size_t kKinds = 5;
constexpr std::size_t kDones = 5;

std::string_view nameOfKind(convert::ChangeKind kind) {
  return kChangeKinds[static_cast<std::size_t>(kind)];
}

// The one of the first `count` values whose name it is; the first where it is none.
template <class Value, class Name>
Value named(const base::Json& text, std::size_t count, Name name) {
  for (std::size_t i = 0; i < count; ++i) {
    if (name(static_cast<Value>(i)) == text.text) return static_cast<Value>(i);
  }
  return Value();
}

std::uint8_t percentOf(const base::Json& json) {
  return static_cast<std::uint8_t>(json.number() > 100 ? 100 : json.number());
}

void add(std::string& line, std::string_view name, std::size_t value) {
  line.append(",\"").append(name).append("\":").append(std::to_string(value));
}

void add(std::string& line, std::string_view name, std::string_view text) {
  line.append(",\"").append(name).append("\":").append(jsonQuoted(text));
}

convert::Form formOf(const base::Json& json) {
  return convert::formNamed(json.text).value_or(convert::Form::Unknown);
}

}  // namespace

std::string lineOf(const FileResult& result) {
  std::string line = "{\"file\":" + jsonQuoted(result.file);
  add(line, "kind", nameOf(result.kind));
  if (result.note != Note::None) add(line, "note", textOf(result.note).id);
  if (result.done != Done::Nothing) add(line, "done", nameOf(result.done));
  add(line, "form", nameOf(result.form));
  add(line, "confidence", result.confidence);
  add(line, "letters", result.letters);
  add(line, "size", result.size);
  add(line, "hash", base::hexOf(result.hash));
  line += result.changes ? ",\"changes\":true" : ",\"changes\":false";
  add(line, "change count", result.changeCount);
  add(line, "uncertain count", result.uncertainCount);
  if (result.eight) add(line, "eight", nameOf(*result.eight));
  if (result.from) add(line, "from", nameOf(*result.from));
  const auto list = [&line](std::string_view name, const auto& items, auto one) {
    if (items.empty()) return;
    line.append(",\"").append(name).append("\":[");
    for (const auto& item : items) {
      one(item);
      line += ',';
    }
    line.back() = ']';
  };
  list("links", result.links, [&line](const std::string& link) { line += jsonQuoted(link); });
  list("differences", result.differences, [&line](const Difference& difference) {
    line += "{\"line\":" + std::to_string(difference.line);
    add(line, "kind", nameOfKind(difference.kind));
    add(line, "place", nameOf(difference.place));
    add(line, "form", nameOf(difference.form));
    add(line, "reason", nameOf(difference.reason));
    add(line, "confidence", difference.confidence);
    if (difference.uncertain) line += ",\"uncertain\":true";
    add(line, "before", difference.before);
    add(line, "after", difference.after);
    line += '}';
  });
  return line += "}\n";
}

std::optional<FileResult> resultOf(std::string_view text) {
  const auto line = base::parseJson(text);
  if (!line || (*line)["file"].kind != base::Json::Kind::Text || (*line)["form"].text.empty())
    return std::nullopt;
  const base::Json& json = *line;
  FileResult result;
  result.file = json["file"].text;
  result.kind = named<FileKind>(json["kind"], kKinds, [](FileKind kind) { return nameOf(kind); });
  result.note = noteNamed(json["note"].text);
  result.done = named<Done>(json["done"], kDones, [](Done done) { return nameOf(done); });
  result.form = formOf(json["form"]);
  result.confidence = percentOf(json["confidence"]);
  result.letters = json["letters"].number();
  result.size = json["size"].number();
  const std::string& hash = json["hash"].text;
  std::from_chars(hash.data(), hash.data() + hash.size(), result.hash, 16);
  result.changes = json["changes"].isTrue();
  result.changeCount = json["change count"].number();
  result.uncertainCount = json["uncertain count"].number();
  result.eight = convert::formNamed(json["eight"].text);
  result.from = convert::formNamed(json["from"].text);
  for (const base::Json& link : json["links"].items) result.links.push_back(link.text);
  for (const base::Json& one : json["differences"].items) {
    Difference difference;
    difference.line = one["line"].number();
    difference.kind = named<convert::ChangeKind>(one["kind"], kChangeKinds.size(), nameOfKind);
    difference.place =
        named<convert::Place>(one["place"], kPlaces, [](convert::Place place) { return nameOf(place); });
    difference.form = formOf(one["form"]);
    difference.reason = named<convert::Reason>(one["reason"], kReasons,
                                               [](convert::Reason reason) { return nameOf(reason); });
    difference.confidence = percentOf(one["confidence"]);
    difference.uncertain = one["uncertain"].isTrue();
    difference.before = one["before"].text;
    difference.after = one["after"].text;
    result.differences.push_back(std::move(difference));
  }
  return result;
}

}  // namespace site
