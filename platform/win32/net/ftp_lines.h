// The lines of an FTP control connection.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace win32 {

// Bytes as they come, cut at their line ends.
class LineBuffer {
 public:
  void add(std::string_view bytes) { bytes_ += bytes; }
  // The next whole line without its end.
  std::optional<std::string> next();
  std::size_t size() const { return bytes_.size(); }

 private:
  std::string bytes_;
};

// A reply of the server, which may have many lines: "211-", ..., "211 ".
class Reply {
 public:
  // Takes the next line; begins anew behind the last one of a reply.
  void add(std::string_view line);
  bool complete() const { return complete_; }
  int code() const { return code_; }                 // 0: not the line of a reply
  const std::string& text() const { return text_; }  // its lines, joined by CR LF; a very long one is cut

 private:
  bool complete_ = true;
  int code_ = 0;
  std::string text_;
};

// Where a data connection goes, as PORT and the reply 227 write it.
struct DataAddress {
  std::uint32_t host = 0;  // 127.0.0.1 is 0x7F000001
  std::uint16_t port = 0;
};
std::optional<DataAddress> dataAddress(std::string_view line);  // the first six numbers with commas
std::string dataAddressText(const DataAddress& address);        // "127,0,0,1,4,1"

// The first word in capital letters.
std::string commandOf(std::string_view line);

// Whether a reply to FEAT has a line for the feature.
bool namesFeature(std::string_view reply, std::string_view feature);

}  // namespace win32
