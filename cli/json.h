// What was found in a page, as a line of JSON.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "convert/detector.h"

namespace cli {

// Percent as a number from 0 to 1: "0.97".
std::string share(std::uint8_t percent);

// The first part of a text in readable letters, on one line; UTF-8.
std::string oneLine(std::string_view bytes, convert::Form form);

// One line for the file: its form and its runs. `page` is what was looked at.
void writeJson(std::string_view file, std::string_view page, const convert::Detection& found,
               const std::function<void(std::string_view)>& write);

}  // namespace cli
