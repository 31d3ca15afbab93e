#include "convert/page_census.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "base/utf8.h"

namespace convert {
namespace {

constexpr std::uint64_t kHighBits = 0x8080808080808080;
constexpr std::size_t kEnoughLoneBytes = 10000;
constexpr std::size_t kSample = std::size_t{64} * 1024;

std::uint8_t byteAt(std::string_view text, std::size_t at) {
  return static_cast<std::uint8_t>(text[at]);
}

// Beginnings of files that are no text.
constexpr std::array<std::string_view, 17> kSignatures = {"\x89PNG",
                                                          "GIF87a",
                                                          "GIF89a",
                                                          "\xFF\xD8\xFF",
                                                          "%PDF-",
                                                          "PK\x03\x04",
                                                          "PK\x05\x06",
                                                          "\x7F"
                                                          "ELF",
                                                          "\x1F\x8B",
                                                          "Rar!\x1A",
                                                          "7z\xBC\xAF",
                                                          "BZh",
                                                          "\xD0\xCF\x11\xE0",
                                                          "RIFF",
                                                          "ITSF",
                                                          "OggS",
                                                          "wOFF"};

// Without short cuts, which would stand in the way of counting many at a time.
std::uint8_t isControl(std::uint8_t byte) {
  const bool white = static_cast<std::uint8_t>(byte - 9) <= 4;
  return ((byte < 0x20) & !white & ((byte & 0xFE) != 0x1A)) | (byte == 0x7F);
}

// In blocks whose count fits a byte, so that the compiler can count many bytes at a time.
std::size_t controlsIn(std::string_view text) {
  constexpr std::size_t kBlock = 192;
  std::size_t all = 0;
  for (; !text.empty(); text.remove_prefix(std::min(kBlock, text.size()))) {
    std::uint8_t some = 0;
    for (const char c : text.substr(0, kBlock)) {
      some = static_cast<std::uint8_t>(some + isControl(static_cast<std::uint8_t>(c)));
    }
    all += some;
  }
  return all;
}

// Without a byte-order mark: every second byte is a NUL, or nearly.
Trouble utf16WithoutMark(std::string_view sample) {
  if (sample.find('\0') == std::string_view::npos) return Trouble::None;
  std::size_t even = 0;
  std::size_t odd = 0;
  for (std::size_t i = 0; i < sample.size(); ++i) {
    if (sample[i] == '\0') ++(i % 2 == 0 ? even : odd);
  }
  const std::size_t quarter = sample.size() / 4;
  if (sample.size() < 8) return Trouble::None;
  if (odd > quarter && even * 16 < odd) return Trouble::Utf16Little;
  if (even > quarter && odd * 16 < even) return Trouble::Utf16Big;
  return Trouble::None;
}

}  // namespace

PageCensus censusOf(std::string_view page) {
  PageCensus census;
  census.utf8Mark = page.starts_with("\xEF\xBB\xBF");
  std::size_t at = 0;
  while (at < page.size() && census.loneBytes < kEnoughLoneBytes) {
    if (byteAt(page, at) < 0x80) {
      std::uint64_t eight = 0;
      while (page.size() - at >= sizeof eight) {
        std::memcpy(&eight, page.data() + at, sizeof eight);
        if ((eight & kHighBits) != 0) break;
        at += sizeof eight;
      }
      while (at < page.size() && byteAt(page, at) < 0x80) ++at;
      continue;
    }
    const std::size_t begin = at;
    // Most bytes of 8-bit text are seen by the next one.
    const bool follows = at + 1 < page.size() && (byteAt(page, at + 1) & 0xC0) == 0x80;
    if (!follows || !base::nextUtf8(page, at)) {
      ++census.loneBytes;
      at = begin + 1;
    } else {
      ++(at - begin == 2 ? census.pairs : census.longer);
    }
  }
  return census;
}

Trouble troubleOf(std::string_view file) {
  if (file.empty()) return Trouble::Empty;
  if (file.size() >= 0xFFFF0000U) return Trouble::TooBig;
  if (file.starts_with("\xFF\xFE")) return Trouble::Utf16Little;
  if (file.starts_with("\xFE\xFF")) return Trouble::Utf16Big;
  if (std::ranges::any_of(kSignatures, [&](std::string_view s) { return file.starts_with(s); })) {
    return Trouble::Binary;
  }
  if (file.starts_with("MZ") && file.substr(0, 64).find('\0') != std::string_view::npos)
    return Trouble::Binary;
  const std::string_view sample = file.substr(0, kSample);
  if (const Trouble utf16 = utf16WithoutMark(sample); utf16 != Trouble::None) return utf16;
  const std::size_t controls = controlsIn(sample);
  return controls > 8 && controls * 16 > sample.size() ? Trouble::Binary : Trouble::None;
}

std::string_view sentenceOf(Trouble trouble) {
  switch (trouble) {
    case Trouble::None:
      return "";
    case Trouble::Empty:
      return "the file is empty";
    case Trouble::Utf16Little:
      return "this is UTF-16, little endian; --from utf-16 converts it";
    case Trouble::Utf16Big:
      return "this is UTF-16, big endian; --from utf-16 converts it";
    case Trouble::Binary:
      return "this is a binary file and no page";
    case Trouble::TooBig:
      return "this file is too big: pages are smaller than 4 GB";
    case Trouble::ForeignCharset:
      return "its letters are in a character set that is none of the forms; --from FORM reads them as FORM";
  }
  return "";
}

std::string utf8FromUtf16(std::string_view file, bool bigEndian) {
  constexpr char32_t kReplacement = 0xFFFD;
  std::string out;
  const auto unit = [&](std::size_t at) {
    const std::uint8_t first = byteAt(file, at);
    const std::uint8_t second = byteAt(file, at + 1);
    return static_cast<char32_t>(bigEndian ? first << 8 | second : second << 8 | first);
  };
  for (std::size_t at = 0; at < file.size(); at += 2) {
    char32_t c = at + 1 < file.size() ? unit(at) : kReplacement;
    if (at == 0 && c == 0xFEFF) continue;
    if (c >= 0xD800 && c < 0xDC00 && at + 3 < file.size() && (unit(at + 2) & 0xFC00) == 0xDC00) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
      at += 2;
    }
    base::appendUtf8(out, c >= 0xD800 && c < 0xE000 ? kReplacement : c);
  }
  return out;
}

}  // namespace convert
