#include "editor/entities.h"

#include <optional>
#include <unordered_map>

#include "base/cp1252.h"
#include "base/utf8.h"

namespace editor {
namespace {

constexpr std::size_t kLongestName = 8;

// Letters from here on are Georgian ones in a page of the legacy font, whatever they are elsewhere.
constexpr unsigned char kLegacyLetters = 0xC0;

const std::unordered_map<char32_t, const Entity*>& byCharacter() {
  static const auto map = [] {
    std::unordered_map<char32_t, const Entity*> made;
    for (const Entity& entity : entities()) made.emplace(entity.character, &entity);
    return made;
  }();
  return map;
}

// The character's bytes in the page; empty when it has none there.
std::string bytesOf(char32_t character, PageBytes page) {
  std::string bytes;
  if (page == PageBytes::Utf8) {
    base::appendUtf8(bytes, character);
  } else if (const auto byte = base::byteOfChar(character); byte && *byte < kLegacyLetters) {
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

// The character that begins at `at`, and `at` behind it.
std::optional<char32_t> take(std::string_view text, std::size_t& at, PageBytes page) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (page == PageBytes::Utf8) {
    if (const auto character = base::nextUtf8(text, at)) return character;
  } else if (byte < kLegacyLetters) {
    ++at;
    return base::charOfByte(byte);
  }
  ++at;
  return std::nullopt;
}

}  // namespace

PageBytes pageBytes(std::string_view page) {
  return base::isUtf8(page) ? PageBytes::Utf8 : PageBytes::EightBit;
}

std::string encodeEntities(std::string_view text, PageBytes page) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const auto character = take(text, at, page);
    const auto found = character ? byCharacter().find(*character) : byCharacter().end();
    if (found == byCharacter().end()) {
      out += text.substr(start, at - start);
    } else {
      out += '&';
      out += found->second->name;
      out += ';';
    }
  }
  return out;
}

std::string decodeEntities(std::string_view text, PageBytes page) {
  std::string out;
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string_view::npos;) {
    const std::string_view behind = text.substr(at + 1, kLongestName + 1);
    const std::size_t size = behind.find(';');
    const auto character =
        size == std::string_view::npos ? std::nullopt : markup::characterNamed(behind.substr(0, size));
    const std::string bytes = character ? bytesOf(*character, page) : std::string();
    if (bytes.empty()) {
      ++at;
      continue;
    }
    out += text.substr(done, at - done);
    out += bytes;
    at += size + 2;
    done = at;
  }
  out += text.substr(done);
  return out;
}

}  // namespace editor
