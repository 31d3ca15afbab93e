#include "convert/forms.h"

#include <algorithm>

namespace convert {
namespace {

constexpr std::array<std::string_view, kForms> kNames = {"utf-8",        "ascii",      "legacy",  "academy",
                                                         "keyboard",     "references", "russian", "western",
                                                         "double-utf-8", "mixed",      "unknown"};

}  // namespace

std::string_view nameOf(Form form) {
  return kNames[static_cast<std::size_t>(form)];
}

std::optional<Form> formNamed(std::string_view name) {
  const auto* const at = std::ranges::find(kNames, name);
  if (at == kNames.end()) return std::nullopt;
  return static_cast<Form>(at - kNames.begin());
}

}  // namespace convert
