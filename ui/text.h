// Interface texts: kept exactly as the system has them, shown as Unicode.
#pragma once

#include <string>
#include <string_view>

namespace ui {

enum class TextKind {
  Plain,     // UTF-8, shown as it is
  Keyboard,  // Latin letters of the keyboard-layout font: "faili" is ფაილი
  Legacy,    // bytes of the 8-bit Georgian font: C0 is ა
};

// A text of the interface. Texts of different kinds cannot be joined; show() them first.
struct Text {
  std::string bytes;
  TextKind kind = TextKind::Plain;

  Text() = default;
  Text(const char* plain) : bytes(plain) {}             // NOLINT: plain texts are the common case
  Text(std::string plain) : bytes(std::move(plain)) {}  // NOLINT
  Text(std::string text, TextKind of) : bytes(std::move(text)), kind(of) {}

  bool empty() const { return bytes.empty(); }
  bool operator==(const Text&) const = default;
};

// What the user sees, as UTF-8: all 33 letters of the two Georgian kinds become Unicode Georgian; every other
// character stays. Plain text comes back unchanged.
std::string display(const Text& text);

inline namespace literals {

Text operator""_keyboard(const char* text, std::size_t size);

// Readable Latin-1 in the source ("×ÀÉËÉ"), stored as one byte a letter.
template <std::size_t N>
struct Latin1 {
  char bytes[N]{};
  std::size_t size = 0;
  consteval Latin1(const char (&utf8)[N]) {  // NOLINT: implicit by design of literals
    for (std::size_t i = 0; i + 1 < N; ++i) {
      const auto lead = static_cast<unsigned char>(utf8[i]);
      if (lead < 0x80) {
        bytes[size++] = utf8[i];
      } else {
        if (lead != 0xC2 && lead != 0xC3) throw "a legacy text is written in Latin-1 letters";
        const auto next = static_cast<unsigned char>(utf8[++i]);
        bytes[size++] = static_cast<char>(((lead & 3) << 6) | (next & 0x3F));
      }
    }
  }
};

template <Latin1 text>
Text operator""_legacy() {
  return {std::string(text.bytes, text.size), TextKind::Legacy};
}

}  // namespace literals
}  // namespace ui
