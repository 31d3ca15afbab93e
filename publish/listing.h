// What servers answer when they are asked what a folder holds.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "publish/transport.h"

namespace publish {

// Lines as `ls -l` writes them, as DOS did, or as MLSD does; what is none of them is skipped. `now` (seconds
// since 1970) tells the year of dates without one.
std::vector<Entry> parseListing(std::string_view lines, std::int64_t now);

// Seconds since 1970, UTC.
std::int64_t secondsOf(int year, int month, int day, int hour, int minute, int second);

// Null: there is none of this name. Lives as long as the entries.
const Entry* named(const std::vector<Entry>& entries, std::string_view name);

}  // namespace publish
