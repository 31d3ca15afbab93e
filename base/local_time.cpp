#include "base/local_time.h"

#include <ctime>

namespace base {

std::string localTime(std::int64_t seconds) {
  const auto time = static_cast<std::time_t>(seconds);
  const std::tm* const local = std::localtime(&time);
  char text[32] = "";
  if (local != nullptr) std::strftime(text, sizeof text, "%d.%m.%Y %H:%M", local);
  return text;
}

}  // namespace base
