// What the program's own start does for its one thread.
#include <gtest/gtest.h>

#include <optional>

#include "platform/win32/drawing/fonts.h"
#include "platform/win32/system/windows_api.h"
// windows_api.h first
#include <ole2.h>

namespace {

class UiThread : public testing::Environment {
 public:
  void SetUp() override {
    OleInitialize(nullptr);
    constexpr INITCOMMONCONTROLSEX wanted{sizeof wanted, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&wanted);
    fonts_.emplace();
  }
  void TearDown() override {
    fonts_.reset();
    OleUninitialize();
  }

 private:
  std::optional<win32::BundledFonts> fonts_;
};

const auto* const environment = testing::AddGlobalTestEnvironment(new UiThread);

}  // namespace
