#include "generators/template_formats.h"

#include <limits>

#include "base/binary.h"
#include "base/error.h"

namespace generators {
namespace {

// Bound and lengths are 16-bit numbers with a sign.
constexpr std::size_t kMost = std::numeric_limits<std::int16_t>::max();

std::string readText(base::BinaryReader& reader) {
  const std::uint16_t size = reader.u16();
  if (size > kMost) throw base::Error(base::ErrorNumber::BadFileFormat, "ფორმატების ფაილი დაზიანებულია.");
  return std::string(reader.raw(size));
}

void checkLength(const std::string& text) {
  if (text.size() > kMost) {
    throw base::Error(base::ErrorNumber::InvalidCall,
                      "ფორმატის ტექსტი მეტისმეტად გრძელია (32767 ბაიტზე მეტი).");
  }
}

}  // namespace

TemplateFormat TemplateFormat::of(std::string name, std::string_view beginning, std::string_view end) {
  if (end.find(kTemplateSeparator) != std::string_view::npos) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ფორმატის ბოლო გამყოფ ნიშანს შეიცავს.");
  }
  TemplateFormat made{std::move(name), std::string(beginning).append(kTemplateSeparator).append(end)};
  checkLength(made.name);
  checkLength(made.text);
  return made;
}

std::string TemplateFormat::beginning() const {
  return text.substr(0, text.rfind(kTemplateSeparator));
}

std::string TemplateFormat::end() const {
  const std::size_t at = text.rfind(kTemplateSeparator);
  return at == std::string::npos ? "" : text.substr(at + kTemplateSeparator.size());
}

std::string encodeTemplates(const TemplateFormats& templates) {
  if (templates.size() > kMostTemplates) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ფორმატები მეტისმეტად ბევრია.");
  }
  base::BinaryWriter writer;
  writer.u16(static_cast<std::uint16_t>(templates.size() - 1));  // the upper bound; -1: none
  for (const TemplateFormat& format : templates) {
    for (const std::string& text : {format.name, format.text}) {
      checkLength(text);
      writer.u16(static_cast<std::uint16_t>(text.size()));
      writer.raw(text);
    }
  }
  return writer.bytes();
}

TemplateFormats decodeTemplates(std::string_view bytes) {
  base::BinaryReader reader(bytes);
  const int count = static_cast<std::int16_t>(reader.u16()) + 1;
  if (count < 0) throw base::Error(base::ErrorNumber::BadFileFormat, "ფორმატების ფაილი დაზიანებულია.");
  TemplateFormats templates;
  for (int i = 0; i < count; ++i) {
    std::string name = readText(reader);
    templates.push_back({std::move(name), readText(reader)});
  }
  return templates;
}

}  // namespace generators
