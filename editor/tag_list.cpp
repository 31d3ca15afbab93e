#include "editor/tag_list.h"

#include "base/text.h"

namespace editor {
namespace {

constexpr std::string_view kOpens = "#T=";

}  // namespace

std::vector<TagEntry> parseTagList(std::string_view resource) {
  std::vector<TagEntry> entries;
  for (const std::string& line : base::split(resource, base::kCrLf)) {
    if (line.starts_with(kOpens)) {
      entries.push_back({line.substr(kOpens.size()), {}});
    } else if (!entries.empty()) {
      entries.back().code += line;
      entries.back().code += base::kCrLf;
    }
  }
  return entries;
}

std::string pickedCode(const TagEntry& entry) {
  std::string code = entry.code;
  if (code.ends_with(base::kCrLf)) code.resize(code.size() - base::kCrLf.size());
  return code;
}

}  // namespace editor
