#include "publish/listing.h"

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include "base/text.h"

namespace publish {
namespace {

constexpr std::int64_t kMinute = 60;
constexpr std::int64_t kDay = 86400;

std::optional<std::int64_t> number(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || fault != std::errc() || end != text.data() + text.size() || value < 0)
    return std::nullopt;
  return value;
}

// The next word; the blanks before it are skipped, `rest` begins behind it.
std::string_view word(std::string_view& rest) {
  const std::size_t begin = std::min(rest.find_first_not_of(" \t"), rest.size());
  const std::size_t end = std::min(rest.find_first_of(" \t", begin), rest.size());
  const std::string_view found = rest.substr(begin, end - begin);
  rest.remove_prefix(end);
  return found;
}

int monthNamed(std::string_view name) {
  constexpr std::array<std::string_view, 12> kNames = {"jan", "feb", "mar", "apr", "may", "jun",
                                                       "jul", "aug", "sep", "oct", "nov", "dec"};
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (base::equalNoCase(name, kNames[i])) return static_cast<int>(i) + 1;
  }
  return 0;
}

// "22:07" or "22:07:30".
bool clock(std::string_view text, int& hour, int& minute) {
  const std::size_t colon = text.find(':');
  if (colon == std::string_view::npos) return false;
  const auto h = number(text.substr(0, colon));
  const auto m = number(text.substr(colon + 1, 2));
  if (!h || !m || *h > 23 || *m > 59) return false;
  hour = static_cast<int>(*h);
  minute = static_cast<int>(*m);
  return true;
}

int yearOf(std::int64_t seconds) {
  int year = 1970;
  while (secondsOf(year + 1, 1, 1, 0, 0, 0) <= seconds) ++year;
  return year;
}

// "Nov 23 22:07" or "Nov 23  2025", at the front of `rest`.
bool unixDate(std::string_view& rest, std::int64_t now, Entry& entry) {
  std::string_view at = rest;
  const int month = monthNamed(word(at));
  const auto day = number(word(at));
  const std::string_view last = word(at);
  if (month == 0 || !day || *day < 1 || *day > 31) return false;
  int hour = 0;
  int minute = 0;
  if (clock(last, hour, minute)) {
    const int year = yearOf(now);
    entry.precision = kMinute;
    entry.time = secondsOf(year, month, static_cast<int>(*day), hour, minute, 0);
    // The server's clock may be ahead, by its zone and more; else it was last year.
    if (entry.time > now + 2 * kDay) {
      entry.time = secondsOf(year - 1, month, static_cast<int>(*day), hour, minute, 0);
    }
  } else if (const auto year = number(last); year && *year > 1900 && *year < 10000) {
    entry.precision = kDay;
    entry.time = secondsOf(static_cast<int>(*year), month, static_cast<int>(*day), 0, 0, 0);
  } else {
    return false;
  }
  rest = at;
  return true;
}

// "-rw-r--r-- 1 user group 1234 Nov 23 22:07 name": owner and group may be missing, or hold blanks.
std::optional<Entry> unixLine(std::string_view line, std::int64_t now) {
  if (line.size() < 10 || std::string_view("-dlbcps").find(line[0]) == std::string_view::npos ||
      std::string_view("r-").find(line[1]) == std::string_view::npos) {
    return std::nullopt;
  }
  Entry entry;
  entry.folder = line[0] == 'd';
  entry.link = line[0] == 'l';
  std::string_view rest = line;
  word(rest);
  // The size is the number right before the date.
  std::optional<std::int64_t> before;
  while (!rest.empty()) {
    if (before && unixDate(rest, now, entry)) {
      entry.size = *before;
      if (rest.size() < 2) return std::nullopt;
      entry.name = rest.substr(1);
      if (entry.link) entry.name.resize(std::min(entry.name.find(" -> "), entry.name.size()));
      return entry;
    }
    before = number(word(rest));
  }
  return std::nullopt;
}

