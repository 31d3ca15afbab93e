// A moment as the user reads it.
#pragma once

#include <cstdint>
#include <string>

namespace base {

// Day and time in the user's own zone; `seconds` since 1970. Empty: not a time of the calendar.
std::string localTime(std::int64_t seconds);

}  // namespace base
