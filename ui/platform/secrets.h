// The system's own store of passwords, which only the user's login opens.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ui {

class Secrets {
 public:
  virtual ~Secrets() = default;
  // Names, users and secrets are UTF-8. Nothing: it keeps none of that name.
  virtual std::optional<std::string> read(const std::string& name) = 0;
  // Replaces what was kept under the name. Throws base::Error where the system refuses.
  virtual void keep(const std::string& name, const std::string& user, const std::string& secret) = 0;
  virtual void forget(const std::string& name) = 0;  // nothing when there is none
};

}  // namespace ui
