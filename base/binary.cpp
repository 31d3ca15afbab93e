#include "base/binary.h"

#include "base/error.h"

namespace base {

void BinaryWriter::u16(std::uint16_t value) {
  u8(static_cast<std::uint8_t>(value & 0xFF));
  u8(static_cast<std::uint8_t>(value >> 8));
}

void BinaryWriter::u32(std::uint32_t value) {
  u16(static_cast<std::uint16_t>(value & 0xFFFF));
  u16(static_cast<std::uint16_t>(value >> 16));
}

void BinaryWriter::text(std::string_view value) {
  u32(static_cast<std::uint32_t>(value.size()));
  raw(value);
}

std::uint16_t BinaryReader::u16() {
  const std::uint16_t low = u8();
  return static_cast<std::uint16_t>(low | (u8() << 8));
}

std::uint32_t BinaryReader::u32() {
  const std::uint32_t low = u16();
  return low | (static_cast<std::uint32_t>(u16()) << 16);
}

std::string_view BinaryReader::raw(std::size_t size) {
  if (size > rest_.size()) throw Error(ErrorNumber::BadFileFormat, "ფაილი დაზიანებულია ან მოკლეა.");
  const std::string_view piece = rest_.substr(0, size);
  rest_.remove_prefix(size);
  return piece;
}

std::uint32_t crc32(std::string_view bytes) {
  std::uint32_t crc = 0xFFFFFFFFU;
  for (const char c : bytes) {
    crc ^= static_cast<unsigned char>(c);
    for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ ((crc & 1U) != 0 ? 0xEDB88320U : 0U);
  }
  return ~crc;
}

}  // namespace base
