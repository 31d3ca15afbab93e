// Made-up pages dense with what the editor looks at: the same for the same seed.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace tests {

inline const std::vector<std::string>& htmlParts() {
  static const std::vector<std::string> kParts = {"<",
                                                  ">",
                                                  "\"",
                                                  "=",
                                                  " ",
                                                  "  ",
                                                  "\r\n",
                                                  "\t",
                                                  " NAME=",
                                                  " WIDTH=",
                                                  "WIDTH=",
                                                  "NAME=",
                                                  " bgproperties=",
                                                  "SRC=",
                                                  " TEXT=",
                                                  " TEXTAREA=",
                                                  "<!--",
                                                  "-->",
                                                  "<--",
                                                  "--",
                                                  "\\",
                                                  "{",
                                                  "}",
                                                  "'",
                                                  "<A HREF=",
                                                  "</A>",
                                                  "<TD>",
                                                  "<PRE>",
                                                  "</PRE>",
                                                  "<SCRIPT>",
                                                  "</script>",
                                                  "<?php ",
                                                  "?>",
                                                  "word",
                                                  "\xC0\xC1",
                                                  "\xE1\x83\x90",
                                                  "\x85",
                                                  "0",
                                                  "-5",
                                                  "\\par ",
                                                  "\n",
                                                  "\r",
                                                  std::string(1, '\0'),
                                                  " Width=",
                                                  "<BR>",
                                                  "<B>",
                                                  "</B>",
                                                  "&amp;",
                                                  "{\\colortbl\\red0\\green0\\blue0;}",
                                                  "<P>",
                                                  "\r\n\r\n",
                                                  "<IMG SRC=\"a b\">"};
  return kParts;
}

inline std::string randomHtml(std::mt19937& random, std::size_t size) {
  std::string text;
  while (text.size() < size) text += htmlParts()[random() % htmlParts().size()];
  return text;
}

}  // namespace tests