// "11-23-26  10:07PM       <DIR>          name", with the year in two digits or four.
std::optional<Entry> dosLine(std::string_view line) {
  std::string_view rest = line;
  const std::string_view date = word(rest);
  const std::string_view time = word(rest);
  if (date.size() < 8 || date[2] != '-' || date[5] != '-') return std::nullopt;
  const auto month = number(date.substr(0, 2));
  const auto day = number(date.substr(3, 2));
  const auto year = number(date.substr(6));
  int hour = 0;
  int minute = 0;
  if (!month || !day || !year || !clock(time, hour, minute)) return std::nullopt;
  if (base::equalNoCase(time.substr(time.size() - 2), "PM") && hour < 12) hour += 12;
  if (base::equalNoCase(time.substr(time.size() - 2), "AM") && hour == 12) hour = 0;
  Entry entry;
  const int whole = static_cast<int>(*year < 70 ? *year + 2000 : *year < 100 ? *year + 1900 : *year);
  entry.time = secondsOf(whole, static_cast<int>(*month), static_cast<int>(*day), hour, minute, 0);
  entry.precision = kMinute;
  const std::string_view size = word(rest);
  entry.folder = base::equalNoCase(size, "<DIR>");
  if (const auto bytes = number(size))
    entry.size = *bytes;
  else if (!entry.folder)
    return std::nullopt;
  // The name begins behind the blanks of a column.
  const std::size_t begin = rest.find_first_not_of(' ');
  if (begin == std::string_view::npos) return std::nullopt;
  entry.name = rest.substr(begin);
  return entry;
}

// "type=file;size=1234;modify=20261123220700; name".
std::optional<Entry> factsLine(std::string_view line) {
  const std::size_t blank = line.find("; ");
  if (blank == std::string_view::npos || line.substr(0, blank).find('=') == std::string_view::npos) {
    return std::nullopt;
  }
  Entry entry;
  entry.name = line.substr(blank + 2);
  bool typed = false;
  for (const std::string& fact : base::split(line.substr(0, blank), ";")) {
    const std::size_t equals = std::min(fact.find('='), fact.size());
    const std::string_view name = std::string_view(fact).substr(0, equals);
    const std::string_view value = std::string_view(fact).substr(std::min(equals + 1, fact.size()));
    if (base::equalNoCase(name, "type")) {
      typed = true;
      if (base::equalNoCase(value, "cdir") || base::equalNoCase(value, "pdir")) entry.name = ".";
      entry.folder = base::equalNoCase(value, "dir");
      entry.link = base::upperAscii(value).starts_with("OS.UNIX=S");
    } else if (base::equalNoCase(name, "size")) {
      entry.size = number(value).value_or(0);
    } else if (base::equalNoCase(name, "modify") && value.size() >= 14 && number(value.substr(0, 14))) {
      const auto part = [&](std::size_t from, std::size_t size) {
        return static_cast<int>(*number(value.substr(from, size)));
      };
      entry.time = secondsOf(part(0, 4), part(4, 2), part(6, 2), part(8, 2), part(10, 2), part(12, 2));
    }
  }
  if (!typed) return std::nullopt;
  return entry;
}

}  // namespace

std::int64_t secondsOf(int year, int month, int day, int hour, int minute, int second) {
  // Days by eras of 400 years that begin with March.
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return (era * 146097 + dayOfEra - 719468) * kDay + hour * 3600LL + minute * 60LL + second;
}

std::vector<Entry> parseListing(std::string_view lines, std::int64_t now) {
  std::vector<Entry> entries;
  for (const std::string& raw : base::split(lines, "\n")) {
    std::string_view line = raw;
    if (line.ends_with('\r')) line.remove_suffix(1);
    std::optional<Entry> entry = unixLine(line, now);
    if (!entry) entry = dosLine(line);
    if (!entry) entry = factsLine(line);
    if (entry && !entry->name.empty() && entry->name != "." && entry->name != ".." &&
        entry->name.find('/') == std::string::npos) {
      entries.push_back(std::move(*entry));
    }
  }
  return entries;
}

const Entry* named(const std::vector<Entry>& entries, std::string_view name) {
  const auto at =
      std::find_if(entries.begin(), entries.end(), [&](const Entry& e) { return e.name == name; });
  return at == entries.end() ? nullptr : &*at;
}

}  // namespace publish
