#include "site/backup.h"

#include <algorithm>
#include <cerrno>
#include <charconv>

#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/json.h"
#include "base/path.h"
#include "base/text.h"
#include "base/web_file.h"
#include "base/write_notes.h"

namespace site {
namespace {

namespace disk = base::disk;

constexpr std::string_view kJournal = "journal-";
constexpr std::string_view kJournalEnd = ".jsonl";
constexpr std::string_view kTemporary = ".zervo-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr std::string_view kCheck = ",\"check\":\"";
constexpr std::string_view kReadMe =
    "This is what files were before Zervo converted their letters: in \"pages\", under their own names.\r\n"
    "Zervo gives them all back: File menu, the window for a whole site. So does the command\r\n"
    "zervo-cli site restore FOLDER; FOLDER is this one.\r\n\r\n"
    "აქ ინახება ფაილები, როგორიც Zervo-თი ასოების გარდაქმნამდე იყო: საქაღალდეში \"pages\", თავისი "
    "სახელებით.\r\n"
    "ყველას აღადგენს Zervo: მენიუ „ფაილი“, მთელი საიტის ფანჯარა; ან ბრძანება\r\n"
    "zervo-cli site restore FOLDER; FOLDER ეს საქაღალდეა.\r\n";

// The end of a line tells whether all of it came to the disk.
std::string checked(std::string line) {
  const std::string check = base::hexOf(base::hash64(line));
  return line.append(kCheck).append(check).append("\"}\n");
}

bool isWhole(std::string_view line) {
  const std::size_t at = line.rfind(kCheck);
  return at != std::string_view::npos &&
         line.substr(at + kCheck.size()) == base::hexOf(base::hash64(line.substr(0, at))) + "\"}";
}

std::string stampMembers(const disk::Stamp& stamp) {
  return ",\"seconds\":\"" + std::to_string(stamp.seconds) +
         "\",\"nanoseconds\":" + std::to_string(stamp.nanoseconds) +
         ",\"marks\":" + std::to_string(stamp.marks);
}

disk::Stamp stampOf(const base::Json& line) {
  disk::Stamp stamp;
  const std::string& seconds = line["seconds"].text;
  std::from_chars(seconds.data(), seconds.data() + seconds.size(), stamp.seconds);
  stamp.nanoseconds = static_cast<std::uint32_t>(line["nanoseconds"].number());
  stamp.marks = static_cast<std::uint32_t>(line["marks"].number());
  return stamp;
}

std::uint64_t hashOf(const base::Json& hex) {
  std::uint64_t hash = 0;
  std::from_chars(hex.text.data(), hex.text.data() + hex.text.size(), hash, 16);
  return hash;
}

std::string lineOf(const Kept& kept) {
  std::string line = "{\"file\":" + base::jsonQuoted(kept.file) + stampMembers(kept.stamp) +
                     ",\"before\":\"" + base::hexOf(kept.before) + "\",\"after\":\"" +
                     base::hexOf(kept.after) + "\",\"form\":\"" + std::string(convert::nameOf(kept.form)) +
                     '"';
  line += ",\"temporary\":" + base::jsonQuoted(kept.temporary);
  if (kept.eight) line += ",\"eight\":\"" + std::string(convert::nameOf(*kept.eight)) + '"';
  line += ",\"change count\":" + std::to_string(kept.changeCount) +
          ",\"uncertain count\":" + std::to_string(kept.uncertainCount);
  return checked(std::move(line));
}

bool isTemporary(std::string_view name) {
  return name.starts_with(kTemporary) && name.ends_with(kTemporaryEnd) &&
         name.find_first_of("/\\:") == std::string_view::npos;
}

void readLine(const base::Json& line, Journals& journals) {
  if (line["backup of"].kind == base::Json::Kind::Text) {
    journals.folder = line["backup of"].text;
    journals.options = line["options"].text;
  } else if (line["folder"].kind == base::Json::Kind::Text) {
    // Of several runs at a time the first knows it as it was.
    const disk::Stamp stamp = stampOf(line);
    const auto at = journals.folders.try_emplace(line["folder"].text, stamp).first;
    if (std::pair(stamp.seconds, stamp.nanoseconds) < std::pair(at->second.seconds, at->second.nanoseconds))
      at->second = stamp;
  } else if (line["file"].kind == base::Json::Kind::Text) {
    Kept kept;
    kept.file = line["file"].text;
    kept.stamp = stampOf(line);
    kept.before = hashOf(line["before"]);
    kept.after = hashOf(line["after"]);
    kept.eight = convert::formNamed(line["eight"].text);
    kept.changeCount = line["change count"].number();
    kept.uncertainCount = line["uncertain count"].number();
    kept.form = convert::formNamed(line["form"].text).value_or(convert::Form::Ascii);
    if (base::leavesFolder(kept.file)) return;
    kept.temporary = line["temporary"].text;
    if (isTemporary(kept.temporary)) journals.temporaries.push_back(kept);
    journals.files[kept.file] = kept;
  }
}

bool isJournal(std::string_view name) {
  return name.starts_with(kJournal) && name.ends_with(kJournalEnd);
}

// Folder of a file in the site; "" is the site's own.
std::string folderIn(std::string_view file) {
  const std::size_t at = file.rfind('/');
  return std::string(at == std::string_view::npos ? std::string_view() : file.substr(0, at));
}

int writeAll(std::FILE* file, std::string_view bytes) {
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size()) return disk::flush(file);
  return errno != 0 ? errno : ENOSPC;
}

}  // namespace

std::string copyOf(std::string_view backup, std::string_view file) {
  return base::joinPath(base::joinPath(backup, "pages"), file);
}

