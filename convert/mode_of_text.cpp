#include "convert/mode_of_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "base/utf8.h"

namespace convert {
namespace {

constexpr std::size_t kLookedAt = 256 * 1024;
constexpr std::size_t kFewest = 8;  // letters that decide nothing

}  // namespace

std::optional<TypingMode> modeOfText(std::string_view text) {
  text = text.substr(0, kLookedAt);
  if (base::readsAsUtf8(text)) return std::nullopt;
  // The legacy font ends at E4; of Russian text two letters of three stand behind that.
  std::size_t letters = 0;
  std::size_t behind = 0;
  for (const char c : text) {
    const auto byte = static_cast<std::uint8_t>(c);
    if (byte >= 0xC0) ++letters;
    if (byte > 0xE4) ++behind;
  }
  if (letters < kFewest) return std::nullopt;
  if (behind * 3 > letters) return TypingMode::Russian;
  if (behind * 20 < letters) return TypingMode::GeorgianISO;
  return std::nullopt;
}

}  // namespace convert
