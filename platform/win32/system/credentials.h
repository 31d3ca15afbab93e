// Windows' credential store: what the Credential Manager lists under generic credentials.
#pragma once

#include "ui/platform/secrets.h"

namespace win32 {

class Credentials final : public ui::Secrets {
 public:
  std::optional<std::string> read(const std::string& name) override;
  void keep(const std::string& name, const std::string& user, const std::string& secret) override;
  void forget(const std::string& name) override;
};

}  // namespace win32