Journals readJournals(std::string_view backup) {
  Journals found;
  std::vector<std::string> names = base::filesIn(backup);
  std::ranges::sort(names, [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;  // by number
  });
  for (const std::string& name : names) {
    const std::string path = base::joinPath(backup, name);
    if (!isJournal(name)) continue;
    if (!disk::isFree(path)) {
      found.inWork = true;
      continue;
    }
    for (const std::string& line : base::split(base::readFile(path), "\n")) {
      const auto read = isWhole(line) ? base::parseJson(line) : std::nullopt;
      if (read) readLine(*read, found);
    }
  }
  return found;
}

void removeTemporaries(const Journals& journals, std::string_view folder) {
  for (const Kept& kept : journals.temporaries) {
    const std::string target = base::joinPath(folder, kept.file);
    const std::string path = base::joinPath(base::folderOf(target), kept.temporary);
    base::finishReplacing(path, target,
                          [&](std::string_view bytes) { return base::hash64(bytes) == kept.after; });
  }
}

Backup::Backup(std::string_view path, std::string_view folder, std::string_view options)
    : path_(path), folder_(folder) {
  makeFolders(path_);
  known_ = readJournals(path_);
  if (!known_.folder.empty() && (known_.folder != folder || known_.options != options)) {
    throw base::Error(base::ErrorNumber::InvalidCall,
                      known_.folder != folder ? "სარეზერვო საქაღალდე სხვა საიტისაა:\r\n" + path_
                                              : "სარეზერვო საქაღალდე სხვა პარამეტრებით დაიწყო:\r\n" + path_);
  }
  removeTemporaries(known_, folder_);
  for (int number = 1; journal_ == nullptr; ++number) {
    journalName_ = std::string(kJournal) + std::to_string(number) + std::string(kJournalEnd);
    journal_ = disk::open(base::joinPath(path_, journalName_), disk::Mode::Create);
    if (journal_ == nullptr && errno != EEXIST && errno != EACCES) base::throwFileError(errno, path_);
    if (journal_ == nullptr && errno == EACCES &&
        disk::look(base::joinPath(path_, journalName_)).kind != disk::Kind::File)
      base::throwFileError(EACCES, path_);
  }
  const std::string head =
      checked("{\"backup of\":" + base::jsonQuoted(folder) + ",\"options\":" + base::jsonQuoted(options));
  if (const int code = writeAll(journal_, head)) {
    std::fclose(journal_);
    disk::remove(base::joinPath(path_, journalName_));
    base::throwFileError(code, path_);
  }
  const std::string readMe = base::joinPath(path_, "README.txt");
  if (!base::fileExists(readMe)) base::writeFile(readMe, kReadMe);
  disk::flushFolder(path_);
}

Backup::~Backup() {
  std::fclose(journal_);
}

const Kept* Backup::find(const std::string& file) const {
  const auto at = known_.files.find(file);
  return at == known_.files.end() ? nullptr : &at->second;
}

void Backup::makeFolders(const std::string& path) {
  if (path.empty() || made_.contains(path)) return;
  if (!base::folderExists(path)) {
    makeFolders(base::folderOf(path));
    base::makeFolder(path);
  }
  made_.insert(path);
}

bool Backup::othersAtWork() const {
  return std::ranges::any_of(base::fileNames(path_), [&](const std::string& name) {
    return isJournal(name) && name != journalName_ && !disk::isFree(base::joinPath(path_, name));
  });
}

Note Backup::copy(const Kept& kept, std::string_view bytes) {
  const std::string path = copyOf(path_, kept.file);
  {
    const std::lock_guard lock(mutex_);
    makeFolders(base::folderOf(path));
  }
  if (base::fileExists(path)) {
    // Of a run that was killed. Only of a file that it has not changed yet can the copy be other than whole.
    const bool whole = base::readFile(path) == bytes;
    if (!whole && (find(kept.file) != nullptr ? kept.before != find(kept.file)->before : othersAtWork()))
      return Note::InWork;
    if (!whole) base::removeFile(path);
    if (whole) return Note::None;
  }
  std::FILE* const file = disk::open(path, disk::Mode::Create);
  if (file == nullptr && errno == EEXIST) return Note::InWork;
  if (file == nullptr) base::throwFileError(errno, path);
  int code = disk::write(file, bytes);
  if (std::fclose(file) != 0 && code == 0) code = errno != 0 ? errno : EIO;
  if (code != 0) {
    disk::remove(path);
    base::throwFileError(code, path);
  }
  // For users who look at it; what counts stands in the journal.
  disk::setStamp(path, kept.stamp);
  return Note::None;
}

void Backup::note(Kept& kept) {
  const std::lock_guard lock(mutex_);
  // No other run with this backup has a journal of this name, dead ones included.
  kept.temporary = std::string(kTemporary) + disk::newName() + "-" + base::hexOf(base::hash64(journalName_)) +
                   std::string(kTemporaryEnd);
  std::string lines = torn_ ? "\n" : "";
  std::string folder = folderIn(kept.file);
  disk::Stamp stamp;
  const bool first = !known_.folders.contains(folder) && !stamped_.contains(folder) &&
                     disk::stamp(base::joinPath(folder_, folder), stamp) == 0;
  if (first) lines += checked("{\"folder\":" + base::jsonQuoted(folder) + stampMembers(stamp));
  lines += lineOf(kept);
  const int code = disk::write(journal_, lines);
  torn_ = code != 0;
  if (code != 0) base::throwFileError(code, path_);
  if (first) stamped_.insert(std::move(folder));
}

void Backup::flush(const std::vector<Kept>& about, std::vector<std::string> written) {
  if (about.empty()) return;
  for (const Kept& kept : about) written.push_back(copyOf(path_, kept.file));
  if (const int code = disk::flushAll(journal_, written)) base::throwFileError(code, path_);
}

}  // namespace site
