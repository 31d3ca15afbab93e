// What the commands have in common.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "cli/cli.h"
#include "convert/font_table.h"

namespace cli {

std::string sentenceOf(const base::Error& error);  // in English

// A line on the standard error.
void complain(const Streams& streams, std::string_view file, std::string_view what);

// To its end; nothing where it cannot be read.
std::optional<std::string> readAll(std::FILE* file);

// The table that comes with the program, with the lines of `file` before it, if one is named. False, and
// said, where that cannot be read.
bool readFonts(const std::string& file, convert::FontTable& fonts, const Streams& streams);

}  // namespace cli
