// Character references: by number or by one of the names of HTML 4.01.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace markup {

struct Entity {
  std::string_view name;  // without "&" and ";"
  char32_t character;
};

inline constexpr std::size_t kEntities = 252;
const std::array<Entity, kEntities>& entities();  // by character

std::optional<char32_t> characterNamed(std::string_view name);

struct Reference {
  std::size_t size;  // bytes, with the semicolon when there is one
  char32_t character;
  bool sound;    // ends in a semicolon and stands on one line
  bool numeric;  // by number
};

// The reference at the beginning of `text`. Without its semicolon it is read as browsers do. One that line
// ends have split is none to a browser; it is put together when it ends in a semicolon and gives a letter of
// Latin-1, a Cyrillic or a Georgian one. Nothing for all else.
std::optional<Reference> referenceAt(std::string_view text);

}  // namespace markup
