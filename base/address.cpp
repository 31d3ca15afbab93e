#include "base/address.h"

#include <cstddef>
#include <vector>

#include "base/text.h"

namespace base {
namespace {

std::string escaped(std::string_view path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address;
  for (const char c : path) {
    const bool plain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                       std::string_view("/:.-_~").find(c) != std::string_view::npos;
    if (plain) {
      address += c;
    } else {
      address += '%';
      address += kDigits[static_cast<unsigned char>(c) >> 4];
      address += kDigits[static_cast<unsigned char>(c) & 15];
    }
  }
  return address;
}

}  // namespace

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
