#include "base/file_trace.h"

#include <array>
#include <cstring>

#include "base/disk.h"

namespace base {
namespace {

constexpr std::uint64_t kPrime = 0x9E3779B185EBCA87U;

std::uint64_t mixed(std::uint64_t sum, std::uint64_t word) {
  sum ^= word;
  sum *= kPrime;
  return sum ^ (sum >> 29U);
}

}  // namespace

std::uint64_t sumOf(std::string_view bytes) {
  // Side by side: a chain of multiplications would wait for each.
  std::array<std::uint64_t, 4> lanes = {1, 2, 3, 4};
  const char* at = bytes.data();
  std::size_t left = bytes.size();
  for (; left >= sizeof lanes; left -= sizeof lanes, at += sizeof lanes) {
    std::array<std::uint64_t, 4> words;
    std::memcpy(words.data(), at, sizeof words);
    for (std::size_t i = 0; i < lanes.size(); ++i) lanes[i] = mixed(lanes[i], words[i]);
  }
  std::uint64_t sum = mixed(kPrime, bytes.size());
  for (const std::uint64_t lane : lanes) sum = mixed(sum, lane);
  for (; left > 0; --left, ++at) sum = mixed(sum, static_cast<unsigned char>(*at));
  return sum;
}

FileTrace traceOf(std::string_view path, std::string_view bytes) {
  const disk::Look look = disk::look(path);
  FileTrace trace;
  trace.known = look.kind == disk::Kind::File;
  trace.size = bytes.size();
  trace.changed = look.changed;
  trace.sum = sumOf(bytes);
  if (trace.known) trace.identity = identityOf(path);
  return trace;
}

std::string identityOf(std::string_view path) {
  return disk::identity(path);
}

bool looksChanged(std::string_view path, const FileTrace& trace) {
  const disk::Look look = disk::look(path);
  return look.kind != disk::Kind::File || look.size != trace.size || look.changed != trace.changed;
}

}  // namespace base
