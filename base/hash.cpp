#include "base/hash.h"

#include <array>
#include <bit>

namespace base {
namespace {

constexpr std::uint64_t kPrime1 = 0x9E3779B185EBCA87U;
constexpr std::uint64_t kPrime2 = 0xC2B2AE3D27D4EB4FU;
constexpr std::uint64_t kPrime3 = 0x165667B19E3779F9U;
constexpr std::uint64_t kPrime4 = 0x85EBCA77C2B2AE63U;
constexpr std::uint64_t kPrime5 = 0x27D4EB2F165667C5U;
constexpr std::size_t kLanes = 4;

std::uint64_t littleEndian(const char* at, std::size_t bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = 0; i < bytes; ++i) number |= std::uint64_t{static_cast<std::uint8_t>(at[i])} << 8 * i;
  return number;
}

std::uint64_t round(std::uint64_t lane, std::uint64_t input) {
  return std::rotl(lane + input * kPrime2, 31) * kPrime1;
}

}  // namespace

std::uint64_t hash64(std::string_view bytes) {
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  std::uint64_t hash = kPrime5;
  if (left >= kLanes * 8) {
    std::array<std::uint64_t, kLanes> lanes = {kPrime1 + kPrime2, kPrime2, 0, 0 - kPrime1};
    for (; left >= kLanes * 8; left -= kLanes * 8) {
      for (std::uint64_t& lane : lanes) {
        lane = round(lane, littleEndian(at, 8));
        at += 8;
      }
    }
    hash =
        std::rotl(lanes[0], 1) + std::rotl(lanes[1], 7) + std::rotl(lanes[2], 12) + std::rotl(lanes[3], 18);
    for (const std::uint64_t lane : lanes) hash = (hash ^ round(0, lane)) * kPrime1 + kPrime4;
  }
  hash += bytes.size();
  for (; left >= 8; left -= 8, at += 8) {
    hash = std::rotl(hash ^ round(0, littleEndian(at, 8)), 27) * kPrime1 + kPrime4;
  }
  if (left >= 4) {
    hash = std::rotl(hash ^ littleEndian(at, 4) * kPrime1, 23) * kPrime2 + kPrime3;
    at += 4;
    left -= 4;
  }
  for (; left > 0; --left, ++at) hash = std::rotl(hash ^ littleEndian(at, 1) * kPrime5, 11) * kPrime1;
  hash = (hash ^ hash >> 33) * kPrime2;
  hash = (hash ^ hash >> 29) * kPrime3;
  return hash ^ hash >> 32;
}

std::string hexOf(std::uint64_t number) {
  std::string text(16, '0');
  for (std::size_t i = text.size(); i-- > 0; number >>= 4) text[i] = "0123456789abcdef"[number & 15];
  return text;
}

}  // namespace base
