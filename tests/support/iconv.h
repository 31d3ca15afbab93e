// The system's own conversion between encodings, as an independent answer.
#pragma once

#include <iconv.h>

#include <stdexcept>
#include <string>

namespace tests {

// Throws when `text` is not in `from` or cannot be said in `to`.
inline std::string convertWithIconv(std::string text, const char* from, const char* to) {
  iconv_t handle = iconv_open(to, from);
  if (handle == reinterpret_cast<iconv_t>(-1)) throw std::runtime_error("iconv does not know the encoding");
  std::string out(text.size() * 8 + 8, '\0');
  char* in = text.data();
  char* next = out.data();
  std::size_t left = text.size(), room = out.size();
  const std::size_t failed = iconv(handle, &in, &left, &next, &room);
  iconv_close(handle);
  if (failed == static_cast<std::size_t>(-1)) throw std::runtime_error("iconv cannot convert the text");
  out.resize(out.size() - room);
  return out;
}

}  // namespace tests
