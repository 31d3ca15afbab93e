// Any bytes as a *.TFF file. A second reader of the format, made for this file alone, says what must come
// out. The rules' tests run it over a fixed seed; docs/design.md says how libFuzzer does.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "base/error.h"
#include "generators/template_formats.h"

namespace {

using generators::TemplateFormat;
using generators::TemplateFormats;

// Stops at once, in every build, so that a fuzzer keeps the input.
#define MUST(condition) ((condition) ? void() : failed(#condition))
[[noreturn]] void failed(const char* condition) {
  std::fprintf(stderr, "template formats: not so: %s\n", condition);
  std::abort();
}

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

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto wanted = expected(data, size);
  TemplateFormats templates;
  try {
    templates = generators::decodeTemplates(bytes);
  } catch (const base::Error& error) {
    MUST(error.number() == base::ErrorNumber::BadFileFormat);
    MUST(!wanted);
    return 0;
  }
  MUST(wanted);
  MUST(templates == wanted->templates);
  MUST(generators::encodeTemplates(templates) == bytes.substr(0, wanted->size));
  for (const TemplateFormat& format : templates) checkParts(format);
  return 0;
}
