// The folder in which a run in place keeps the old files, with a journal of what it was about to change.
//
// A file is changed only when its copy, the journal's line of it and the new file beside it are on the disk.
// So a run that dies at any moment leaves each file old, or new with an old copy; what it is now tells which.
// `pages` in the folder holds the copies under their own paths, for users too.
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
  std::string temporary;  // name of the new file that lies beside it until it is put in its place
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
  std::vector<Kept> temporaries;                               // all that ever were
  std::unordered_map<std::string, base::disk::Stamp> folders;  // of the site, before the first change in them
  bool inWork = false;  // another run holds one of them: what stands in that is not known
};
Journals readJournals(std::string_view backup);

// Takes away the new files that dead runs left beside the old ones of `folder`.
void removeTemporaries(const Journals& journals, std::string_view folder);

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

  // All may be called from several threads and throw base::Error. In this order for each file: its copy,
  // where what is returned says why it cannot be made; the line that says what will become of it, which gives
  // it the name of its new file; then for several files at a time the flush, behind which they may be
  // changed. `written` are the new files.
  Note copy(const Kept& kept, std::string_view bytes);
  void note(Kept& kept);
  void flush(const std::vector<Kept>& about, std::vector<std::string> written);

 private:
  void makeFolders(const std::string& path);
  bool othersAtWork() const;

  std::string path_, folder_;
  Journals known_;
  std::FILE* journal_ = nullptr;
  std::string journalName_;
  bool torn_ = false;  // the journal may end in a part of a line
  std::mutex mutex_;
  std::set<std::string> made_, stamped_;  // folders
};

}  // namespace site
