// Values of properties, changed by choosing: a keyword, unit, colour, font or address takes its place among
// what stands there.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/color.h"
#include "markup/css_properties.h"

namespace markup {

// Of the first number in the value; empty: it has none (nothing: there is no number).
std::optional<std::string> unitOf(std::string_view value);
// All numbers with this unit; zero without a unit stays.
std::string withUnit(const std::string& value, std::string_view unit);

std::vector<std::string> colorNames();  // those of the palette
// Of the first colour: #RGB, #RRGGBB, rgb(...), or a name of the palette.
std::optional<base::Color> colorOf(std::string_view value);

// Of a property with several values the new one takes the place of what has the same meaning, or comes last;
// else it is the whole value.
std::string withKeyword(const CssProperty& property, const std::string& value, const std::string& keyword);
std::string withColor(const CssProperty& property, const std::string& value, const std::string& color);
std::string withUrl(const CssProperty& property, const std::string& value, std::string_view address);

// Behind the fonts that are there, but before a generic one; a font that is in the list is not put in again.
// `generic` are the names that are written without quotes. Bytes of the document.
std::string withFont(const std::string& value, const std::string& font,
                     const std::vector<std::string>& generic);

// Without blanks at both ends; an "!important" at the end is cut off and told.
struct TypedValue {
  std::string value;
  bool important;
};
TypedValue typedValue(std::string_view text);

}  // namespace markup
