#include <algorithm>
#include <new>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/path.h"
#include "base/write_notes.h"
#include "site/backup.h"
#include "site/crew.h"

namespace site {
namespace {

namespace disk = base::disk;

class Restoring {
 public:
  explicit Restoring(const RestoreOptions& options) : options_(options) {}

  void run(Observer& observer) {
    base::finishInterruptedWrites();
    journals_ = readJournals(options_.backup);
    if (journals_.inWork)
      throw base::Error(base::ErrorNumber::InvalidCall, "სარეზერვო საქაღალდეზე სხვა გაშვება მუშაობს.");
    if (journals_.folder.empty())
      throw base::Error(base::ErrorNumber::BadFileFormat,
                        "ეს სარეზერვო საქაღალდე არ არის:\r\n" + options_.backup);
    folder_ = options_.folder.empty() ? journals_.folder : disk::realPath(options_.folder);
    removeTemporaries(journals_, folder_);
    for (const auto& [file, kept] : journals_.files) files_.push_back(&kept);
    std::ranges::sort(files_, {}, &Kept::file);
    observer.found(files_.size());
    inOrder(
        files_.size(), options_.threads,
        [&](std::size_t begin, std::size_t end, std::vector<FileResult>& results) {
          for (; begin < end && !observer.stopped(); ++begin) {
            observer.begins(files_[begin]->file);
            results.push_back(one(*files_[begin]));
          }
        },
        observer);
    if (observer.stopped()) return;
    // Putting files in their place has changed the times of their folders.
    for (const auto& [folder, stamp] : journals_.folders) {
      const std::string path = base::joinPath(folder_, folder);
      disk::Stamp now;
      if (disk::stamp(path, now) == 0 && now != stamp) disk::setStamp(path, stamp);
    }
  }

 private:
  FileResult one(const Kept& kept) const {
    FileResult result;
    result.file = kept.file;
    result.kind = kindOf(kept.file);
    result.form = kept.form;
    try {
      restore(kept, result);
    } catch (const base::Error& error) {
      result.note = noteOf(error);
    } catch (const std::bad_alloc&) {
      result.note = Note::Memory;
    }
    return result;
  }

  void restore(const Kept& kept, FileResult& result) const {
    const std::string path = base::joinPath(folder_, kept.file);
    const bool there = base::fileExists(path);
    if (there) result.hash = base::hash64(base::readFile(path));
    if (!there || result.hash != kept.before) {
      if ((!there || result.hash != kept.after) && !options_.overwrite) {
        result.note = there ? Note::Changed : Note::NotFound;
        return;
      }
      const std::string copy = copyOf(options_.backup, kept.file);
      const std::string bytes = base::fileExists(copy) ? base::readFile(copy) : std::string();
      if (base::hash64(bytes) != kept.before) {
        result.note = Note::Damaged;
        return;
      }
      base::writeFile(path, bytes);
      result.done = Done::Restored;
    }
    disk::Stamp now;
    if (disk::stamp(path, now) != 0 || now == kept.stamp) {
      if (result.done == Done::Nothing) result.done = Done::Already;
      return;
    }
    if (disk::setStamp(path, kept.stamp) != 0)
      result.note = Note::Denied;
    else
      result.done = Done::Restored;
  }

  const RestoreOptions& options_;
  Journals journals_;
  std::string folder_;
  std::vector<const Kept*> files_;
};

}  // namespace

void restore(const RestoreOptions& options, Observer& observer) {
  Restoring(options).run(observer);
}

}  // namespace site
