#include "tests/support/plain_rtf.h"

#include "base/utf8.h"

namespace tests {
namespace {

constexpr std::string_view kHexDigits = "0123456789abcdef";

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

void appendNumbered(std::string& rtf, char c) {
  const auto byte = static_cast<unsigned char>(c);
  rtf += "\\'";
  rtf += kHexDigits[byte >> 4];
  rtf += kHexDigits[byte & 15];
}

// Characters that are RTF's own or end the entry would spoil the table; no font's name needs them.
std::string fontEntry(std::string_view name) {
  std::string entry;
  for (std::size_t at = 0; at < name.size();) {
    const auto character = base::nextUtf8(name, at);
    if (!character) {
      ++at;
    } else if (*character >= 0x80) {
      // RTF counts in signed 16-bit numbers.
      if (*character < 0x10000) {
        entry += "\\u" + std::to_string(static_cast<std::int16_t>(static_cast<char16_t>(*character))) + "?";
      }
    } else if (std::string_view("\\{};<>=").find(static_cast<char>(*character)) == std::string_view::npos) {
      entry += static_cast<char>(*character);
    }
  }
  return entry;
}

}  // namespace

std::string plainRtf(std::string_view bytes, std::string_view lineEnd, std::string_view fontName) {
  std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff2{\\fonttbl";
  const std::string font = fontEntry(fontName);
  // Character set 0 throughout: else the numbered bytes are read by the system's own code page.
  for (const char* number : {"0", "1", "2"}) {
    rtf += "{\\f";
    rtf += number;
    rtf += "\\fnil\\fcharset0 " + font + ";}";
  }
  rtf += "}\r\n";
  rtf += kPlainColorTable;
  rtf += "\r\n\\pard\\plain\\f2\\fs20\\cf0\r\n";
  rtf.reserve(rtf.size() + bytes.size() + bytes.size() / 4);

  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char c = bytes[at];
    const auto byte = static_cast<unsigned char>(c);
    if (c == lineEnd[0] && bytes.substr(at, lineEnd.size()) == lineEnd) {
      rtf += "\\par\r\n";
      at += lineEnd.size() - 1;
    } else if (c == '\\' || c == '{' || c == '}') {
      rtf += '\\';
      rtf += c;
    } else if (c == '\t') {
      rtf += "\\tab\r\n";
    } else if (byte < ' ' || byte > '~' || (at > 0 && bytes[at - 1] == '=' && isLetter(c))) {
      appendNumbered(rtf, c);
    } else {
      rtf += c;
    }
  }
  rtf += '}';
  return rtf;
}

}  // namespace tests
