#include "publish/compare.h"

#include <algorithm>
#include <utility>

namespace publish {
namespace {

Change changeOf(Item& item, const Sent* sent, const std::function<std::string(const LocalFile&)>& digestOf) {
  if (!item.there) return Change::New;
  if (sent == nullptr || !isAsSent(item.remote, *sent)) return Change::Conflict;
  if (item.local.size != sent->size) return Change::Changed;
  if (item.local.time == sent->time) return Change::Same;
  item.digest = digestOf(item.local);
  return item.digest == sent->digest ? Change::Same : Change::Changed;
}

}  // namespace

bool isAsSent(const Entry& remote, const Sent& sent) {
  if (remote.folder || remote.size != sent.remoteSize) return false;
  if (remote.time < 0 || sent.remoteTime < 0) return true;
  // A list may tell the minute of a new file and only the day of an old one.
  const std::int64_t coarse = std::max(remote.precision, sent.remotePrecision);
  return remote.time / coarse == sent.remoteTime / coarse;
}

std::vector<Item> compare(const std::vector<LocalFile>& local, const State& state, const RemoteFiles& remote,
                          const std::function<std::string(const LocalFile&)>& digestOf) {
  std::vector<Item> items;
  const auto sentOf = [&](const std::string& path) -> const Sent* {
    const auto at = state.files.find(path);
    return at == state.files.end() ? nullptr : &at->second;
  };
  const auto fillRemote = [&](Item& item) {
    const auto at = remote.find(item.path);
    item.there = at != remote.end();
    if (item.there) item.remote = at->second;
  };
  std::map<std::string, bool, std::less<>> here;
  for (const LocalFile& file : local) {
    Item item;
    item.path = file.path;
    item.local = file;
    item.here = true;
    fillRemote(item);
    item.change = changeOf(item, sentOf(file.path), digestOf);
    here[file.path] = true;
    items.push_back(std::move(item));
  }
  for (const auto& [path, sent] : state.files) {
    if (here.contains(path)) continue;
    Item item;
    item.path = path;
    fillRemote(item);
    if (!item.there) continue;
    item.change = isAsSent(item.remote, sent) ? Change::Gone : Change::Conflict;
    items.push_back(std::move(item));
  }
  std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) { return a.path < b.path; });
  return items;
}

}  // namespace publish
