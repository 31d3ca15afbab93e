// The keys of SSH servers that were met before, in OpenSSH's file format, so that its own file can be used
// too.
#pragma once

#include <string>
#include <string_view>

namespace publish {

struct HostKey {
  std::string host;
  int port = 22;
  std::string type;  // "ssh-ed25519" and the like; empty: unknown to the transport
  std::string blob;  // bytes
};

enum class Acquaintance {
  Unknown,  // nothing is known of this host
  Known,
  Changed  // another key is known, of this kind or another
};

// `lines`: the text of the file. A key that is marked as revoked there is Changed.
Acquaintance lookUp(std::string_view lines, const HostKey& key);

// The lines that are about the host of `key`, with its name in plain letters: what kinds of keys can be asked
// for.
std::string linesOf(std::string_view lines, const HostKey& key);

// The line to add to the file, without line end.
std::string knownHostLine(const HostKey& key);

// "SHA256:" and base64 without "=", as OpenSSH shows it.
std::string fingerprint(const HostKey& key);

}  // namespace publish
