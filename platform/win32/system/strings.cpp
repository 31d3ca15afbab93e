#include "platform/win32/system/strings.h"

#include <array>

#include "base/cp1252.h"
#include "base/utf8.h"
#include "platform/win32/system/windows_api.h"

namespace win32 {
namespace {

bool isSurrogate(wchar_t c) {
  return c >= 0xD800 && c < 0xE000;
}

// Stands for the byte of its number.
bool isStandIn(char32_t character) {
  return character >= 0xE000 && character <= 0xE0FF;
}

}  // namespace

std::wstring wideFromUtf8(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      size == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size)));
  return wide;
}

std::string utf8FromWide(std::wstring_view wide) {
  if (wide.empty()) return {};
  const int size = static_cast<int>(wide.size());
  std::string utf8(wide.size() * 3, '\0');
  utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, utf8.data(),
                                                           static_cast<int>(utf8.size()), nullptr, nullptr)));
  return utf8;
}

std::wstring wideFromText(const ui::Text& text) {
  return wideFromUtf8(ui::display(text));
}

std::wstring wideFromBytes(std::string_view bytes) {
  static const auto table = [] {
    std::array<wchar_t, 256> chars{};
    for (unsigned byte = 0; byte < chars.size(); ++byte) {
      chars[byte] = static_cast<wchar_t>(base::charOfByte(static_cast<std::uint8_t>(byte)));
    }
    chars[0] = kNulStandIn;
    return chars;
  }();
  std::wstring wide(bytes.size(), L'\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) wide[i] = table[static_cast<unsigned char>(bytes[i])];
  return wide;
}

std::string bytesFromWide(std::wstring_view wide) {
  std::string bytes;
  bytes.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size(); ++at) {
    const wchar_t c = wide[at];
    if (c < 0x80) {
      bytes += static_cast<char>(c);
    } else if (const auto byte = base::byteOfChar(c)) {
      bytes += static_cast<char>(*byte);
    } else if (c == kNulStandIn) {
      bytes += '\0';
    } else {
      const std::size_t size = isSurrogate(c) && at + 1 < wide.size() && isSurrogate(wide[at + 1]) ? 2 : 1;
      bytes += utf8FromWide(wide.substr(at, size));
      at += size - 1;
    }
  }
  return bytes;
}

std::wstring wideFromUtf8Bytes(std::string_view bytes) {
  std::wstring wide;
  wide.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t start = at;
    const auto character = base::nextUtf8(bytes, at);
    if (!character || *character == 0 || isStandIn(*character)) {
      at = start + 1;
      wide += static_cast<wchar_t>(0xE000 + static_cast<unsigned char>(bytes[start]));
    } else if (*character < 0x10000) {
      wide += static_cast<wchar_t>(*character);
    } else {
      wide += static_cast<wchar_t>(0xD7C0 + (*character >> 10));
      wide += static_cast<wchar_t>(0xDC00 + (*character & 0x3FF));
    }
  }
  return wide;
}

std::string utf8BytesFromWide(std::wstring_view wide) {
  std::string bytes;
  bytes.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size();) {
    std::size_t end = at;
    while (end < wide.size() && !isStandIn(wide[end])) ++end;
    bytes += utf8FromWide(wide.substr(at, end - at));
    for (at = end; at < wide.size() && isStandIn(wide[at]); ++at) bytes += static_cast<char>(wide[at] & 0xFF);
  }
  return bytes;
}

}  // namespace win32
