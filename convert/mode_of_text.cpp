#include "convert/mode_of_text.h"

#include <cstddef>

#include "base/utf8.h"
#include "convert/detector.h"

namespace convert {
namespace {

constexpr std::size_t kLookedAt = 0x40000;
constexpr std::size_t kFewest = 8;  // letters that decide nothing
constexpr int kSure = 90;           // percent

}  // namespace

std::optional<TypingMode> modeOfText(std::string_view text) {
  text = text.substr(0, kLookedAt);
  if (base::readsAsUtf8(text)) return std::nullopt;
  const Detection detection = detect(text, {});
  const PageVerdict& page = detection.page;
  if (page.letters < kFewest || page.confidence < kSure) return std::nullopt;
  switch (page.form) {
    case Form::Russian:
      return TypingMode::Russian;
    case Form::Legacy:
      return TypingMode::GeorgianISO;
    case Form::Keyboard:
      return TypingMode::GeorgianASCII;
    default:
      return std::nullopt;
  }
}

}  // namespace convert
