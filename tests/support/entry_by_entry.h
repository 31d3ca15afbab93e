// The rule of every conversion, word for word: the yardstick for the one-pass converter, in tests and bench.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tests {

inline std::string entryByEntry(std::string_view text, const std::vector<std::string>& from,
                                const std::vector<std::string>& to) {
  std::string result(text);
  for (std::size_t entry = 0; entry < from.size(); ++entry) {
    if (from[entry].empty()) continue;
    std::string next;
    next.reserve(result.size());
    std::size_t at = 0;
    for (std::size_t hit; (hit = result.find(from[entry], at)) != std::string::npos;) {
      next.append(result, at, hit - at);
      next += to[entry];
      at = hit + from[entry].size();
    }
    next.append(result, at);
    result.swap(next);
  }
  return result;
}

}  // namespace tests
