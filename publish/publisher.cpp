#include "publish/publisher.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <exception>
#include <new>
#include <set>
#include <thread>
#include <utility>

#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "publish/chatter.h"
#include "publish/digest.h"
#include "publish/listing.h"
#include "publish/local_file.h"

namespace publish {
namespace {

// Files are put into their places by so many or so much at a time: pages and their pictures change together,
// and a server needs no room for all old and all new ones.
constexpr std::size_t kBatchFiles = 256;
constexpr std::int64_t kBatchBytes = 64LL << 20U;
constexpr std::size_t kDigestDigits = 16;

// `offset` may be more than a long holds.
bool seek(std::FILE* file, std::int64_t offset) {
  constexpr std::int64_t kStep = 1LL << 30U;
  std::rewind(file);
  for (; offset > 0; offset -= std::min(offset, kStep)) {
    if (std::fseek(file, static_cast<long>(std::min(offset, kStep)), SEEK_CUR) != 0) return false;
  }
  return true;
}

// Faults of one file, after which others may well go.
bool isOfFile(Fault fault) {
  return fault == Fault::NoPermission || fault == Fault::NotFound || fault == Fault::SizeDiffers ||
         fault == Fault::ChangedMeanwhile || fault == Fault::LocalFile || fault == Fault::Other;
}

bool isUnchanged(const Entry& before, const Entry& now) {
  Sent sent;
  sent.remoteSize = before.size;
  sent.remoteTime = before.time;
  sent.remotePrecision = before.precision;
  return isAsSent(now, sent);
}

}  // namespace

// Files that go into their places together.
struct Publisher::Batch {
  struct Part {
    Item item;
    std::string way;  // path on its way
    bool pending = true;
  };
  std::vector<Part> parts;
};

Publisher::Publisher(Account account, MakeTransport make, std::string stateFile, Talk& talk)
    : account_(std::move(account)),
      make_(std::move(make)),
      stateFile_(std::move(stateFile)),
      state_(readState(stateFile_)),
      talk_(std::make_unique<Chatter>(talk)) {
  door_.login = account_.login;
  if (door_.login.user.empty()) door_.login.user = account_.address.user;
  if (!door_.login.password && !account_.address.password.empty()) {
    door_.login.password = account_.address.password;
  }
  door_.trust.authorities = account_.authorities;
  door_.trust.key = state_.certificateKey;
  if (!account_.knownHosts.empty() && base::fileExists(account_.knownHosts)) {
    door_.trust.hostLines = base::readFile(account_.knownHosts);
  }
  door_.certificateAccepted = [this](const std::string& key) {
    state_.certificateKey = key;
    keepState();
  };
}

Publisher::~Publisher() = default;

std::string Publisher::remote(const std::string& path) const {
  return joinRemote(account_.address.folder, path);
}

// Named by what it will hold, so that another run knows what it can go on with.
std::string Publisher::temporary(const std::string& path, const std::string& digest) const {
  const std::string name = std::string(kMark) + state_.id + "." +
                           hex(sha256(path + "\n" + digest)).substr(0, kDigestDigits) + ".part";
  return joinRemote(remoteFolderOf(path), name);
}

std::string Publisher::aside(const std::string& path) const {
  return joinRemote(remoteFolderOf(path), std::string(kMark) + state_.id + ".old." + remoteName(path));
}

Session& Publisher::session(std::size_t number) {
  while (sessions_.size() <= number) {
    sessions_.push_back(std::make_unique<Session>(account_, make_, *talk_, door_));
  }
  return *sessions_[number];
}

void Publisher::parallel(std::size_t count, const std::function<void(Session&, std::size_t)>& task) {
  if (count == 0) return;
  const std::size_t most =
      std::min<std::size_t>(count, static_cast<std::size_t>(std::max(account_.connections, 1)));
  session(most - 1);
  std::atomic<std::size_t> next = 0;
  std::exception_ptr first;
  std::mutex firstGuard;
  const auto work = [&](std::size_t number) {
    try {
      for (std::size_t i = next++; i < count; i = next++) {
        if (talk_->stopped()) throw Failure(Fault::Stopped);
        task(*sessions_[number], i);
      }
    } catch (...) {
      const std::scoped_lock lock(firstGuard);
      if (!first) first = std::current_exception();
      talk_->given_up = true;
    }
  };
  talk_->given_up = false;
  // The first one asks what must be asked; servers that take only few connections leave the others out.
  session(0).run([](Transport&, int) {});
  std::vector<std::thread> threads;
  for (std::size_t number = 1; number < most; ++number) {
    threads.emplace_back([&, number] {
      try {
        sessions_[number]->open();
      } catch (const std::exception&) {
        return;
      }
      work(number);
    });
  }
  work(0);
  for (std::thread& thread : threads) thread.join();
  talk_->given_up = false;
  if (first) std::rethrow_exception(first);
}

void Publisher::takeList(const std::string& folder, const std::vector<Entry>& entries, RemoteFiles& found,
                         std::vector<std::string>& below) {
  const std::string old = std::string(kMark) + state_.id + ".old.";
  for (const Entry& entry : entries) {
    const std::string path = joinRemote(folder, entry.name);
    if (entry.name.starts_with(old)) {
      // A run was cut between putting the old file aside and the new one into its place.
      const std::string name = entry.name.substr(old.size());
      if (named(entries, name) == nullptr) {
        lost_[joinRemote(folder, name)] = path;
        Entry back = entry;
        back.name = name;
        found[joinRemote(folder, name)] = back;
      } else {
        strays_[path] = entry;
      }
    } else if (entry.name.starts_with(std::string(kMark) + state_.id + ".")) {
      strays_[path] = entry;
    } else {
      if (entry.folder || entry.link) {
        below.push_back(path);
        folders_[path] = true;
      }
      if (!entry.folder) found[path] = entry;
    }
  }
}

void Publisher::walk(const std::vector<LocalFile>& files, RemoteFiles& found) {
  std::set<std::string, std::less<>> wanted;
  const auto want = [&](const std::string& path) {
    for (std::string folder = remoteFolderOf(path); !folder.empty(); folder = remoteFolderOf(folder)) {
      if (!wanted.insert(folder).second) break;
    }
  };
  for (const LocalFile& file : files) want(file.path);
  for (const auto& [path, sent] : state_.files) want(path);
  strays_.clear();
  lost_.clear();
  folders_.clear();
  std::vector<std::string> level = {""};
  while (!level.empty()) {
    std::vector<std::string> below;
    parallel(level.size(), [&](Session& session, std::size_t i) {
      std::vector<Entry> entries;
      bool there = true;
      session.run([&](Transport& transport, int) {
        try {
          entries = transport.list(remote(level[i]));
        } catch (const Failure& failure) {
          if (failure.fault() != Fault::NotFound) throw;
          there = false;
        }
      });
      const std::scoped_lock lock(results_);
      // Some servers show a missing folder as an empty one.
      if (level[i].empty()) folders_[""] = there && !entries.empty();
      takeList(level[i], entries, found, below);
    });
    level.clear();
    for (std::string& path : below) {
      if (wanted.contains(path)) level.push_back(std::move(path));
    }
  }
}

std::vector<Item> Publisher::compare(const std::vector<LocalFile>& files) {
  RemoteFiles there;
  walk(files, there);
  return publish::compare(files, state_, there, [this](const LocalFile& file) {
    if (talk_->stopped()) throw Failure(Fault::Stopped);
    try {
      return fileDigest(file.source);
    } catch (const base::Error& error) {
      throw Failure(Fault::LocalFile, error.what());
    }
  });
}

void Publisher::keepState() {
  if (!stateFile_.empty()) writeState(stateFile_, account_.address, state_);
}

void Publisher::fail(const Item& item, const Failure& failure) {
  {
    const std::scoped_lock lock(results_);
    ++outcome_.failed;
  }
  talk_->failed(item, failure);
}

// Ends what a cut run left: puts files back that were put aside, and takes away what nobody will go on with.
void Publisher::tidy(const std::vector<Item>& chosen) {
  std::set<std::string> kept;
  for (const Item& item : chosen) {
    if (item.here && !item.digest.empty()) kept.insert(temporary(item.path, item.digest));
  }
  for (const auto& lost : lost_) {
    session(0).run(
        [&](Transport& transport, int) { transport.rename(remote(lost.second), remote(lost.first)); });
  }
  lost_.clear();
  for (auto at = strays_.begin(); at != strays_.end();) {
    if (kept.contains(at->first)) {
      ++at;
      continue;
    }
    session(0).run([&](Transport& transport, int) {
      try {
        transport.remove(remote(at->first));
      } catch (const Failure& failure) {
        if (!isOfFile(failure.fault())) throw;
      }
    });
    at = strays_.erase(at);
  }
}

// Those above a file that is there.
void Publisher::markFolders(const std::string& path) {
  for (std::string folder = remoteFolderOf(path); !folder.empty(); folder = remoteFolderOf(folder)) {
    folders_[folder] = true;
  }
  folders_[""] = true;
}

void Publisher::makeFolders(const std::vector<Item>& chosen) {
  std::set<std::string> wanted;
  for (const Item& item : chosen) {
    if (item.there) markFolders(item.path);
  }
  for (const Item& item : chosen) {
    if (!item.here || item.change == Change::Same) continue;
    for (std::string folder = remoteFolderOf(item.path); !folder.empty(); folder = remoteFolderOf(folder)) {
      wanted.insert(folder);
    }
  }
  std::vector<std::string> missing;
  if (!folders_[""]) {
    // From the outermost on.
    for (std::string folder = account_.address.folder; !folder.empty() && folder != "/";
         folder = remoteFolderOf(folder)) {
      missing.insert(missing.begin(), folder);
    }
  }
  const std::size_t outer = missing.size();
  for (const std::string& folder : wanted) {
    if (!folders_[folder]) missing.push_back(remote(folder));
    folders_[folder] = true;
  }
  for (std::size_t i = 0; i < missing.size(); ++i) {
    session(0).run([&](Transport& transport, int tried) {
      try {
        transport.makeFolder(missing[i]);
      } catch (const Failure& failure) {
        // It may be there: what is put into it will tell.
        const bool may = i < outer || tried > 0 || failure.fault() == Fault::NoPermission;
        if (!may || !isOfFile(failure.fault())) throw;
      }
    });
  }
  folders_[""] = true;
}

void Publisher::put(Session& session, Item& item, const std::string& way) {
  std::int64_t offset = 0;
  if (const auto at = strays_.find(way); at != strays_.end()) offset = at->second.size;
  std::int64_t shown = 0;
  session.run([&](Transport& transport, int tried) {
    if (tried > 0) {
      const std::vector<Entry> entries = transport.list(remote(remoteFolderOf(way)));
      const Entry* const begun = named(entries, remoteName(way));
      offset = begun == nullptr ? 0 : begun->size;
    }
    if (offset > item.local.size) offset = 0;
    talk_->moved(item, offset, offset - shown, true);
    shown = offset;
    if (offset == item.local.size && offset > 0) return;
    const File file(base::disk::open(item.local.source, base::disk::Mode::Read));
    if (!file || !seek(file.get(), offset)) throw Failure(Fault::LocalFile);
    transport.put(remote(way), offset, item.local.size, [&](char* buffer, std::size_t room) {
      const std::size_t size = std::fread(buffer, 1, room, file.get());
      shown += static_cast<std::int64_t>(size);
      talk_->moved(item, shown, static_cast<std::int64_t>(size), false);
      return size;
    });
    if (std::ferror(file.get()) != 0) throw Failure(Fault::LocalFile);
  });
}

void Publisher::putBatch(Batch& batch, bool again) {
  parallel(batch.parts.size(), [&](Session& session, std::size_t i) {
    Batch::Part& part = batch.parts[i];
    if (!part.pending) return;
    try {
      try {
        if (part.item.digest.empty()) part.item.digest = fileDigest(part.item.local.source);
        part.way = temporary(part.item.path, part.item.digest);
        if (again) {
          const std::scoped_lock lock(results_);
          strays_.erase(part.way);
        }
        put(session, part.item, part.way);
        const base::disk::Look now = base::disk::look(part.item.local.source);
        if (now.kind != base::disk::Kind::File || now.changed != part.item.local.time ||
            static_cast<std::int64_t>(now.size) != part.item.local.size) {
          throw Failure(Fault::LocalFile, "changed meanwhile");
        }
      } catch (const base::Error& error) {
        throw Failure(Fault::LocalFile, error.what());
      }
    } catch (const Failure& failure) {
      const bool full = failure.fault() == Fault::DiskFull;
      if (!full && !isOfFile(failure.fault())) throw;
      part.pending = false;
      fail(part.item, failure);
      if (!part.way.empty()) {
        try {
          session.run([&](Transport& transport, int) { transport.remove(remote(part.way)); });
        } catch (const Failure& left) {
          if (!isOfFile(left.fault())) throw;
        }
      }
      if (full) throw;
    }
  });
}

// Where the server does not replace, the old file is put aside first and comes back if the new one cannot
// take its place; where the connection is cut just then, the next run finds it.
void Publisher::replace(Transport& transport, const std::string& from, const std::string& to, bool exists) {
  if (!exists) return transport.rename(remote(from), remote(to));
  if (transport.renameReplaces()) {
    try {
      return transport.rename(remote(from), remote(to));
    } catch (const Failure& failure) {
      if (!isOfFile(failure.fault())) throw;
    }
  }
  const std::string old = aside(to);
  transport.rename(remote(to), remote(old));
  try {
    transport.rename(remote(from), remote(to));
  } catch (const Failure& failure) {
    if (isOfFile(failure.fault())) transport.rename(remote(old), remote(to));
    throw;
  }
  transport.remove(remote(old));
}

void Publisher::finishBatch(Batch& batch) {
  std::vector<std::string> folders;
  for (const Batch::Part& part : batch.parts) {
    if (part.pending) folders.push_back(remoteFolderOf(part.item.path));
  }
  std::sort(folders.begin(), folders.end());
  folders.erase(std::unique(folders.begin(), folders.end()), folders.end());
  std::map<std::string, std::map<std::string, Entry>> lists;
  parallel(folders.size(), [&](Session& session, std::size_t i) {
    session.run([&](Transport& transport, int) {
      std::map<std::string, Entry> byName;
      for (Entry& entry : transport.list(remote(folders[i]))) byName[entry.name] = entry;
      const std::scoped_lock lock(results_);
      lists[folders[i]] = std::move(byName);
    });
  });
  parallel(batch.parts.size(), [&](Session& session, std::size_t i) {
    Batch::Part& part = batch.parts[i];
    if (!part.pending) return;
    const std::map<std::string, Entry>& entries = lists[remoteFolderOf(part.item.path)];
    const auto sent = entries.find(remoteName(part.way));
    // Sent again by the caller.
    if (sent == entries.end() || sent->second.size != part.item.local.size) return;
    const auto now = entries.find(remoteName(part.item.path));
    const bool exists = now != entries.end();
    part.pending = false;
    try {
      if (exists && (!part.item.there || !isUnchanged(part.item.remote, now->second))) {
        session.run([&](Transport& transport, int) { transport.remove(remote(part.way)); });
        throw Failure(Fault::ChangedMeanwhile);
      }
      session.run([&](Transport& transport, int tried) {
        bool there = exists;
        if (tried > 0) {
          // The connection was cut: what has been done by then?
          const std::vector<Entry> again = transport.list(remote(remoteFolderOf(part.item.path)));
          there = named(again, remoteName(part.item.path)) != nullptr;
          if (named(again, remoteName(part.way)) == nullptr && there) return;
        }
        replace(transport, part.way, part.item.path, there);
      });
    } catch (const Failure& failure) {
      if (!isOfFile(failure.fault())) throw;
      return fail(part.item, failure);
    }
    Sent known;
    known.size = part.item.local.size;
    known.time = part.item.local.time;
    known.digest = part.item.digest;
    known.remoteSize = sent->second.size;
    known.remoteTime = sent->second.time;
    known.remotePrecision = sent->second.precision;
    {
      const std::scoped_lock lock(results_);
      state_.files[part.item.path] = known;
      ++outcome_.sent;
    }
    talk_->done(part.item);
  });
}

void Publisher::sendBatch(Batch& batch) {
  const auto isPending = [](const Batch::Part& part) { return part.pending; };
  for (int tried = 0; tried < account_.retry.tries; ++tried) {
    putBatch(batch, tried > 0);
    finishBatch(batch);
    if (std::none_of(batch.parts.begin(), batch.parts.end(), isPending)) return;
  }
  for (const Batch::Part& part : batch.parts) {
    if (part.pending) fail(part.item, Failure(Fault::SizeDiffers));
  }
}

void Publisher::removeChosen(const std::vector<Item>& chosen) {
  std::vector<const Item*> gone;
  for (const Item& item : chosen) {
    if (!item.here && item.there) gone.push_back(&item);
  }
  parallel(gone.size(), [&](Session& session, std::size_t i) {
    try {
      session.run([&](Transport& transport, int tried) {
        try {
          transport.remove(remote(gone[i]->path));
        } catch (const Failure& failure) {
          // The try before may have done it.
          if (tried == 0 || failure.fault() != Fault::NotFound) throw;
        }
      });
    } catch (const Failure& failure) {
      if (!isOfFile(failure.fault())) throw;
      return fail(*gone[i], failure);
    }
    {
      const std::scoped_lock lock(results_);
      state_.files.erase(gone[i]->path);
      ++outcome_.removed;
    }
    talk_->done(*gone[i]);
  });
}

Outcome Publisher::run(const std::vector<Item>& chosen) {
  outcome_ = {};
  int files = 0;
  std::int64_t bytes = 0;
  for (const Item& item : chosen) {
    if (item.change == Change::Same) {
      // Read and found the same: needs not be read next time.
      const auto at = state_.files.find(item.path);
      if (!item.digest.empty() && at != state_.files.end()) at->second.time = item.local.time;
      continue;
    }
    ++files;
    if (item.here) bytes += item.local.size;
  }
  talk_->begin(files, bytes);
  try {
    std::vector<Item> ours = chosen;
    if (!strays_.empty()) {
      for (Item& item : ours) {
        if (item.here && item.change != Change::Same && item.digest.empty()) {
          try {
            item.digest = fileDigest(item.local.source);
          } catch (const base::Error&) {
            item.digest.clear();  // told when its turn comes
          }
        }
      }
    }
    tidy(ours);
    makeFolders(ours);
    Batch batch;
    std::int64_t held = 0;
    for (Item& item : ours) {
      if (!item.here || item.change == Change::Same) continue;
      held += item.local.size;
      batch.parts.push_back({std::move(item), {}, true});
      if (batch.parts.size() < kBatchFiles && held < kBatchBytes) continue;
      sendBatch(batch);
      keepState();
      batch.parts.clear();
      held = 0;
    }
    sendBatch(batch);
    removeChosen(chosen);
  } catch (...) {
    keepState();
    throw;
  }
  keepState();
  return outcome_;
}

}  // namespace publish
