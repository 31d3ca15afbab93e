// A small reader of RTF, made without regard to the program's writer: the text, and each character's looks.
#pragma once

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tests {

struct RtfText {
  std::string text;             // bytes; \par is CR LF
  std::vector<int> colors;      // one a byte of `text`: 0xRRGGBB by the colour table
  std::vector<int> fonts;       // one a byte: number in the font table
  std::vector<int> halfPoints;  // one a byte
};

inline RtfText readRtf(std::string_view rtf) {
  RtfText out;
  std::vector<int> table;
  int font = -1, size = 24, color = 0;
  int red = 0, green = 0, blue = 0;
  int depth = 0;
  int skipped = 0;  // depth of the group whose text is no text of the document; 0: none
  bool inColors = false;
  const auto put = [&](char c) {
    if (inColors && c == ';') {
      table.push_back(red << 16 | green << 8 | blue);
      red = green = blue = 0;
    }
    if (skipped != 0) return;
    out.text += c;
    out.colors.push_back(color < static_cast<int>(table.size()) ? table[static_cast<std::size_t>(color)] : 0);
    out.fonts.push_back(font);
    out.halfPoints.push_back(size);
  };
  std::size_t at = 0;
  while (at < rtf.size()) {
    const char c = rtf[at++];
    if (c == '{') {
      ++depth;
    } else if (c == '}') {
      if (depth == skipped) skipped = 0, inColors = false;
      --depth;
    } else if (c == '\r' || c == '\n') {
    } else if (c != '\\') {
      put(c);
    } else if (rtf.at(at) == '\'') {
      put(static_cast<char>(std::stoi(std::string(rtf.substr(at + 1, 2)), nullptr, 16)));
      at += 3;
    } else if (rtf.at(at) == '\\' || rtf.at(at) == '{' || rtf.at(at) == '}') {
      put(rtf[at++]);
    } else {
      const std::size_t start = at;
      while (std::isalpha(static_cast<unsigned char>(rtf.at(at))) != 0) ++at;
      const std::string word(rtf.substr(start, at - start));
      if (word.empty()) throw std::runtime_error("a control symbol that nobody knows");
      const std::size_t digits = at;
      if (rtf.at(at) == '-') ++at;
      while (std::isdigit(static_cast<unsigned char>(rtf.at(at))) != 0) ++at;
      const int number = std::atoi(std::string(rtf.substr(digits, at - digits)).c_str());
      if (rtf.at(at) == ' ') ++at;
      if (word == "fonttbl" || word == "colortbl") skipped = depth;
      if (word == "colortbl") inColors = true;
      if (word == "red") red = number;
      if (word == "green") green = number;
      if (word == "blue") blue = number;
      if (skipped != 0) continue;
      if (word == "par") put('\r'), put('\n');
      if (word == "tab") put('\t');
      if (word == "plain") font = -1, size = 24, color = 0;
      if (word == "f") font = number;
      if (word == "fs") size = number;
      if (word == "cf") color = number;
    }
  }
  if (depth != 0) throw std::runtime_error("braces do not match");
  return out;
}

}  // namespace tests
