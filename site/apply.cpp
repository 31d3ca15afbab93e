#include <algorithm>
#include <cerrno>
#include <optional>
#include <utility>

#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/path.h"
#include "base/write_notes.h"
#include "site/backup.h"
#include "site/page_work.h"
#include "site/run.h"

namespace site {
namespace {

namespace disk = base::disk;

// Bytes of new files that are flushed together: so much room is needed for a while.
constexpr std::size_t kMostTogether = 1U << 24U;

disk::Stamp stampOf(const std::string& path) {
  disk::Stamp stamp;
  if (const int code = disk::stamp(path, stamp)) base::throwFileError(code, path);
  return stamp;
}

// A file to be converted, as it was read.
struct Read {
  std::string bytes;
  disk::Stamp stamp;
};

class Applying : public Run {
 public:
  using Run::Run;

 protected:
  // Taken before the bytes, so that a change while they are read shows.
  Read read(const std::string& path) const {
    Read made;
    made.stamp = stampOf(path);
    made.bytes = base::readFile(path);
    return made;
  }

  // Whether the dry run wants it; says in `result` why not.
  bool wanted(FileResult& result) const {
    if (planned() == nullptr) return true;
    const Planned* const known = planned()->find(result.file);
    if (known == nullptr)
      result.note = Note::NotPlanned;
    else if (known->hash != result.hash)
      result.note = Note::Changed;
    return result.note == Note::None && known->ticked;
  }
};

class InPlace : public Applying {
 public:
  InPlace(const Options& options, const DryRun* planned, Observer& observer, Backup& backup)
      : Applying(options, planned, observer), backup_(backup) {}

 private:
  void one(const ListedFile& file, Batch& batch) override {
    FileResult& result = batch.results.back();
    if (file.note != Note::None || file.kind == FileKind::Other) return;
    const Read page = read(pathOf(file.file));
    result.size = page.bytes.size();
    result.hash = base::hash64(page.bytes);
    const Kept* const before = backup_.find(file.file);
    if (before != nullptr && result.hash == before->after && before->after != before->before) {
      work(page.bytes, options(), std::nullopt, false, result);
      // As the run has it that did it.
      result.form = before->form;
      result.eight = before->eight;
      result.changes = true;
      result.changeCount = before->changeCount;
      result.uncertainCount = before->uncertainCount;
      remember(result);
      result.done = Done::Already;
      return;
    }
    if (before != nullptr && result.hash != before->before) {
      result.note = Note::Changed;
      return;
    }
    if (!wanted(result)) return;
    std::string bytes = work(page.bytes, options(), formFor(file, page.bytes), true, result);
    remember(result);
    if (!result.changes) return;
    Kept kept{file.file,   page.stamp,   result.hash,        base::hash64(bytes),  {},
              result.form, result.eight, result.changeCount, result.uncertainCount};
    // What cannot be written needs no copy.
    if (disk::look(pathOf(file.file)).readOnly) base::throwFileError(EACCES, file.file);
    result.note = backup_.copy(kept, page.bytes);
    if (result.note != Note::None) return;
    backup_.note(kept);
    batch.pendingBytes += bytes.size();
    Pending next{batch.results.size() - 1, std::move(kept), nullptr, {}};
    try {
      next.prepared = std::make_unique<base::PreparedFile>(pathOf(file.file), next.kept.temporary, bytes);
    } catch (const base::Error&) {
      next.bytes = std::move(bytes);  // a folder that takes no new file: the old one may take it
    }
    batch.pending.push_back(std::move(next));
    if (batch.pendingBytes > kMostTogether) end(batch);
  }

  void end(Batch& batch) override {
    const std::vector<Pending> all = std::exchange(batch.pending, {});
    batch.pendingBytes = 0;
    std::vector<Kept> about;
    std::vector<std::string> written;
    for (const Pending& next : all) {
      about.push_back(next.kept);
      if (next.prepared) written.push_back(next.prepared->path());
    }
    try {
      backup_.flush(about, std::move(written));
    } catch (const base::Error& error) {
      for (const Pending& next : all) batch.results[next.result].note = noteOf(error);
      return;
    }
    for (const Pending& next : all) {
      FileResult& result = batch.results[next.result];
      try {
        const std::string path = pathOf(next.kept.file);
        if (stampOf(path) != next.kept.stamp || base::fileSize(path) != result.size) {
          result.note = Note::Changed;
          continue;
        }
        if (next.prepared)
          next.prepared->put();
        else
          base::writeFile(path, next.bytes);
        result.done = Done::Written;
      } catch (const base::Error& error) {
        result.note = noteOf(error);
      }
    }
  }

