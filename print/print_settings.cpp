#include "print/print_settings.h"

#include <array>
#include <charconv>
#include <optional>

#include "base/text.h"

namespace print {
namespace {

constexpr const char* kSection = "print";
constexpr const char* kKey = "page";
constexpr int kLeast = 1000;  // of a sheet's side, in 1/100 mm
constexpr int kMost = 1000000;

// The fields in the order in which they are kept.
template <class Settings>
auto fields(Settings& settings) {
  auto& setup = settings.setup;
  return std::array{&setup.paper, &setup.width, &setup.height, &setup.left,
                    &setup.top,   &setup.right, &setup.bottom};
}

std::optional<int> number(const std::string& text) {
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || value < 0) return std::nullopt;
  return value;
}

bool possible(const ui::PageSetup& setup) {
  const auto side = [](int length, int before, int behind) {
    return length >= kLeast && length <= kMost && before < length && behind < length - before;
  };
  return side(setup.width, setup.left, setup.right) && side(setup.height, setup.top, setup.bottom);
}

}  // namespace

PrintSettings readPrintSettings(const ui::Platform& platform) {
  const std::vector<std::string> words = base::split(platform.registryValue(kSection, kKey), " ");
  PrintSettings read;
  const auto places = fields(read);
  if (words.size() != places.size() + 2) return {};
  std::vector<int> values;
  for (const std::string& word : words) {
    const auto value = number(word);
    if (!value) return {};
    values.push_back(*value);
  }
  for (std::size_t i = 0; i < places.size(); ++i) *places[i] = values[i];
  read.setup.landscape = values[places.size()] != 0;
  read.lineNumbers = values[places.size() + 1] != 0;
  return possible(read.setup) ? read : PrintSettings();
}

void writePrintSettings(ui::Platform& platform, const PrintSettings& settings) {
  std::string line;
  for (const int* value : fields(settings)) line += std::to_string(*value) + " ";
  line += settings.setup.landscape ? "1 " : "0 ";
  line += settings.lineNumbers ? "1" : "0";
  platform.setRegistryValue(kSection, kKey, line);
}

}  // namespace print
