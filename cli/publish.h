// zervo-cli publish: sends what has changed in a folder to a server.
#pragma once

#include <string>
#include <vector>

#include "cli/cli.h"
#include "cli/machine.h"

namespace cli {

// `words`: those behind "publish". The result is an ExitCode: kUncertain where conflicts were left.
int publish(const std::vector<std::string>& words, const Streams& streams, const Machine& machine);

}  // namespace cli
