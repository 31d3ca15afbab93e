// What the command line needs of the machine besides files and streams.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "publish/transport.h"

namespace cli {

struct Machine {
  publish::MakeTransport connect;
  // Shows the prompt and waits for a line; what is typed is seen with `echo` alone. Nothing where nobody sits
  // before a terminal.
  std::function<std::optional<std::string>(const std::string& prompt, bool echo)> ask;
  std::optional<std::string> password;  // from the environment
};

}  // namespace cli