  Backup& backup_;
};

class IntoFolder : public Applying {
 public:
  IntoFolder(const Options& options, const DryRun* planned, Observer& observer, const FileList& list,
             const ApplyOptions& how)
      : Applying(options, planned, observer), folder_(list.folder), how_(how) {
    base::makeFolder(how_.out);
    out_ = disk::realPath(how_.out);
  }

 private:
  void one(const ListedFile& file, Batch& batch) override {
    FileResult& result = batch.results.back();
    Note note = file.note;
    // A link to a file of the site becomes a file of its own in the new folder.
    const std::string path = pathOf(file.file);
    if (note == Note::Link && isInside(path, folder_) && base::fileExists(path)) note = Note::None;
    result.note = note;
    if (note != Note::None) return;
    const std::string target = base::joinPath(out_, file.file);
    makeFoldersOf(file.file);
    if (disk::isLink(target)) {
      result.note = Note::Exists;  // what is written would land elsewhere
      return;
    }
    if (file.kind == FileKind::Other) return copy(path, target, result);
    const Read page = read(path);
    result.size = page.bytes.size();
    result.hash = base::hash64(page.bytes);
    if (!wanted(result)) {
      if (result.note == Note::None) write(target, page.bytes, page.stamp, result);
      return;
    }
    const std::string bytes = work(page.bytes, options(), formFor(file, page.bytes), true, result);
    remember(result);
    if (disk::Stamp now; disk::stamp(path, now) != 0 || now != page.stamp) {
      result.note = Note::Changed;  // while it was read
      return;
    }
    write(target, result.changes ? bytes : page.bytes, page.stamp, result);
  }

  void makeFoldersOf(const std::string& file) {
    std::string path = out_;
    for (std::size_t at = file.find('/'); at != std::string::npos; at = file.find('/', at + 1)) {
      path = base::joinPath(out_, file.substr(0, at));
      base::makeFolder(path);
      if (disk::isLink(path)) base::throwFileError(EACCES, path);
    }
  }

  void write(const std::string& target, const std::string& bytes, disk::Stamp stamp,
             FileResult& result) const {
    const Done done = result.changes ? Done::Written : Done::Copied;
    if (base::fileExists(target)) {
      const bool same = base::fileSize(target) == bytes.size() && base::readFile(target) == bytes;
      if (same) result.done = Done::Already;
      if (!same && !how_.overwrite) result.note = Note::Exists;
      if (same || !how_.overwrite) return;
    }
    base::writeFile(target, bytes);
    // Rights and marks of the old one; its time where it is the same.
    if (result.changes) {
      const disk::Stamp now = stampOf(target);
      stamp.seconds = now.seconds;
      stamp.nanoseconds = now.nanoseconds;
    }
    disk::setStamp(target, stamp);
    result.done = done;
  }

  // Pictures and films: in pieces, whatever their size.
  void copy(const std::string& path, const std::string& target, FileResult& result) const {
    const disk::Stamp stamp = stampOf(path);
    result.size = base::fileSize(path);
    if (base::fileExists(target)) {
      const disk::Stamp there = stampOf(target);
      const bool same = base::fileSize(target) == result.size && there.seconds == stamp.seconds &&
                        there.nanoseconds == stamp.nanoseconds;
      if (same) result.done = Done::Already;
      if (!same && !how_.overwrite) result.note = Note::Exists;
      if (same || !how_.overwrite) return;
    }
    base::copyInPieces(path, target);
    disk::setStamp(target, stamp);
    result.done = Done::Copied;
  }

  std::string folder_, out_;
  const ApplyOptions& how_;
};

// Two runs with the same of these give the same bytes.
std::string textOf(const convert::PlanOptions& options) {
  const convert::PartsWanted& parts = options.detector.parts;
  std::string text = options.to == convert::Target::Utf8 ? "utf-8" : "references";
  text += options.detector.from ? " from " + std::string(nameOf(*options.detector.from)) : "";
  text += " fonts " + std::to_string(static_cast<int>(options.fonts)) + " " + options.newFonts;
  if (parts.comments) text += " comments";
  if (!parts.scriptStrings) text += " no scripts";
  return text;
}

}  // namespace

void apply(const Options& options, const ApplyOptions& how, const DryRun* planned, Observer& observer) {
  base::finishInterruptedWrites();
  const FileList list = filesOf(options);
  const std::string& target = how.out.empty() ? how.backup : how.out;
  if (isInside(target, list.folder) || isInside(list.folder, target)) {
    throw base::Error(base::ErrorNumber::InvalidCall,
                      "ეს საქაღალდე თვით საიტშია ან საიტია მასში:\r\n" + target);
  }
  if (how.out.empty()) {
    Backup backup(disk::realPath(how.backup), list.folder, textOf(options.letters));
    InPlace(options, planned, observer, backup).run(list);
  } else {
    IntoFolder(options, planned, observer, list, how).run(list);
  }
}

}  // namespace site
