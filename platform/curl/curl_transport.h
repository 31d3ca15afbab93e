// FTP, FTP over TLS and SFTP by libcurl.
#pragma once

#include <memory>

#include "publish/transport.h"

namespace platform {

// A connection that is made when it is first used. Throws nothing.
std::unique_ptr<publish::Transport> makeCurlTransport(const publish::Address& address);

}  // namespace platform
