#include "platform/win32/net/ftp_lines.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/text.h"

namespace win32 {
namespace {

constexpr std::size_t kLongestReply = 4096;  // bytes that are kept

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::optional<std::string> LineBuffer::next() {
  const std::size_t end = bytes_.find('\n');
  if (end == std::string::npos) return std::nullopt;
  std::string line = bytes_.substr(0, end > 0 && bytes_[end - 1] == '\r' ? end - 1 : end);
  bytes_.erase(0, end + 1);
  return line;
}

void Reply::add(std::string_view line) {
  const bool numbered = line.size() >= 3 && std::all_of(line.begin(), line.begin() + 3, isDigit);
  const int number = numbered ? (line[0] - '0') * 100 + (line[1] - '0') * 10 + line[2] - '0' : 0;
  const bool goesOn = line.size() > 3 && line[3] == '-';
  if (complete_) {
    code_ = number;
    text_.clear();
    complete_ = !(numbered && goesOn);
  } else {
    complete_ = number == code_ && !goesOn;
  }
  if (text_.size() + line.size() > kLongestReply) return;
  if (!text_.empty()) text_ += base::kCrLf;
  text_ += line;
}

std::optional<DataAddress> dataAddress(std::string_view line) {
  for (std::size_t start = 0; start < line.size(); ++start) {
    if (!isDigit(line[start]) || (start > 0 && isDigit(line[start - 1]))) continue;
    std::array<unsigned, 6> numbers{};
    const char* at = line.data() + start;
    const char* const end = line.data() + line.size();
    std::size_t count = 0;
    for (; count < numbers.size(); ++count) {
      if (count > 0 && (at == end || *at++ != ',')) break;
      const auto read = std::from_chars(at, end, numbers[count]);
      if (read.ec != std::errc() || numbers[count] > 255) break;
      at = read.ptr;
    }
    if (count == numbers.size()) {
      return DataAddress{numbers[0] << 24 | numbers[1] << 16 | numbers[2] << 8 | numbers[3],
                         static_cast<std::uint16_t>(numbers[4] << 8 | numbers[5])};
    }
  }
  return std::nullopt;
}

std::string dataAddressText(const DataAddress& address) {
  std::string text;
  for (int shift = 24; shift >= 0; shift -= 8) text += std::to_string(address.host >> shift & 255) + ",";
  return text + std::to_string(address.port >> 8) + "," + std::to_string(address.port & 255);
}

std::string commandOf(std::string_view line) {
  return base::upperAscii(line.substr(0, line.find(' ')));
}

bool namesFeature(std::string_view reply, std::string_view feature) {
  for (const std::string& line : base::split(reply, base::kCrLf)) {
    // The first and the last line have the number and words of their own.
    if (line.empty() || line[0] != ' ') continue;
    if (commandOf(base::trimSpaces(line)) == feature) return true;
  }
  return false;
}

}  // namespace win32
