#include "publish/state.h"

#include <charconv>
#include <chrono>
#include <utility>
#include <vector>

#include "base/disk.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "publish/digest.h"

namespace publish {
namespace {

constexpr std::string_view kHead = "zervo-publish 1";
constexpr std::size_t kIdDigits = 8;
constexpr std::size_t kFields = 7;

std::string newId() {
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  return hex(sha256(base::disk::newName() + " " + std::to_string(now))).substr(0, kIdDigits);
}

bool number(std::string_view text, std::int64_t& value) {
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  return fault == std::errc() && end == text.data() + text.size() && !text.empty();
}

// "file" and its fields, the path last, since it may hold blanks.
bool fileLine(std::string_view line, State& state) {
  std::vector<std::string> fields;
  for (std::size_t i = 0; i < kFields - 1; ++i) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos) return false;
    fields.emplace_back(line.substr(0, blank));
    line.remove_prefix(blank + 1);
  }
  Sent sent;
  sent.digest = fields[2];
  if (line.empty() || !number(fields[0], sent.size) || !number(fields[1], sent.time) ||
      !number(fields[3], sent.remoteSize) || !number(fields[4], sent.remoteTime) ||
      !number(fields[5], sent.remotePrecision)) {
    return false;
  }
  state.files[std::string(line)] = std::move(sent);
  return true;
}

}  // namespace

std::string stateFile(std::string_view folder, const Address& address) {
  return base::joinPath(folder, ".zervo-publish-" + hex(sha256(addressText(address))).substr(0, kIdDigits));
}

State readState(std::string_view path) {
  State state;
  if (base::fileExists(path)) {
    for (const std::string& line : base::split(base::readFile(path), "\n")) {
      if (line.starts_with("id "))
        state.id = line.substr(3);
      else if (line.starts_with("certificate "))
        state.certificateKey = line.substr(12);
      else if (line.starts_with("file "))
        fileLine(std::string_view(line).substr(5), state);
    }
  }
  if (state.id.size() != kIdDigits) state.id = newId();
  return state;
}

void writeState(std::string_view path, const Address& address, const State& state) {
  std::string text(kHead);
  text += "\naddress " + addressText(address) + "\nid " + state.id + "\n";
  if (!state.certificateKey.empty()) text += "certificate " + state.certificateKey + "\n";
  for (const auto& [name, sent] : state.files) {
    // Such a name cannot be kept in a line; its file is compared anew each time.
    if (name.find('\n') != std::string::npos) continue;
    text += "file " + std::to_string(sent.size) + " " + std::to_string(sent.time) + " " + sent.digest + " " +
            std::to_string(sent.remoteSize) + " " + std::to_string(sent.remoteTime) + " " +
            std::to_string(sent.remotePrecision) + " " + name + "\n";
  }
  base::writeFile(path, text);
}

}  // namespace publish
