// Digests: what a file holds, and the fingerprints of keys.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace publish {

class Sha256 {
 public:
  void add(std::string_view bytes);
  std::string bytes();  // 32 of them; ends the object's use

 private:
  void block(const unsigned char* at);
  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::string rest_;
  std::uint64_t size_ = 0;
};

std::string sha256(std::string_view bytes);                        // 32 bytes
std::string sha1Mac(std::string_view key, std::string_view text);  // HMAC of SHA-1, 20 bytes

std::string hex(std::string_view bytes);
std::string base64(std::string_view bytes);  // with "=" at its end
// Line ends are skipped. Nothing: other characters in it.
std::optional<std::string> fromBase64(std::string_view text);

// The whole file's, in hexadecimal digits. Throws base::Error.
std::string fileDigest(std::string_view path);

}  // namespace publish
