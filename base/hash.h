// A number for some bytes, to see whether a file is still the same: XXH64 as published, with seed 0. Not for
// bytes that somebody makes in order to deceive.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace base {

std::uint64_t hash64(std::string_view bytes);

std::string hexOf(std::uint64_t number);  // 16 digits in lower case

}  // namespace base
