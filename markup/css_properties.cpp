#include "markup/css_properties.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace markup {
namespace {

std::vector<std::string> words(std::string_view text) {
  std::vector<std::string> all;
  for (std::string& word : base::split(text, " ")) {
    if (!word.empty()) all.push_back(std::move(word));
  }
  return all;
}

bool setKind(CssProperty& property, std::string_view kind) {
  bool* const flag = kind == "length"    ? &property.length
                     : kind == "color"   ? &property.color
                     : kind == "url"     ? &property.url
                     : kind == "font"    ? &property.font
                     : kind == "several" ? &property.several
                                         : nullptr;
  if (flag != nullptr) *flag = true;
  return flag != nullptr;
}

// False: not a property.
bool readProperty(std::string_view line, CssProperty& property) {
  const std::vector<std::string> fields = base::split(line, "|");
  if (fields.size() != 4 || fields[0].empty() || fields[1].empty()) return false;
  property.name = fields[0];
  property.label = fields[1];
  for (const std::string& kind : words(fields[2])) {
    if (!setKind(property, kind)) return false;
  }
  property.choices.emplace_back();
  for (std::string& word : words(fields[3])) {
    if (word == "/") {
      property.choices.emplace_back();
    } else {
      property.choices.back().push_back(std::move(word));
    }
  }
  return true;
}

bool readLine(std::string_view line, CssProperties& list) {
  const std::string_view rest = line.substr(std::min<std::size_t>(3, line.size()));
  if (line.starts_with("#U=")) {
    list.units = words(rest);
  } else if (line.starts_with("#F=")) {
    list.fonts = words(rest);
  } else if (line.starts_with("#K=")) {
    list.common = words(rest);
  } else if (line.starts_with("#G=")) {
    list.groups.push_back({std::string(rest), {}});
  } else {
    CssProperty property;
    if (list.groups.empty() || !readProperty(line, property)) return false;
    list.groups.back().properties.push_back(std::move(property));
  }
  return true;
}

}  // namespace

const CssProperty* CssProperties::find(std::string_view name) const {
  for (const CssGroup& group : groups) {
    for (const CssProperty& property : group.properties) {
      if (base::equalNoCase(property.name, name)) return &property;
    }
  }
  return nullptr;
}

CssProperties parseCssProperties(std::string_view resource) {
  CssProperties list;
  int number = 0;
  for (const std::string& row : base::split(resource, "\n")) {
    ++number;
    const std::string_view line = std::string_view(row).substr(0, row.find('\r'));
    if (line.empty() || line.front() == ';' || readLine(line, list)) continue;
    throw base::Error(base::ErrorNumber::BadFileFormat, "CSSKODS: bad line " + std::to_string(number));
  }
  return list;
}

}  // namespace markup
