// What plan and apply have in common: every file of the list is read, and what is to be done with it is said
// by whoever derives from this.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/prepared_file.h"
#include "site/backup.h"
#include "site/file_list.h"
#include "site/site.h"

namespace site {

// A file that is about to be written.
struct Pending {
  std::size_t result = 0;  // index of its result
  Kept kept;
  std::unique_ptr<base::PreparedFile> prepared;  // null: `bytes` could not be written beside the old file
  std::string bytes;
};

// What a thread has in hands: some files in their order.
struct Batch {
  std::vector<FileResult>& results;  // ends with that of the file that is being done
  std::vector<Pending> pending;
  std::size_t pendingBytes = 0;  // new ones
};

class Run {
 public:
  Run(const Options& options, const DryRun* planned, Observer& observer)
      : options_(options), planned_(planned), observer_(observer) {}
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  virtual ~Run() = default;

  void run(const FileList& list);

 protected:
  // Both may be called from several threads, for different batches. Errors of the disk may be thrown. The
  // result of `file` has its name, kind and note.
  virtual void one(const ListedFile& file, Batch& batch) = 0;
  // Behind the last file of a batch.
  virtual void end(Batch& /*batch*/) {}

  std::string pathOf(std::string_view file) const;
  std::optional<convert::Form> formFor(const ListedFile& file, std::string_view page) const;
  void remember(const FileResult& page);  // for what it links
  const Options& options() const { return options_; }
  const DryRun* planned() const { return planned_; }

 private:
  void portion(const ListedFile* begin, const ListedFile* end, std::vector<FileResult>& results);

  const Options& options_;
  const DryRun* planned_;
  Observer& observer_;
  std::string folder_;
  DryRun own_;  // the pages of this run, for what they link
  std::mutex mutex_;
};

}  // namespace site
