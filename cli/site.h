// zervo-cli site: a whole folder.
#pragma once

#include "cli/arguments.h"
#include "cli/cli.h"

namespace cli {

int runSite(const Arguments& arguments, const Streams& streams);

}  // namespace cli
