// Results as lines of JSON: what runs say to each other, to reports and to other programs.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "site/site.h"

namespace site {

std::string lineOf(const FileResult& result);  // with its line end
// Nothing for what is no such line.
std::optional<FileResult> resultOf(std::string_view line);

}  // namespace site
