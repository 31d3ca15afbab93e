// Template formats: named pairs of texts that are put around a selection, and their files (*.TFF).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace generators {

// Stands between the beginning and the end of a template; looked for from the right.
inline constexpr std::string_view kTemplateSeparator = "<\xA7$\xA7>";

struct TemplateFormat {
  std::string name;  // byte text, as in the file
  std::string text;  // beginning, separator, end

  // Throws base::Error when the end holds the separator, or when name or text are longer than a file can say.
  static TemplateFormat of(std::string name, std::string_view beginning, std::string_view end);
  std::string beginning() const;  // the whole text when there is no separator
  std::string end() const;
  bool operator==(const TemplateFormat&) const = default;
};

using TemplateFormats = std::vector<TemplateFormat>;
inline constexpr std::size_t kMostTemplates = 32768;  // the upper bound has 16 bits, one for the sign

// Throws base::Error when there are too many, or when a name or text is longer than a file can say.
std::string encodeTemplates(const TemplateFormats& templates);
// What follows the last record is left alone. Throws base::Error(BadFileFormat) when the file is shorter than
// it says.
TemplateFormats decodeTemplates(std::string_view bytes);

}  // namespace generators
