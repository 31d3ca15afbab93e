// The style sheets and scripts that a page names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace site {

// Those in the site's folder, by their path in it; `file` is the page's own. Each once, in no order.
std::vector<std::string> linksOf(std::string_view page, std::string_view file);

}  // namespace site
