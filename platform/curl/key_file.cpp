#include "platform/curl/key_file.h"

#include <cstdio>
#include <string>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "publish/private_key.h"

#ifdef _WIN32
// What the SSH library and its cryptography call to read a key; their own would take no Georgian path.
extern "C" std::FILE* zervo_open_key(const char* path, const char* /*mode*/) {
  return base::disk::open(path, base::disk::Mode::Read);
}
#endif

namespace platform {

using publish::Failure;
using publish::Fault;

std::unique_ptr<TemporaryFile> publicKeyOf(const publish::Login& login) {
  if (login.keyFile.empty()) return nullptr;
  std::string key;
  try {
    key = base::readFile(login.keyFile);
  } catch (const base::Error& error) {
    throw Failure(Fault::LocalFile, error.what());
  }
  if (publish::needsPassphrase(key) && login.passphrase.empty()) throw Failure(Fault::KeyFile);
#ifdef _WIN32
  // Of the keys in OpenSSH's own format mbedTLS opens those of one kind, and finds no public key in them.
  const std::string line = publish::publicKeyLine(key);
  const std::string kind = line.substr(0, line.find(' '));
  if (!kind.empty() && !kind.starts_with("ecdsa-sha2-")) throw Failure(Fault::KeyKind, kind);
  if (!line.empty()) return std::make_unique<TemporaryFile>(line + "\n", ".pub");
#endif
  return nullptr;
}

}  // namespace platform
