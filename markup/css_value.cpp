#include "markup/css_value.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <vector>

#include "base/text.h"
#include "markup/css_tokens.h"
#include "markup/palette.h"

namespace markup {
namespace {

using Kind = CssToken::Kind;

// One of several values, from `start` to `end`.
struct Part {
  std::size_t start;
  std::size_t end;
};

// What blanks, comments and commas part; brackets and what stands in them belong together.
std::vector<Part> partsOf(std::string_view value) {
  std::vector<Part> parts;
  bool fresh = true;
  const std::vector<CssToken> tokens = scanCss(value, CssSpelling::Sheet);
  for (std::size_t at = 0; at < tokens.size();) {
    const std::size_t next = nextCssToken(tokens, at);
    if (tokens[at].filler() || tokens[at].is(',')) {
      fresh = true;
    } else {
      if (fresh) parts.push_back({tokens[at].start, 0});
      parts.back().end = tokens[next - 1].end;
      fresh = false;
    }
    at = next;
  }
  return parts;
}

std::string_view text(std::string_view value, const Part& part) {
  return value.substr(part.start, part.end - part.start);
}

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Where the unit begins; nothing when it is no number.
std::optional<std::size_t> numberEnd(std::string_view part) {
  std::size_t at = !part.empty() && (part[0] == '-' || part[0] == '+') ? 1 : 0;
  bool digits = false;
  while (at < part.size() && (isDigit(part[at]) || part[at] == '.')) digits = isDigit(part[at++]) || digits;
  if (!digits) return std::nullopt;
  const std::string_view unit = part.substr(at);
  const bool letters = std::all_of(unit.begin(), unit.end(), [](char c) {
    return c == '%' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  });
  return letters ? std::optional(at) : std::nullopt;
}

// What stands in the brackets of rgb() and rgba(): numbers to 255, or percents.
std::optional<base::Color> rgbColor(std::string_view inside) {
  std::array<std::uint8_t, 3> bytes{};
  std::size_t count = 0;
  for (const Part& part : partsOf(inside)) {
    const std::string_view one = text(inside, part);
    const auto end = numberEnd(one);
    if (!end) return std::nullopt;
    if (count == bytes.size()) continue;  // the opacity
    int number = 0;
    std::from_chars(one.data(), one.data() + *end, number);
    if (one.substr(*end) == "%") number = std::clamp(number, 0, 100) * 255 / 100;
    bytes[count++] = static_cast<std::uint8_t>(std::clamp(number, 0, 255));
  }
  if (count < bytes.size()) return std::nullopt;
  return base::rgb(bytes[0], bytes[1], bytes[2]);
}

std::optional<base::Color> colorOfPart(std::string_view part) {
  if (part.starts_with('#')) return colorFromHtml(part);
  for (const std::string& name : colorNames()) {
    if (base::equalNoCase(part, name)) return colorFromHtml(name);
  }
  const std::size_t open = part.find('(');
  if (open == std::string_view::npos || !part.ends_with(')')) return std::nullopt;
  const std::string_view name = part.substr(0, open);
  if (!base::equalNoCase(name, "rgb") && !base::equalNoCase(name, "rgba")) return std::nullopt;
  return rgbColor(part.substr(open + 1, part.size() - open - 2));
}

// `isSame` finds the part whose place the new one takes.
std::string placed(const CssProperty& property, const std::string& value, const std::string& added,
                   const std::function<bool(std::string_view)>& isSame) {
  // These two stand alone.
  if (!property.several || base::equalNoCase(value, "none") || base::equalNoCase(value, "inherit"))
    return added;
  for (const Part& part : partsOf(value)) {
    if (isSame(text(value, part))) return value.substr(0, part.start) + added + value.substr(part.end);
  }
  const std::size_t last = value.find_last_not_of(" \t");
  return last == std::string::npos ? added : value.substr(0, last + 1) + " " + added;
}

// Also the names of colours that are not in the palette: every word that the property does not know itself.
bool looksLikeColor(const CssProperty& property, std::string_view part) {
  if (part.starts_with('#') || colorOfPart(part)) return true;
  const std::string_view function = part.substr(0, part.find('('));
  if (function.size() < part.size()) {
    return base::equalNoCase(function, "hsl") || base::equalNoCase(function, "hsla");
  }
  const bool word = std::all_of(part.begin(), part.end(),
                                [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
  return word && std::none_of(property.choices.begin(), property.choices.end(), [&](const auto& choice) {
           return std::any_of(choice.begin(), choice.end(),
                              [&](const std::string& known) { return base::equalNoCase(known, part); });
         });
}

bool isUrl(std::string_view part) {
  return base::equalNoCase(part.substr(0, 4), "url(");
}

}  // namespace

std::optional<std::string> unitOf(std::string_view value) {
  for (const Part& part : partsOf(value)) {
    const std::string_view one = text(value, part);
    if (const auto end = numberEnd(one)) return std::string(one.substr(*end));
  }
  return std::nullopt;
}

std::string withUnit(const std::string& value, std::string_view unit) {
  std::string changed = value;
  std::vector<Part> parts = partsOf(value);
  std::reverse(parts.begin(), parts.end());  // so that places stay right
  bool only = false;                         // a lone zero may get a unit: it is what the user has just typed
  if (parts.size() == 1) only = true;
  for (const Part& part : parts) {
    const std::string_view one = text(value, part);
    const auto end = numberEnd(one);
    if (!end || (one == "0" && !only)) continue;
    changed.replace(part.start + *end, one.size() - *end, unit);
  }
  return changed;
}

std::vector<std::string> colorNames() {
  std::vector<std::string> names;
  for (const PaletteColor& one : palette()) {
    if (*one.name != '\0') names.push_back(one.name);
  }
  for (std::string& name : names) {
    for (char& c : name) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
  }
  return names;
}

std::optional<base::Color> colorOf(std::string_view value) {
  for (const Part& part : partsOf(value)) {
    if (const auto color = colorOfPart(text(value, part))) return color;
  }
  return std::nullopt;
}

std::string withKeyword(const CssProperty& property, const std::string& value, const std::string& keyword) {
  for (const std::vector<std::string>& choice : property.choices) {
    if (std::find(choice.begin(), choice.end(), keyword) == choice.end()) continue;
    return placed(property, value, keyword, [&](std::string_view part) {
      return std::any_of(choice.begin(), choice.end(),
                         [&](const std::string& word) { return base::equalNoCase(word, part); });
    });
  }
  return keyword;
}

std::string withColor(const CssProperty& property, const std::string& value, const std::string& color) {
  return placed(property, value, color,
                [&](std::string_view part) { return looksLikeColor(property, part); });
}

std::string withUrl(const CssProperty& property, const std::string& value, std::string_view address) {
  return placed(property, value, "url(" + std::string(address) + ")", isUrl);
}

std::string withFont(const std::string& value, const std::string& font,
                     const std::vector<std::string>& generic) {
  const auto isGeneric = [&](std::string_view name) {
    return std::find(generic.begin(), generic.end(), name) != generic.end();
  };
  const bool plain = isGeneric(font) || std::all_of(font.begin(), font.end(), [](char c) {
                       return c == '-' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
                     });
  const std::string written = plain ? font : "\"" + base::replaceAll(font, "\"", "\\\"") + "\"";
  // The names of the list; blanks within belong to a name.
  std::vector<std::string> names;
  std::size_t start = 0;
  const auto add = [&](std::size_t end) {
    const std::string name = typedValue(std::string_view(value).substr(start, end - start)).value;
    if (!name.empty()) names.push_back(name);
  };
  for (const CssToken& token : scanCss(value, CssSpelling::Sheet)) {
    if (!token.is(',')) continue;
    add(token.start);
    start = token.end;
  }
  add(value.size());
  for (const std::string& name : names) {
    if (base::equalNoCase(name, written) || name == "'" + font + "'" || base::equalNoCase(name, font))
      return value;
  }
  const bool before = !names.empty() && isGeneric(names.back()) && !isGeneric(font);
  names.insert(before ? names.end() - 1 : names.end(), written);
  return base::join(names, ", ");
}

TypedValue typedValue(std::string_view text) {
  const auto trim = [](std::string_view whole) {
    while (!whole.empty() && isCssBlank(whole.front())) whole.remove_prefix(1);
    while (!whole.empty() && isCssBlank(whole.back())) whole.remove_suffix(1);
    return whole;
  };
  const std::string_view all = trim(text);
  constexpr std::string_view kImportant = "important";
  if (all.size() > kImportant.size() &&
      base::equalNoCase(all.substr(all.size() - kImportant.size()), kImportant)) {
    const std::string_view before = trim(all.substr(0, all.size() - kImportant.size()));
    if (before.ends_with('!')) return {std::string(trim(before.substr(0, before.size() - 1))), true};
  }
  return {std::string(all), false};
}

}  // namespace markup
