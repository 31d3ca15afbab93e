#include "cli/shared.h"

#include <algorithm>

#include "base/files.h"

namespace cli {

std::string sentenceOf(const base::Error& error) {
  switch (error.number()) {
    case base::ErrorNumber::FileNotFound:
      return "there is no such file";
    case base::ErrorNumber::PathNotFound:
      return "there is no such folder";
    case base::ErrorNumber::PathAccess:
      return "this is a folder";
    case base::ErrorNumber::PermissionDenied:
      return "access is denied";
    case base::ErrorNumber::DiskFull:
      return "the disk is full";
    case base::ErrorNumber::OutOfMemory:
      return "there is not enough memory";
    default:
      return "it cannot be read or written";
  }
}

void complain(const Streams& streams, std::string_view file, std::string_view what) {
  const std::string line = std::string(file) + ": " + std::string(what) + "\n";
  std::fwrite(line.data(), 1, line.size(), streams.err);
}

std::optional<std::string> readAll(std::FILE* file) {
  std::string bytes;
  constexpr std::size_t kBlock = 1U << 20U;
  for (std::size_t done = 0;;) {
    bytes.resize(std::max(done + kBlock, bytes.size()));
    const std::size_t size = std::fread(bytes.data() + done, 1, kBlock, file);
    done += size;
    if (size < kBlock) {
      bytes.resize(done);
      break;
    }
  }
  if (std::ferror(file) != 0) return std::nullopt;
  return bytes;
}

bool readFonts(const std::string& file, convert::FontTable& fonts, const Streams& streams) {
  if (file.empty()) return true;
  fonts = convert::FontTable::builtIn();
  std::string lines;
  try {
    lines = base::readFile(file);
  } catch (const base::Error& error) {
    complain(streams, file, sentenceOf(error));
    return false;
  }
  for (const std::size_t line : fonts.add(lines)) {
    complain(streams, file, std::to_string(line) + ": this line names no form");
  }
  return true;
}

}  // namespace cli
