// Any bytes as a *.TFF file. A second reader of the format, made for this file alone, says what must come
// out.
#include <optional>

#include "base/error.h"
#include "generators/template_formats.h"
#include "tests/fuzz/fuzz.h"

namespace {

using generators::TemplateFormat;
using generators::TemplateFormats;

struct Expected {
  TemplateFormats templates;
  std::size_t size = 0;  // of the bytes that they take
};

// Nothing: the file is to be refused.
std::optional<Expected> expected(const std::uint8_t* data, std::size_t size) {
  Expected out;
  const auto number = [&]() -> std::optional<int> {
    if (size - out.size < 2) return std::nullopt;
    const int value = data[out.size] + 256 * data[out.size + 1];
    out.size += 2;
    return value < 32768 ? value : value - 65536;
  };
  const auto text = [&](std::string& into) {
    const auto length = number();
    if (!length || *length < 0 || size - out.size < static_cast<std::size_t>(*length)) return false;
    into.assign(data + out.size, data + out.size + *length);
    out.size += static_cast<std::size_t>(*length);
    return true;
  };
  const auto bound = number();
  if (!bound || *bound < -1) return std::nullopt;
  for (int i = 0; i <= *bound; ++i) {
    TemplateFormat one;
    if (!text(one.name) || !text(one.text)) return std::nullopt;
    out.templates.push_back(one);
  }
  return out;
}

// Taken apart and put together again, as the dialog does with a template that is selected and changed.
void checkParts(const TemplateFormat& format) {
  const std::string beginning = format.beginning();
  const std::string end = format.end();
  MUST(end.find(generators::kTemplateSeparator) == std::string::npos);
  if (format.text.find(generators::kTemplateSeparator) == std::string::npos) {
    MUST(beginning == format.text && end.empty());
  } else {
    MUST(TemplateFormat::of(format.name, beginning, end) == format);
  }
}

}  // namespace

FUZZ(TemplateFormats,
     {std::string("\0\0\1\0T\6\0X<\xA7$\xA7>", 13), "\xFF\xFF", "\xFF\x7F", std::string("\0\0", 2),
      std::string("\2\0", 2), std::string("\1\0A", 3), std::string("\0\x80", 2), "<\xA7$\xA7>", "z"}) {
  const auto wanted = expected(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  TemplateFormats templates;
  try {
    templates = generators::decodeTemplates(bytes);
  } catch (const base::Error& error) {
    MUST(error.number() == base::ErrorNumber::BadFileFormat);
    MUST(!wanted);
    return;
  }
  MUST(wanted);
  MUST(templates == wanted->templates);
  MUST(generators::encodeTemplates(templates) == bytes.substr(0, wanted->size));
  for (const TemplateFormat& format : templates) checkParts(format);
}
