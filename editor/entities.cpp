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

// What Windows-1251 has where Windows-1252 has it too; at all other bytes above 7F it has letters, or
// something else.
constexpr std::string_view kAlsoRussian =
    "\x82\x84\x85\x86\x87\x89\x8B\x91\x92\x93\x94\x95\x96\x97\x99\x9B\xA0\xA4\xA6\xA7\xA9\xAB\xAC\xAD\xAE\xB0"
    "\xB1\xB5\xB6\xB7\xBB";

// The byte is, in such a page, the character that Windows-1252 has for it.
bool isWestern(unsigned char byte, PageBytes page) {
  if (page == PageBytes::EightBit) return byte < kLegacyLetters;
  return byte < 0x80 || kAlsoRussian.find(static_cast<char>(byte)) != std::string_view::npos;
}

// The character's bytes in the page; empty when it has none there.
std::string bytesOf(char32_t character, PageBytes page) {
  std::string bytes;
  if (page == PageBytes::Utf8) {
    base::appendUtf8(bytes, character);
  } else if (const auto byte = base::byteOfChar(character); byte && isWestern(*byte, page)) {
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

// The character that begins at `at`, and `at` behind it.
std::optional<char32_t> take(std::string_view text, std::size_t& at, PageBytes page) {
  const auto byte = static_cast<unsigned char>(text[at]);
  if (page == PageBytes::Utf8) {
    if (const auto character = base::nextUtf8(text, at)) return character;
  } else if (isWestern(byte, page)) {
    ++at;
    return base::charOfByte(byte);
  }
  ++at;
  return std::nullopt;
}

}  // namespace

PageBytes pageBytes(std::string_view page, ui::CharacterSet font) {
  if (base::isUtf8(page)) return PageBytes::Utf8;
  return font == ui::CharacterSet::Russian ? PageBytes::Russian : PageBytes::EightBit;
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
