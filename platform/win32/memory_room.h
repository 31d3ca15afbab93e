// How much text the rich-text control can take before it breaks the process.
#pragma once

#include <cstddef>
#include <string_view>

namespace win32 {

// Whether the control can hold `text` when `given` bytes of text are taken out of it before.
bool roomForText(std::string_view text, std::size_t given);

}  // namespace win32
