// What a user does on the server's side by hand.
#include <cerrno>
#include <string>

#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "publish/chatter.h"
#include "publish/digest.h"
#include "publish/listing.h"
#include "publish/local_file.h"
#include "publish/publisher.h"

namespace publish {

std::vector<Entry> Publisher::list(const std::string& folder) {
  std::vector<Entry> entries;
  session(0).run([&](Transport& transport, int) { entries = transport.list(remote(folder)); });
  return entries;
}

void Publisher::makeFolder(const std::string& path) {
  session(0).run([&](Transport& transport, int) { transport.makeFolder(remote(path)); });
}

void Publisher::rename(const std::string& from, const std::string& to) {
  const std::vector<Entry> entries = list(remoteFolderOf(to));
  const bool exists = named(entries, remoteName(to)) != nullptr;
  session(0).run([&](Transport& transport, int) { replace(transport, from, to, exists); });
}

void Publisher::remove(const std::string& path) {
  session(0).run([&](Transport& transport, int) { transport.remove(remote(path)); });
}

void Publisher::removeFolder(const std::string& path) {
  session(0).run([&](Transport& transport, int) { transport.removeFolder(remote(path)); });
}

Item Publisher::download(const std::string& path, const std::string& target) {
  Item item;
  item.path = path;
  const std::vector<Entry> entries = list(remoteFolderOf(path));
  const Entry* const entry = named(entries, remoteName(path));
  if (entry == nullptr || entry->folder) throw Failure(Fault::NotFound);
  item.remote = *entry;
  const std::string part =
      base::joinPath(base::folderOf(target), std::string(kMark) + base::disk::newName() + ".part");
  try {
    session(0).run([&](Transport& transport, int) {
      base::disk::remove(part);
      File file(base::disk::open(part, base::disk::Mode::Create));
      if (!file) base::throwFileError(errno, part);
      std::int64_t size = 0;
      transport.get(remote(path), [&](std::string_view bytes) {
        if (std::fwrite(bytes.data(), 1, bytes.size(), file.get()) != bytes.size()) {
          throw Failure(Fault::LocalFile);
        }
        size += static_cast<std::int64_t>(bytes.size());
      });
      if (base::disk::flush(file.get()) != 0) throw Failure(Fault::LocalFile);
      if (!item.remote.link && size != item.remote.size) throw Failure(Fault::SizeDiffers);
    });
    base::renameFile(part, target);
  } catch (const base::Error& error) {
    base::disk::remove(part);
    throw Failure(Fault::LocalFile, error.what());
  } catch (...) {
    base::disk::remove(part);
    throw;
  }
  item.there = item.here = true;
  item.change = Change::Changed;
  const base::disk::Look now = base::disk::look(target);
  item.local = {path, target, static_cast<std::int64_t>(now.size), now.changed};
  // Both sides are the same now, as if it had been sent.
  item.digest = fileDigest(target);
  state_.files[path] = {item.local.size,  item.local.time,  item.digest,
                        item.remote.size, item.remote.time, item.remote.precision};
  keepState();
  return item;
}

}  // namespace publish
