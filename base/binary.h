// Little-endian numbers and length-prefixed texts in memory; the reader never reads past its end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace base {

class BinaryWriter {
 public:
  void u8(std::uint8_t value) { bytes_ += static_cast<char>(value); }
  void u16(std::uint16_t value);
  void u32(std::uint32_t value);
  void boolean(bool value) { u16(value ? 0xFFFF : 0); }  // 16-bit, 0 false and -1 true
  void text(std::string_view value);                     // u32 length, then the bytes
  void raw(std::string_view value) { bytes_ += value; }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

// Throws base::Error(BadFileFormat) on a read past the end. Does not own the bytes.
class BinaryReader {
 public:
  explicit BinaryReader(std::string_view bytes) : rest_(bytes) {}
  std::uint8_t u8() { return static_cast<std::uint8_t>(raw(1)[0]); }
  std::uint16_t u16();
  std::uint32_t u32();
  bool boolean() { return u16() != 0; }
  std::string text() { return std::string(raw(u32())); }
  std::string_view raw(std::size_t size);
  bool atEnd() const { return rest_.empty(); }
  std::size_t left() const { return rest_.size(); }

 private:
  std::string_view rest_;
};

std::uint32_t crc32(std::string_view bytes);  // the CRC-32 of zip and PNG

}  // namespace base
