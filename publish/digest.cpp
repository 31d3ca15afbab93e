#include "publish/digest.h"

#include <bit>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <vector>

#include "base/disk.h"
#include "base/file_errors.h"

namespace publish {
namespace {

constexpr std::size_t kBlock = 64;

constexpr std::array<std::uint32_t, 64> kRound = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t word(const unsigned char* at) {
  return std::uint32_t{at[0]} << 24U | std::uint32_t{at[1]} << 16U | std::uint32_t{at[2]} << 8U | at[3];
}

void put(std::string& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8)
    bytes += static_cast<char>(value >> static_cast<unsigned>(shift));
}

// What follows a text of `size` bytes, so that all are whole blocks.
std::string padding(std::uint64_t size) {
  std::string bytes(1, '\x80');
  bytes.append((kBlock + 55 - size % kBlock) % kBlock, '\0');
  put(bytes, static_cast<std::uint32_t>(size >> 29U));
  put(bytes, static_cast<std::uint32_t>(size << 3U));
  return bytes;
}

// Kept for old files of known hosts alone, which hide the names by it.
std::string sha1(std::string text) {
  std::array<std::uint32_t, 5> state = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476, 0xc3d2e1f0};
  text += padding(text.size());
  for (std::size_t begin = 0; begin < text.size(); begin += kBlock) {
    std::array<std::uint32_t, 80> w{};
    for (std::size_t i = 0; i < 16; ++i)
      w[i] = word(reinterpret_cast<const unsigned char*>(&text[begin + i * 4]));
    for (std::size_t i = 16; i < 80; ++i) w[i] = std::rotl(w[i - 3] ^ w[i - 8] ^ w[i - 14] ^ w[i - 16], 1);
    auto [a, b, c, d, e] = state;
    for (std::size_t i = 0; i < 80; ++i) {
      const std::uint32_t f = i < 20   ? ((b & c) | (~b & d)) + 0x5a827999
                              : i < 40 ? (b ^ c ^ d) + 0x6ed9eba1
                              : i < 60 ? ((b & c) | (b & d) | (c & d)) + 0x8f1bbcdc
                                       : (b ^ c ^ d) + 0xca62c1d6;
      const std::uint32_t next = std::rotl(a, 5) + f + e + w[i];
      e = d;
      d = c;
      c = std::rotl(b, 30);
      b = a;
      a = next;
    }
    state = {state[0] + a, state[1] + b, state[2] + c, state[3] + d, state[4] + e};
  }
  std::string digest;
  for (const std::uint32_t value : state) put(digest, value);
  return digest;
}

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

}  // namespace

void Sha256::block(const unsigned char* at) {
  std::array<std::uint32_t, 64> w{};
  for (std::size_t i = 0; i < 16; ++i) w[i] = word(at + i * 4);
  for (std::size_t i = 16; i < 64; ++i) {
    const std::uint32_t s0 = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ (w[i - 15] >> 3U);
    const std::uint32_t s1 = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ (w[i - 2] >> 10U);
    w[i] = w[i - 16] + s0 + w[i - 7] + s1;
  }
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::uint32_t s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
    const std::uint32_t one = h + s1 + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
    const std::uint32_t s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
    const std::uint32_t two = s0 + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + one;
    d = c;
    c = b;
    b = a;
    a = one + two;
  }
  const std::array<std::uint32_t, 8> add = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < add.size(); ++i) state_[i] += add[i];
}

void Sha256::add(std::string_view bytes) {
  size_ += bytes.size();
  if (!rest_.empty()) {
    const std::string_view head = bytes.substr(0, kBlock - rest_.size());
    rest_ += head;
    bytes.remove_prefix(head.size());
    if (rest_.size() < kBlock) return;
    block(reinterpret_cast<const unsigned char*>(rest_.data()));
    rest_.clear();
  }
  for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock)) {
    block(reinterpret_cast<const unsigned char*>(bytes.data()));
  }
  rest_ += bytes;
}

std::string Sha256::bytes() {
  add(padding(size_));
  std::string digest;
  for (const std::uint32_t value : state_) put(digest, value);
  return digest;
}

std::string sha256(std::string_view bytes) {
  Sha256 digest;
  digest.add(bytes);
  return digest.bytes();
}

std::string sha1Mac(std::string_view key, std::string_view text) {
  std::string block = key.size() > kBlock ? sha1(std::string(key)) : std::string(key);
  block.resize(kBlock, '\0');
  std::string inner = block;
  std::string outer = block;
  for (char& c : inner) c = static_cast<char>(c ^ 0x36);
  for (char& c : outer) c = static_cast<char>(c ^ 0x5c);
  return sha1(outer + sha1(inner.append(text)));
}

std::string hex(std::string_view bytes) {
  std::string digits;
  for (const char c : bytes) {
    digits += "0123456789abcdef"[static_cast<unsigned char>(c) >> 4U];
    digits += "0123456789abcdef"[static_cast<unsigned char>(c) & 15U];
  }
  return digits;
}

std::string base64(std::string_view bytes) {
  std::string text;
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(3, bytes.size()))) {
    const auto at = [&](std::size_t i) -> unsigned {
      return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const unsigned three = at(0) << 16U | at(1) << 8U | at(2);
    text += kDigits[three >> 18U];
    text += kDigits[three >> 12U & 63U];
    text += bytes.size() > 1 ? kDigits[three >> 6U & 63U] : '=';
    text += bytes.size() > 2 ? kDigits[three & 63U] : '=';
  }
  return text;
}

std::optional<std::string> fromBase64(std::string_view text) {
  std::string bytes;
  unsigned held = 0;
  unsigned bits = 0;
  for (const char c : text) {
    if (c == '\r' || c == '\n' || c == '=') continue;
    const std::size_t digit = kDigits.find(c);
    if (digit == std::string_view::npos) return std::nullopt;
    held = held << 6U | static_cast<unsigned>(digit);
    bits += 6;
    if (bits >= 8) {
      bits -= 8;
      bytes += static_cast<char>(held >> bits & 255U);
    }
  }
  return bytes;
}

std::string fileDigest(std::string_view path) {
  constexpr std::size_t kPiece = 1U << 18U;
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };
  const std::unique_ptr<std::FILE, Close> file(base::disk::open(path, base::disk::Mode::Read));
  if (!file) base::throwFileError(errno, path);
  std::vector<char> piece(kPiece);
  Sha256 digest;
  for (std::size_t size = kPiece; size == kPiece;) {
    size = std::fread(piece.data(), 1, kPiece, file.get());
    digest.add({piece.data(), size});
  }
  if (std::ferror(file.get()) != 0) base::throwFileError(EIO, path);
  return hex(digest.bytes());
}

}  // namespace publish
