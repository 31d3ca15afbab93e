#include "platform/win32/code_text.h"

#include <algorithm>
#include <array>

#include "base/cp1252.h"
#include "platform/win32/strings.h"

namespace win32 {
namespace {

bool letterless(unsigned c) {
  return c == 0x81 || c == 0x8D || c == 0x8F || c == 0x90 || c == 0x9D;
}

}  // namespace

wchar_t controlCharOf(std::uint8_t byte) {
  if (byte == 0 || letterless(byte)) return static_cast<wchar_t>(kNulStandIn + byte);
  return static_cast<wchar_t>(base::charOfByte(byte));
}

std::optional<std::uint8_t> byteOfControlChar(wchar_t c) {
  const unsigned standsFor = static_cast<unsigned>(c) - kNulStandIn;
  if (standsFor == 0 || standsFor == '\n' || standsFor == '\r' || letterless(standsFor))
    return static_cast<std::uint8_t>(standsFor);
  return base::byteOfChar(c);
}

LineEnd lineEndOf(std::string_view bytes) {
  bool lf = false;
  bool cr = false;
  for (std::size_t at = bytes.find_first_of("\r\n"); at != std::string_view::npos;
       at = bytes.find_first_of("\r\n", at + 1)) {
    if (bytes[at] == '\n') {
      lf = true;
    } else if (at + 1 < bytes.size() && bytes[at + 1] == '\n') {
      return LineEnd::CrLf;
    } else {
      cr = true;
    }
  }
  return lf ? LineEnd::Lf : cr ? LineEnd::Cr : LineEnd::CrLf;
}

std::string_view bytesOf(LineEnd lineEnd) {
  return lineEnd == LineEnd::CrLf ? "\r\n" : lineEnd == LineEnd::Lf ? "\n" : "\r";
}

std::wstring controlFromBytes(std::string_view bytes, LineEnd lineEnd) {
  static const auto chars = [] {
    std::array<wchar_t, 256> all{};
    for (std::size_t byte = 0; byte < all.size(); ++byte)
      all[byte] = controlCharOf(static_cast<std::uint8_t>(byte));
    return all;
  }();
  std::wstring control(bytes.size(), L'\0');
  const char first = bytesOf(lineEnd)[0];
  std::size_t out = 0;
  for (std::size_t in = 0; in < bytes.size(); ++in) {
    const char c = bytes[in];
    if (c != '\r' && c != '\n') {
      control[out++] = chars[static_cast<std::uint8_t>(c)];
    } else if (c == first && lineEnd != LineEnd::CrLf) {
      control[out++] = L'\r';
    } else if (c == '\r' && lineEnd == LineEnd::CrLf && in + 1 < bytes.size() && bytes[in + 1] == '\n') {
      control[out++] = L'\r';
      ++in;
    } else {
      control[out++] = c == '\r' ? kCrStandIn : kLfStandIn;
    }
  }
  control.resize(out);
  return control;
}

void LineBreaks::clear(LineEnd lineEnd) {
  places_.clear();
  extra_ = static_cast<int>(bytesOf(lineEnd).size()) - 1;
}

int LineBreaks::before(int controlPosition) const {
  return static_cast<int>(std::lower_bound(places_.begin(), places_.end(), controlPosition) -
                          places_.begin());
}

int LineBreaks::byteOf(int controlPosition) const {
  return controlPosition + extra_ * before(controlPosition);
}

int LineBreaks::controlOf(int byte) const {
  // The place of line end i in bytes is places_[i] + extra_ * i, ascending too.
  int low = 0;
  int high = static_cast<int>(places_.size());
  while (low < high) {
    const int middle = low + (high - low) / 2;
    if (places_[static_cast<std::size_t>(middle)] + extra_ * middle < byte) {
      low = middle + 1;
    } else {
      high = middle;
    }
  }
  return byte - extra_ * low;
}

int LineBreaks::lineOf(int controlPosition) const {
  return before(controlPosition);
}

int LineBreaks::startOf(int line) const {
  return line == 0 ? 0 : places_[static_cast<std::size_t>(line - 1)] + 1;
}

bool bytesFromControl(std::wstring_view control, LineEnd lineEnd, std::string& bytes, LineBreaks& breaks) {
  const std::string_view end = bytesOf(lineEnd);
  bytes.clear();
  bytes.reserve(control.size() + control.size() / 16);
  breaks.clear(lineEnd);
  for (std::size_t at = 0; at < control.size(); ++at) {
    const wchar_t c = control[at];
    if (c == L'\r') {
      breaks.add(static_cast<int>(at));
      bytes += end;
    } else if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) {
      bytes += static_cast<char>(static_cast<unsigned char>(c));
    } else if (const auto byte = byteOfControlChar(c)) {
      bytes += static_cast<char>(*byte);
    } else {
      return false;
    }
  }
  return true;
}

std::string withLineEnds(std::string_view bytes, LineEnd lineEnd) {
  std::string out;
  out.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const char c = bytes[at];
    if (c != '\r' && c != '\n') {
      out += c;
      continue;
    }
    if (c == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n') ++at;
    out += bytesOf(lineEnd);
  }
  return out;
}

}  // namespace win32
