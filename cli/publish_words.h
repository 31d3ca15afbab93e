// Publishing in English sentences.
#pragma once

#include <string>
#include <string_view>

#include "publish/address.h"
#include "publish/compare.h"
#include "publish/failure.h"

namespace cli {

std::string_view nameOf(publish::Change change);
std::string sentenceOf(publish::AddressFault fault);
// With the server's own words, where there are some.
std::string sentenceOf(const publish::Failure& failure);

}  // namespace cli
