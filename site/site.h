// A whole site in one go: planned, then applied in place or into a new folder, and restored.
//
// Nothing here shows or asks anything: an Observer is told of each file, and may stop the run. Files are
// named by their path in the folder, with "/" between.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "convert/page_plan.h"
#include "site/notes.h"

namespace site {

enum class FileKind : std::uint8_t { Html, PlainText, StyleSheet, Script, Other };
std::string_view nameOf(FileKind kind);  // "html", "text", "css", "script", "other"
FileKind kindOf(std::string_view file);  // by the end of its name

struct Options {
  std::string folder;  // or a *.WEB project file, whose documents are the files
  // Globs. One without "/" is for names at any depth, "**" stands for folders too, case makes no difference.
  std::vector<std::string> include;  // only these are converted; none: all
  std::vector<std::string> exclude;  // these are passed over, folders with all in them
  // These alone instead of all in the folder: by their path in it, or from where `folder` begins.
  std::optional<std::vector<std::string>> list;
  // Of all files; what depends on the kind of file is set for each.
  convert::PlanOptions letters;
  unsigned threads = 1;
  std::size_t differences = 40;  // of one file, as most of them
};

// One change of a file, to be read.
struct Difference {
  std::size_t line = 1;
  convert::ChangeKind kind = convert::ChangeKind::Letters;
  convert::Place place = convert::Place::Text;
  convert::Form form = convert::Form::Ascii;
  convert::Reason reason = convert::Reason::Valid;
  std::uint8_t confidence = 100;  // percent
  bool uncertain = false;
  std::string before;  // as it looks without its font; UTF-8, the beginning on one line
  std::string after;   // in readable letters
};

enum class Done : std::uint8_t {
  Nothing,   // planned, or left as it is
  Written,   // converted
  Copied,    // as it is, into the new folder
  Already,   // by an earlier run
  Restored,  //
};
std::string_view nameOf(Done done);

struct FileResult {
  std::string file;
  FileKind kind = FileKind::Other;
  Note note = Note::None;
  Done done = Done::Nothing;
  convert::Form form = convert::Form::Ascii;
  std::uint8_t confidence = 100;  // percent
  std::size_t letters = 0;        // in that form
  std::size_t size = 0;           // bytes
  std::uint64_t hash = 0;         // of its bytes, before anything was done
  bool changes = false;           // its bytes are others afterwards
  std::size_t changeCount = 0;    // all changes, uncertain ones not counted
  std::size_t uncertainCount = 0;
  // What its 8-bit letters mostly are, of the Georgian and Russian forms.
  std::optional<convert::Form> eight;
  std::optional<convert::Form> from;    // taken from the pages that link it
  std::vector<std::string> links;       // style sheets and scripts of the folder that a page names
  std::vector<Difference> differences;  // by line, uncertain ones first
};

// Called from the threads of a run, never two calls of `done` at a time.
class Observer {
 public:
  virtual ~Observer() = default;
  virtual void found(std::size_t /*files*/) {}       // that will be looked at, once it is known
  virtual void begins(std::string_view /*file*/) {}  // from several threads at a time
  virtual void done(FileResult& result) = 0;         // in the order of the files; it may be moved away
  virtual bool stopped() { return false; }           // asked before each file, from several threads
};

// What a dry run has found of a file.
struct Planned {
  std::uint64_t hash = 0;
  std::optional<convert::Form> from;
  bool ticked = true;  // the user wants it done
};

// Of an earlier run, or of several: what its results say, file by file.
class DryRun {
 public:
  void add(const FileResult& result);
  const Planned* find(std::string_view file) const;
  void tick(std::string_view file, bool wanted);
  // What the 8-bit letters of the pages mostly are that name this style sheet or script.
  std::optional<convert::Form> formOfLinked(std::string_view file) const;
  void addLinks(const std::vector<std::string>& links, std::optional<convert::Form> eight);

 private:
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  using Votes = std::vector<std::pair<convert::Form, std::size_t>>;
  std::unordered_map<std::string, Planned, Hash, std::equal_to<>> files_;
  std::unordered_map<std::string, Votes, Hash, std::equal_to<>> votes_;  // by name without case
};

// All throw base::Error where nothing can be begun: no such folder, a backup of something else. What fails
// for one file is its Note.

// Reads only. `known`, when given: the pages of an earlier run, which link some of these files.
void plan(const Options& options, const DryRun* known, Observer& observer);

struct ApplyOptions {
  std::string out;         // a new folder; all other files of the folder are copied there too
  std::string backup;      // else: in place, with the old files and a journal in this folder
  bool overwrite = false;  // other files in `out`
};
// With a dry run only what it has seen and ticked is done, and only while it is still the same. In place each
// file is whole old or whole new at every moment, and its old bytes are on the disk before. A run that was
// killed is taken up by calling this again with the same folder.
void apply(const Options& options, const ApplyOptions& how, const DryRun* planned, Observer& observer);

struct RestoreOptions {
  std::string backup;
  std::string folder;      // where the site is now; empty: where it was
  bool overwrite = false;  // what others have changed since
  unsigned threads = 1;
};
// Gives the files of a backup back their bytes, times and marks. The backup stays.
void restore(const RestoreOptions& options, Observer& observer);

// Whether one path is the other or in it, through links and whatever the spelling.
bool isInside(std::string_view path, std::string_view folder);

}  // namespace site
