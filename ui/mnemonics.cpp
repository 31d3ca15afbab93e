#include "ui/mnemonics.h"

#include <set>

#include "base/utf8.h"

namespace ui {
namespace {

char32_t folded(char32_t c) {
  return c >= U'a' && c <= U'z' ? c - (U'a' - U'A') : c;
}

// What the keyboards of the users type without further ado.
bool isLetter(char32_t c) {
  const char32_t upper = folded(c);
  return (upper >= U'A' && upper <= U'Z') || (c >= U'0' && c <= U'9') || (c >= U'\u10D0' && c <= U'\u10F0');
}

// As far as it is well-formed.
std::u32string charactersOf(const std::string& utf8) {
  std::u32string characters;
  for (std::size_t at = 0; at < utf8.size();) {
    const auto next = base::nextUtf8(utf8, at);
    if (!next) break;
    characters += *next;
  }
  return characters;
}

// 0: none is marked.
char32_t markedLetter(const std::u32string& text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (text[at] != U'&') continue;
    if (text[at + 1] != U'&') return folded(text[at + 1]);
    ++at;
  }
  return 0;
}

char32_t freeLetter(const std::u32string& text, const std::set<char32_t>& taken) {
  char32_t inside = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char32_t letter = folded(text[at]);
    if (!isLetter(letter) || taken.contains(letter)) continue;
    if (at == 0 || !isLetter(text[at - 1])) return letter;
    if (inside == 0) inside = letter;
  }
  return inside;
}

}  // namespace

std::u32string freeMnemonics(const std::vector<MnemonicCaption>& captions) {
  std::vector<std::u32string> texts;
  std::set<char32_t> taken;
  for (const MnemonicCaption& caption : captions) {
    texts.push_back(charactersOf(caption.text));
    taken.insert(markedLetter(texts.back()));
  }
  std::u32string letters(captions.size(), 0);
  for (std::size_t i = 0; i < captions.size(); ++i) {
    if (!captions[i].wants || markedLetter(texts[i]) != 0) continue;
    letters[i] = freeLetter(texts[i], taken);
    taken.insert(letters[i]);
  }
  return letters;
}

std::string withMnemonic(const std::string& text, char32_t letter) {
  if (letter == 0 || markedLetter(charactersOf(text)) != 0) return text;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const auto next = base::nextUtf8(text, at);
    if (!next) break;
    if (folded(*next) == letter) return text.substr(0, start) + "&" + text.substr(start);
  }
  return text;
}

}  // namespace ui
