// The text of a new, empty page.
#pragma once

#include <string>
#include <string_view>

#include "app/props_record.h"

namespace project {

// Byte text with CR LF line ends, none after the last line. `title` stands in it as it is.
std::string HTMLheaderi(std::string_view title, const app::PropsRecord& props);

}  // namespace project
