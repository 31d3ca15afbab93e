#include "base/address.h"

#include <cstddef>
#include <vector>

#include "base/text.h"

namespace base {
namespace {

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string escaped(std::string_view path) {
  return percentEncoded(path, "/:.-_~");
}

}  // namespace

std::string percentEncoded(std::string_view text, std::string_view plain) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address;
  for (const char c : text) {
    if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
        plain.find(c) != std::string_view::npos) {
      address += c;
    } else {
      address += '%';
      address += kDigits[static_cast<unsigned char>(c) >> 4];
      address += kDigits[static_cast<unsigned char>(c) & 15];
    }
  }
  return address;
}

std::string percentDecoded(std::string_view address) {
  std::string text;
  for (std::size_t at = 0; at < address.size(); ++at) {
    const bool whole = address[at] == '%' && at + 2 < address.size();
    const int high = whole ? hexDigit(address[at + 1]) : -1;
    const int low = whole ? hexDigit(address[at + 2]) : -1;
    if (high >= 0 && low >= 0) {
      text += static_cast<char>(high * 16 + low);
      at += 2;
    } else {
      text += address[at];
    }
  }
  return text;
}

std::string addressOf(std::string_view folder, std::string_view path) {
  // Up to the last folder that both share, then up from one and down to the other.
  std::vector<std::string> from = split(folder, "\\");
  std::vector<std::string> to = split(path, "\\");
  if (!from.empty() && from.back().empty()) from.pop_back();
  std::size_t shared = 0;
  while (shared < from.size() && shared + 1 < to.size() && equalNoCase(from[shared], to[shared])) ++shared;
  if (shared == 0) return "file:///" + escaped(join(to, "/"));
  std::string address;
  for (std::size_t i = shared; i < from.size(); ++i) address += "../";
  to.erase(to.begin(), to.begin() + static_cast<std::ptrdiff_t>(shared));
  return address + escaped(join(to, "/"));
}

}  // namespace base
