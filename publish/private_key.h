// What can be told of a private key without opening it.
#pragma once

#include <string_view>

namespace publish {

// `key`: the text of its file, as OpenSSH or OpenSSL write it.
bool needsPassphrase(std::string_view key);

}  // namespace publish
