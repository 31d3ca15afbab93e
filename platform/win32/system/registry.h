// Per-user values of the application "Zervo". Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace win32 {

std::string registryValue(std::string_view section, std::string_view key);  // empty when not there
void setRegistryValue(std::string_view section, std::string_view key, std::string_view value);  // may throw

}  // namespace win32
