#include "platform/curl/key_file.h"

#include <cstdio>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
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

KeyFile::KeyFile(const publish::Login& login) {
  if (login.keyFile.empty()) return;
  try {
    const std::string key = base::readFile(login.keyFile);
    if (publish::needsPassphrase(key) && login.passphrase.empty()) throw Failure(Fault::KeyFile);
#ifdef _WIN32
    // Of the keys in OpenSSH's own format mbedTLS opens those of one kind, and finds no public key in them.
    const std::string line = publish::publicKeyLine(key);
    if (line.empty()) return;
    const std::string kind = line.substr(0, line.find(' '));
    if (!kind.starts_with("ecdsa-sha2-")) throw Failure(Fault::KeyKind, kind);
    publicFile_ = base::joinPath(base::tempFolder(), "zervo-" + base::disk::newName() + ".pub");
    base::writeFile(publicFile_, line + "\n");
#endif
  } catch (const base::Error& error) {
    throw Failure(Fault::LocalFile, error.what());
  }
}

KeyFile::~KeyFile() {
  if (!publicFile_.empty()) base::disk::remove(publicFile_);
}

}  // namespace platform
