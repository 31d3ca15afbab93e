// The one mapping between bytes and characters: Windows-1252 with 81 8D 8F 90 9D kept as U+0081.., so that
// every byte has one character and comes back as the same byte.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

char16_t charOfByte(std::uint8_t byte);
// Nothing when no byte stands for the character.
std::optional<std::uint8_t> byteOfChar(char32_t character);

std::string utf8FromBytes(std::string_view bytes);
// Nothing when `utf8` is malformed or holds a character that no byte stands for.
std::optional<std::string> bytesFromUtf8(std::string_view utf8);

// A path or name as it stands in the program's 8-bit files: Windows-1252 where that can carry it and reads
// back as the same name, its own UTF-8 where not.
std::string storedName(std::string_view utf8);
std::string nameFromStored(std::string_view stored);

}  // namespace base
