// What can be told of a private key without opening it.
#pragma once

#include <string>
#include <string_view>

namespace publish {

// `key`: the text of its file, as OpenSSH or OpenSSL write it.
bool needsPassphrase(std::string_view key);

// The public key as a line of its own file, kind first ("ecdsa-sha2-nistp256 AAAA..."): a private key in
// OpenSSH's own format holds it in clear, even when it is locked. Empty for other formats and damaged files.
std::string publicKeyLine(std::string_view key);

}  // namespace publish
