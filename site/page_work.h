// One file of a site: what it is, and what would become of it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "site/site.h"

namespace site {

// Fills all but `file`, `kind`, `from` and `done` of `result`, whose first two are set. Returns the new bytes
// when they are wanted and others than those of `page`.
std::string work(std::string_view page, const Options& options, std::optional<convert::Form> from,
                 bool wanted, FileResult& result);

// The form for a style sheet or script that its own letters do not tell, from what links it.
std::optional<convert::Form> formToTake(std::string_view page, const Options& options, FileKind kind,
                                        std::optional<convert::Form> ofPages);

}  // namespace site
