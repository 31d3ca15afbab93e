// What libcurl and a server's reply mean.
#pragma once

#include <string>
#include <string_view>

#include "publish/address.h"
#include "publish/failure.h"

namespace platform {

// `code`: libcurl's. `reply`: the server's last line in FTP, with its three digits in front; may be empty.
// `text`: libcurl's sentence. Without Certificate, which the caller knows by `code`, and the faults of SSH's
// host keys.
publish::Fault faultOf(publish::Scheme scheme, int code, std::string_view reply, std::string_view text);

}  // namespace platform
