// Where the program keeps the keys of servers that it has met.
#pragma once

#include <string>

namespace publish {

// In a folder of the program for this user, which is made when it is missing; the file itself may not be
// there.
std::string usualHostFile();

}  // namespace publish
