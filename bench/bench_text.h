// Texts for the measurements: one made-up page in every form that a pair reads.
#pragma once

#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

#include "bench/bench_pairs.h"
#include "convert/replacement.h"

namespace bench {

inline std::string readAll(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline convert::LetterTables letterTables() {
  return convert::loadLetterTables([](std::string_view name) {
    return readAll(std::string(ZERVO_SOURCE "/resources/custom/") + std::string(name) + ".bin");
  });
}

// Words of 2 to 11 Georgian letters in Latin transliteration, in lines of about 70, with digits and
// punctuation. Without the last letter, which no conversion touches and iconv does.
inline std::string latinText(std::size_t size) {
  constexpr std::string_view kLetters = "aaaaabgddeeeeevzTiiiiikllmmnnoooppJrrrsssttuuufqRySCcZwWxj";
  std::mt19937 random(1);  // NOLINT: the same text in every run
  std::string text;
  text.reserve(size + 80);
  for (std::size_t line = 0; text.size() < size;) {
    const std::size_t before = text.size();
    for (std::size_t length = 2 + random() % 10; length > 0; --length)
      text += kLetters[random() % kLetters.size()];
    const unsigned kind = random() % 20;
    text += kind == 0 ? ". " : kind < 3 ? ", " : kind == 3 ? " 1234 " : " ";
    line += text.size() - before;
    if (line >= 70) {
      text += "\r\n";
      line = 0;
    }
  }
  text.resize(size);
  return text;
}

// About `size` bytes of the form that the pair reads; exactly that where a letter is one byte.
inline std::string sourceOf(const Pair& pair, const Tables& tables, std::size_t size) {
  std::string text = latinText(size / (tables.*pair.from)[0].size());
  const bool russian = pair.from == &Tables::RUSULI_FONTCODES || pair.from == &Tables::RUSULI_HEX;
  const convert::Table* alphabet = &tables.GRIGOLIA;
  if (russian) {  // a text of the same shape
    for (char& c : text) {
      if (c >= 'A') c = static_cast<char>(0xC0 + (c & 0x3F));
    }
    alphabet = &tables.RUSULI_FONTCODES;
  }
  if (&(tables.*pair.from) == alphabet) return text;
  return convert::Replacement(*alphabet, tables.*pair.from)(text);
}

}  // namespace bench
