// Made-up pages for measuring the search: markup, words, and a few terms that come back.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace bench {

// Letters of the page's Georgian: transliteration, legacy font bytes, or UTF-8.
inline std::string georgian(const std::string& latin, unsigned form) {
  constexpr std::string_view kLatin = "abgdevzTiklmnopJrstufqRySCcZwWxj";
  constexpr std::string_view kLegacy =
      "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC8\xC9\xCA\xCB\xCC\xCD\xCF\xD0\xD1\xD2\xD3\xD4\xD6\xD7\xD8\xD9\xDA\xDB"
      "\xDC\xDD\xDE\xDF\xE0\xE1\xE3";
  std::string text;
  for (const char c : latin) {
    const std::size_t letter = kLatin.find(c);
    if (form == 0 || letter == std::string_view::npos) {
      text += c;
    } else if (form == 1) {
      text += kLegacy[letter];
    } else {
      text += {'\xE1', '\x83', static_cast<char>(0x90 + letter)};
    }
  }
  return text;
}

inline std::string page(unsigned number, std::size_t size) {
  constexpr std::string_view kLetters = "aaaaabgddeeeeevzTiiiiikllmmnnoooppJrrrsssttuuufqRySCcZwWxj";
  std::mt19937 random(number);  // NOLINT: the same page in every run
  std::string text = "<HTML>\r\n<BODY>\r\n";
  while (text.size() < size) {
    text += random() % 8 == 0 ? "<P ALIGN=\"left\"><FONT SIZE=2>" : "<P>";
    for (unsigned words = 5 + random() % 20; words > 0; --words) {
      std::string word;
      for (std::size_t length = 2 + random() % 10; length > 0; --length)
        word += kLetters[random() % kLetters.size()];
      if (random() % 600 == 0) word = "Tbilisi";
      text += georgian(word, number % 3) + (random() % 12 == 0 ? ",\r\n" : " ");
    }
    if (random() % 10 == 0) text += "<A HREF=\"page" + std::to_string(random() % 1000) + ".html\">";
    text += "</P>\r\n";
  }
  text.resize(size);
  return text;
}

// As a user may look for a word in pages of every form, and for something that is nowhere.
inline std::vector<std::string> searchTerms() {
  return {"Tbilisi", georgian("Tbilisi", 1), georgian("Tbilisi", 2), "HREF=\"page", "nosuchword"};
}

}  // namespace bench
