#include "ui/text.h"

#include "base/cp1252.h"
#include "base/utf8.h"

namespace ui {
namespace {

// In alphabet order, so that the place in the string is the distance from U+10D0. All 33 letters: the
// interface also shows the last one, which the conversion commands leave alone.
constexpr std::string_view kKeyboard = "abgdevzTiklmnopJrstufqRySCcZwWxjh";
constexpr std::string_view kLegacy =
    "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC8\xC9\xCA\xCB\xCC\xCD\xCF\xD0\xD1\xD2"
    "\xD3\xD4\xD6\xD7\xD8\xD9\xDA\xDB\xDC\xDD\xDE\xDF\xE0\xE1\xE3\xE4";
constexpr char32_t kFirstLetter = 0x10D0;

}  // namespace

std::string display(const Text& text) {
  if (text.kind == TextKind::Plain) return text.bytes;
  const std::string_view alphabet = text.kind == TextKind::Keyboard ? kKeyboard : kLegacy;
  std::string out;
  for (const char c : text.bytes) {
    const std::size_t at = alphabet.find(c);
    base::appendUtf8(out, at == std::string_view::npos
                              ? char32_t{base::charOfByte(static_cast<std::uint8_t>(c))}
                              : kFirstLetter + static_cast<char32_t>(at));
  }
  return out;
}

inline namespace literals {

Text operator""_keyboard(const char* text, std::size_t size) {
  return {std::string(text, size), TextKind::Keyboard};
}

}  // namespace literals
}  // namespace ui
