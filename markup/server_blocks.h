// The blocks of servers in a page, "<? ?>" and "<% %>": other text comes in their place, and what stands in
// them means nothing to the page. Quotes and brackets in them are no quotes and brackets of the page.
#pragma once

#include <array>
#include <string_view>

namespace markup {

class ServerBlocks {
 public:
  explicit ServerBlocks(std::string_view text) : text_(text) {}

  // Behind the block that begins at `at`; `at` itself when none does, or when it has no end.
  std::size_t behind(std::size_t at) {
    const std::string_view open = text_.substr(at, 2);
    if (open != "<?" && open != "<%") return at;
    const bool percent = open[1] == '%';
    if (at >= noEndFrom_[percent]) return at;
    const std::size_t end = text_.find(percent ? "%>" : "?>", at + 2);
    if (end != kNone) return end + 2;
    noEndFrom_[percent] = at;
    return at;
  }

 private:
  static constexpr std::size_t kNone = std::string_view::npos;

  std::string_view text_;
  // A broken text is not searched again for each end that is not there.
  std::array<std::size_t, 2> noEndFrom_{kNone, kNone};
};

}  // namespace markup
