#include "app/web_file.h"

#include <algorithm>

#include "base/cp1252.h"
#include "base/text.h"

namespace app {
namespace {

constexpr std::string_view kStartPage = "STOPF=";

}  // namespace

std::string webFileText(std::vector<std::string> names, std::string_view startPage) {
  siasorti(names);
  std::string text;
  for (const std::string& name : names) text.append(base::storedName(name)).append(base::kCrLf);
  text.append(kStartPage).append(base::storedName(startPage));
  return text.append(base::kCrLf);
}

void siasorti(std::vector<std::string>& names) {
  std::stable_sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
    if (a.empty() || b.empty()) return b.empty() && !a.empty();
    return base::compareNoCase(a, b) < 0;
  });
}

}  // namespace app
