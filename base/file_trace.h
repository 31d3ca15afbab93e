// What a file was when the program last read or wrote it, so that a change by another program is noticed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace base {

// Of the bytes: fast, and different for texts that differ. No secret.
std::uint64_t sumOf(std::string_view bytes);

struct FileTrace {
  bool known = false;         // it was there, and read or written
  std::uintmax_t size = 0;    // bytes
  std::int64_t changed = 0;   // when; in the system's own units
  std::uint64_t sum = 0;      // of its bytes
  std::string identity;       // names it among all files, whatever the path; empty: nobody knows
  std::uintmax_t oldEnd = 0;  // bytes of an older, longer file behind what was saved
  bool missing = false;       // the user knows that it is gone
};

// Of the file that was just read from or written to `path` and holds `bytes`.
FileTrace traceOf(std::string_view path, std::string_view bytes);

std::string identityOf(std::string_view path);  // of an existing file

// By name, size and time alone.
bool looksChanged(std::string_view path, const FileTrace& trace);

}  // namespace base
