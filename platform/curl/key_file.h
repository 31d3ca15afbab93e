// The private key of a login, as the SSH library can use it.
#pragma once

#include <string>

#include "publish/transport.h"

namespace platform {

class KeyFile {
 public:
  KeyFile() = default;
  // No key: nothing happens. Throws Failure: LocalFile, KeyFile when a passphrase is missing, KeyKind.
  explicit KeyFile(const publish::Login& login);
  KeyFile(const KeyFile&) = delete;
  KeyFile& operator=(const KeyFile&) = delete;
  ~KeyFile();

  // The file of its public key, which lasts as long as this; empty: the library finds it itself.
  const std::string& publicFile() const { return publicFile_; }

 private:
  std::string publicFile_;
};

}  // namespace platform
