#include "publish/address.h"

#include <algorithm>

#include "base/address.h"
#include "base/text.h"

namespace publish {
namespace {

constexpr int kLastPort = 65535;
constexpr int kEncryptedPort = 990;

int usualPort(Scheme scheme) {
  return scheme == Scheme::Sftp ? 22 : 21;
}

std::string_view nameOf(Scheme scheme) {
  return scheme == Scheme::Sftp ? "sftp" : scheme == Scheme::Ftps ? "ftps" : "ftp";
}

std::string withoutSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// From what follows the host, its "/" included.
std::string folderFrom(Scheme scheme, std::string_view text) {
  if (scheme == Scheme::Sftp) {
    if (text == "/~") return {};
    if (text.starts_with("/~/")) return withoutSlashes(base::percentDecoded(text.substr(3)));
    return text.empty() ? std::string() : withoutSlashes(base::percentDecoded(text));
  }
  if (text.size() < 2) return {};
  return withoutSlashes(base::percentDecoded(text.substr(1)));
}

// A line end would be a command of its own to the server.
bool hasControl(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
}

}  // namespace

std::optional<Address> parseAddress(std::string_view text, AddressFault& fault) {
  const auto bad = [&](AddressFault what) {
    fault = what;
    return std::nullopt;
  };
  fault = AddressFault::None;
  text = base::trimSpaces(text);
  Address address;
  if (const std::size_t colon = text.find("://"); colon != std::string_view::npos) {
    const std::string_view scheme = text.substr(0, colon);
    if (base::equalNoCase(scheme, "sftp"))
      address.scheme = Scheme::Sftp;
    else if (base::equalNoCase(scheme, "ftps") || base::equalNoCase(scheme, "ftpes"))
      address.scheme = Scheme::Ftps;
    else if (!base::equalNoCase(scheme, "ftp"))
      return bad(AddressFault::UnknownScheme);
    text.remove_prefix(colon + 3);
  }
  const std::size_t slash = std::min(text.find('/'), text.size());
  std::string_view host = text.substr(0, slash);
  address.folder = folderFrom(address.scheme, text.substr(slash));
  if (const std::size_t at = host.rfind('@'); at != std::string_view::npos) {
    const std::string_view who = host.substr(0, at);
    const std::size_t colon = std::min(who.find(':'), who.size());
    address.user = base::percentDecoded(who.substr(0, colon));
    if (colon < who.size()) address.password = base::percentDecoded(who.substr(colon + 1));
    host.remove_prefix(at + 1);
  }
  std::string_view port;
  if (host.starts_with("[")) {
    const std::size_t end = host.find(']');
    if (end == std::string_view::npos) return bad(AddressFault::NoHost);
    const std::string_view rest = host.substr(end + 1);
    if (!rest.empty() && rest[0] != ':') return bad(AddressFault::NoHost);
    if (!rest.empty()) port = rest.substr(1);
    if (!rest.empty() && port.empty()) return bad(AddressFault::BadPort);
    address.host = host.substr(1, end - 1);
  } else {
    const std::size_t colon = std::min(host.find(':'), host.size());
    address.host = host.substr(0, colon);
    if (colon < host.size()) {
      port = host.substr(colon + 1);
      if (port.empty()) return bad(AddressFault::BadPort);
    }
  }
  if (address.host.empty()) return bad(AddressFault::NoHost);
  address.port = port.empty() ? usualPort(address.scheme) : 0;
  for (const char c : port) {
    if (c < '0' || c > '9') return bad(AddressFault::BadPort);
    address.port = std::min(address.port * 10 + (c - '0'), kLastPort + 1);
  }
  if (address.port < 1 || address.port > kLastPort) return bad(AddressFault::BadPort);
  for (const std::string* part : {&address.user, &address.password, &address.host, &address.folder}) {
    if (hasControl(*part)) return bad(AddressFault::BadCharacter);
  }
  if (address.host.find_first_of(" \"<>\\") != std::string::npos) return bad(AddressFault::BadCharacter);
  return address;
}

std::string addressText(const Address& address) {
  std::string text(nameOf(address.scheme));
  text += "://";
  if (!address.user.empty()) text += address.user + "@";
  const bool numbers = address.host.find(':') != std::string::npos;
  text += numbers ? "[" + address.host + "]" : address.host;
  if (address.port != usualPort(address.scheme)) text += ":" + std::to_string(address.port);
  if (address.folder.empty()) return text;
  if (address.scheme != Scheme::Sftp) return text + "/" + address.folder;
  return text + (address.folder[0] == '/' ? "" : "/~/") + address.folder;
}

bool beginsEncrypted(const Address& address) {
  return address.scheme == Scheme::Ftps && address.port == kEncryptedPort;
}

std::string joinRemote(std::string_view folder, std::string_view path) {
  if (folder.empty()) return std::string(path);
  if (path.empty()) return std::string(folder);
  std::string joined(folder);
  if (joined.back() != '/') joined += '/';
  return joined.append(path);
}

std::string remoteFolderOf(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string_view::npos) return {};
  return std::string(path.substr(0, std::max<std::size_t>(slash, 1)));
}

std::string remoteName(std::string_view path) {
  return std::string(path.substr(path.rfind('/') + 1));
}

}  // namespace publish
