// Letters that choose the controls of a window together with Alt.
#pragma once

#include <string>
#include <vector>

namespace ui {

struct MnemonicCaption {
  std::string text;  // as displayed, UTF-8; "&" stands before the letter of one that has it
  bool wants;        // gets a letter when it marks none
};

// For each caption that wants a letter and marks none: a letter of it that no other caption has, preferably
// the first of a word; 0 where there is none left, and for all others.
std::u32string freeMnemonics(const std::vector<MnemonicCaption>& captions);

// The caption with "&" before the first `letter` in it; as it is where that does not occur.
std::string withMnemonic(const std::string& text, char32_t letter);

}  // namespace ui
