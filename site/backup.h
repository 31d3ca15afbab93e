// The folder in which a run in place keeps the old files, with a journal of what it was about to change.
//
// A file is changed only when its copy and the journal's line of it are on the disk. So a run that dies at
// any moment leaves each file old, or new with an old copy; what it is now tells which. `pages` in the folder
// holds the copies under their own paths, for users too.
#pragma once

#include <cstdint>
#include <cstdio>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/disk.h"
#include "convert/forms.h"
#include "site/notes.h"

namespace site {

// What the journal knows of a file.
struct Kept {
  std::string file;
  base::disk::Stamp stamp;   // before
  std::uint64_t before = 0;  // hashes of its bytes
  std::uint64_t after = 0;
  // Of the result, for the run that takes this one up.
  convert::Form form = convert::Form::Ascii;
  std::optional<convert::Form> eight;
  std::size_t changeCount = 0;
  std::size_t uncertainCount = 0;
};

// All journals of a backup folder.
struct Journals {
  std::string folder;   // of the site
  std::string options;  // with which it was begun
  std::unordered_map<std::string, Kept> files;
  std::unordered_map<std::string, base::disk::Stamp> folders;  // of the site, before the first change in them
  bool inWork = false;  // another run holds one of them: what stands in that is not known
};
Journals readJournals(std::string_view backup);

std::string copyOf(std::string_view backup, std::string_view file);  // its path

class Backup {
 public:
  // Begins or takes up a backup of `folder`. Throws base::Error where it is one of another folder, or was
  // begun with other options, or cannot be made.
  Backup(std::string_view path, std::string_view folder, std::string_view options);
  Backup(const Backup&) = delete;
  Backup& operator=(const Backup&) = delete;
  ~Backup();

  const Kept* find(const std::string& file) const;  // from earlier runs

  // Both may be called from several threads. The first makes the copy of an old file and flushes it; throws
  // base::Error, or returns why it cannot be. The second notes what will be changed now: it is on the disk
  // when the call returns.
  Note copy(const Kept& kept, std::string_view bytes);
  void commit(const std::vector<Kept>& about);

 private:
  void makeFolders(const std::string& path);
  bool othersAtWork() const;

  std::string path_, folder_;
  Journals known_;
  std::FILE* journal_ = nullptr;
  std::string journalName_;
  bool torn_ = false;  // the journal may end in a part of a line
  std::mutex mutex_;
  std::set<std::string> made_, stamped_, unflushed_;  // folders
};

}  // namespace site
