#include <algorithm>
#include <array>

#include "base/text.h"
#include "site/site.h"

namespace site {

std::string_view nameOf(Done done) {
  constexpr std::array<std::string_view, 5> kNames = {"", "written", "copied", "already", "restored"};
  return kNames[static_cast<std::size_t>(done)];
}

void DryRun::add(const FileResult& result) {
  // Of others nothing is known that could have changed.
  if (result.kind == FileKind::Other) return;
  files_[result.file] = {result.hash, result.from};
  addLinks(result.links, result.eight);
}

void DryRun::addLinks(const std::vector<std::string>& links, std::optional<convert::Form> eight) {
  if (!eight) return;
  for (const std::string& link : links) {
    Votes& votes = votes_[base::upperAscii(link)];
    const auto at = std::ranges::find(votes, *eight, &Votes::value_type::first);
    if (at == votes.end())
      votes.emplace_back(*eight, 1);
    else
      ++at->second;
  }
}

const Planned* DryRun::find(std::string_view file) const {
  const auto at = files_.find(file);
  return at == files_.end() ? nullptr : &at->second;
}

void DryRun::tick(std::string_view file, bool wanted) {
  const auto at = files_.find(file);
  if (at != files_.end()) at->second.ticked = wanted;
}

std::optional<convert::Form> DryRun::formOfLinked(std::string_view file) const {
  const auto at = votes_.find(base::upperAscii(file));
  if (at == votes_.end()) return std::nullopt;
  // Of equal numbers the order of forms decides, not that of the pages.
  return std::ranges::max_element(at->second,
                                  [](const auto& a, const auto& b) {
                                    return a.second != b.second ? a.second < b.second : a.first > b.first;
                                  })
      ->first;
}

}  // namespace site
