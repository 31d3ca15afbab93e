// What the user reads of publishing.
#pragma once

#include <cstdint>
#include <string>

#include "publish/address.h"
#include "publish/compare.h"
#include "publish/failure.h"

namespace project {

// Of so many bytes, rounded.
std::string sizeText(std::int64_t bytes);
std::string textOf(publish::Change change);
std::string textOf(publish::AddressFault fault);
// With the server's own words, where there are any.
std::string textOf(const publish::Failure& failure);

}  // namespace project
