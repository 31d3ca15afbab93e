// Fonts whose names tell in what form a text is.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "convert/forms.h"

namespace convert {

class FontTable {
 public:
  // The table that comes with the program (resources/custom/FONTS.txt, whose head describes the format).
  static const FontTable& builtIn();

  // Adds the lines of a table, before those that are there. A line that is none is passed over; returns the
  // numbers of such lines, from 1 on.
  std::vector<std::size_t> add(std::string_view lines);

  // The form of texts in this font; nothing for a name that no line knows.
  std::optional<Form> formOf(std::string_view font) const;

 private:
  struct Pattern {
    std::string name;  // folded
    Form form;
  };
  std::unordered_map<std::string, Form> names_;
  std::vector<Pattern> patterns_;  // those with a "*", the strongest first
};

}  // namespace convert
