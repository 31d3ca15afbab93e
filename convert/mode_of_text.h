// In which typing mode a page's letters are written.
#pragma once

#include <optional>
#include <string_view>

namespace convert {

enum class TypingMode {
  Russian,        // Latin keys give Windows-1251 bytes
  GeorgianISO,    // Latin keys give bytes of the legacy font
  GeorgianASCII,  // Latin keys stay, shown in the keyboard-layout font
  Latin,
};

// From the beginning of the text; nothing when its letters do not say.
std::optional<TypingMode> modeOfText(std::string_view text);

}  // namespace convert
