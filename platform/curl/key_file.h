// The private key of a login, for the SSH library.
#pragma once

#include <memory>

#include "platform/curl/temporary_file.h"
#include "publish/transport.h"

namespace platform {

// The file of its public key; null: the library finds that itself. No key: nothing happens. Throws Failure:
// LocalFile, KeyFile when a passphrase is missing, KeyKind.
std::unique_ptr<TemporaryFile> publicKeyOf(const publish::Login& login);

}  // namespace platform
