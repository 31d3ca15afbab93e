#include "cli/site.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <new>
#include <optional>

#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "cli/shared.h"
#include "site/report.h"
#include "site/result_lines.h"

namespace cli {
namespace {

// A file that is written piece by piece, or the standard output.
class Output {
 public:
  Output(const std::string& path, std::FILE* out) : path_(path) {
    if (path == "-") {
      file_ = out;
      return;
    }
    const bool there = base::fileExists(path);
    file_ = base::disk::open(path, there ? base::disk::Mode::Change : base::disk::Mode::Create);
    if (file_ == nullptr) base::throwFileError(errno, path);
    if (there) check(base::disk::resize(file_, 0));
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  ~Output() {
    if (file_ != nullptr && path_ != "-") std::fclose(file_);
  }

  void put(std::string_view bytes) {
    waiting_ += bytes;
    constexpr std::size_t kBlock = 1U << 16U;
    if (waiting_.size() >= kBlock) pass();
  }
  void finish() {
    pass();
    if (std::fflush(file_) != 0) check(errno);
  }

 private:
  void check(int code) const {
    if (code != 0) base::throwFileError(code, path_);
  }
  void pass() {
    errno = 0;
    if (std::fwrite(waiting_.data(), 1, waiting_.size(), file_) != waiting_.size())
      check(errno != 0 ? errno : ENOSPC);
    waiting_.clear();
  }

  std::string path_;
  std::FILE* file_ = nullptr;
  std::string waiting_;
};

class SiteProgram : private site::Observer {
 public:
  SiteProgram(const Arguments& arguments, const Streams& streams)
      : arguments_(arguments), streams_(streams) {}

  int run() {
    if (!readFonts(arguments_.fonts, fonts_, streams_)) return kNoReadWrite;
    try {
      if (const int code = refuse()) return code;
      if (!arguments_.jsonl.empty()) jsonl_.emplace(arguments_.jsonl, streams_.out);
      if (!arguments_.report.empty()) report_.emplace();
      work();
      if (jsonl_) jsonl_->finish();
      if (report_) {
        Output page(arguments_.report, streams_.out);
        report_->write([&](std::string_view bytes) { page.put(bytes); });
        page.finish();
      }
    } catch (const base::Error& error) {
      complain(streams_, arguments_.files[0], siteSentence(error));
      return kNoReadWrite;
    } catch (const std::bad_alloc&) {
      complain(streams_, arguments_.files[0], "there is not enough memory");
      return kNoReadWrite;
    }
    summary();
    return worst_;
  }

 private:
  // The message names a file where it is one of another.
  static std::string siteSentence(const base::Error& error) {
    if (error.number() == base::ErrorNumber::InvalidCall)
      return "the backup is one of another folder, was begun with other options, or another run is at work "
             "on it";
    if (error.number() == base::ErrorNumber::BadFileFormat) return "this is no folder of a backup";
    const std::string text = error.what();
    const std::size_t at = text.find(base::kCrLf);
    return sentenceOf(error) + (at == std::string::npos ? "" : " (" + text.substr(at + 2) + ")");
  }

  // What is written must not be among what is read.
  int refuse() {
    if (arguments_.task != Task::SitePlan && arguments_.task != Task::SiteApply) return kDone;
    const bool project = base::fileExists(arguments_.files[0]);
    const std::string folder =
        project ? base::folderOf(base::fullPath(arguments_.files[0])) : arguments_.files[0];
    const auto usage = [&](const std::string& fault) {
      complain(streams_, "zervo-cli", fault);
      return kUsage;
    };
    for (const std::string* const path : {&arguments_.out, &arguments_.backup}) {
      if (!path->empty() && (site::isInside(*path, folder) || site::isInside(folder, *path)))
        return usage(*path + " and the site are one in the other");
    }
    for (const std::string* const path : {&arguments_.report, &arguments_.jsonl}) {
      if (!path->empty() && *path != "-" && site::isInside(*path, folder))
        return usage(*path + " would be written into the site");
    }
    return kDone;
  }

  void work() {
    if (arguments_.task == Task::SiteReport) return merge();
    if (arguments_.task == Task::SiteRestore) {
      site::RestoreOptions options;
      options.backup = arguments_.files[0];
      options.folder = arguments_.folder;
      options.overwrite = arguments_.force;
      options.threads = arguments_.threads;
      return site::restore(options, *this);
    }
    std::optional<site::DryRun> planned;
    if (!arguments_.plans.empty()) planned = readPlans();
    const site::Options options = siteOptions();
    const site::DryRun* const known = planned ? &*planned : nullptr;
    if (arguments_.task == Task::SitePlan) return site::plan(options, known, *this);
    site::ApplyOptions how;
    how.out = arguments_.out;
    how.backup = arguments_.backup;
    how.overwrite = arguments_.force;
    site::apply(options, how, known, *this);
  }

  site::Options siteOptions() const {
    site::Options options;
    options.folder = arguments_.files[0];
    options.include = arguments_.include;
    options.exclude = arguments_.exclude;
    options.threads = arguments_.threads;
    options.differences = report_ || jsonl_ ? arguments_.differences : 0;
    if (!arguments_.list.empty()) options.list = readList();
    convert::PlanOptions& letters = options.letters;
    letters.to = arguments_.to;
    letters.fonts = arguments_.oldFonts;
    letters.newFonts = arguments_.newFonts;
    letters.detector.from = arguments_.from;
    letters.detector.parts.comments = arguments_.comments;
    letters.detector.parts.scriptStrings = arguments_.scripts;
    letters.detector.parts.fonts = arguments_.fonts.empty() ? nullptr : &fonts_;
    return options;
  }

  std::string readInput(const std::string& file) const {
    if (file != "-") return base::readFile(file);
    auto bytes = readAll(streams_.in);
    if (!bytes) base::throwFileError(EIO, "-");
    return std::move(*bytes);
  }

  std::vector<std::string> readList() const {
    const std::string text = readInput(arguments_.list);
    const bool zeros = text.find('\0') != std::string::npos;
    std::vector<std::string> names;
    for (std::string& name : base::split(text, zeros ? std::string_view("\0", 1) : "\n")) {
      if (!zeros && name.ends_with('\r')) name.pop_back();
      if (!name.empty()) names.push_back(std::move(name));
    }
    return names;
  }

  // Line by line, so that little of a long file is in memory at a time.
  template <class Take>
  void readLines(const std::string& file, Take take) {
    std::FILE* const source = file == "-" ? streams_.in : base::disk::open(file, base::disk::Mode::Read);
    if (source == nullptr) base::throwFileError(errno, file);
    std::string line;
    std::array<char, 1U << 16U> block{};
    std::size_t number = 0;
    const auto end = [&] {
      ++number;
      if (line.find_first_not_of(" \r\t") == std::string::npos) return;
      auto result = site::resultOf(line);
      if (result)
        take(*result);
      else
        fault(file, "line " + std::to_string(number) + " is no result of a site");
    };
    for (std::size_t size = 0; (size = std::fread(block.data(), 1, block.size(), source)) > 0;) {
      std::string_view rest(block.data(), size);
      for (std::size_t at = rest.find('\n'); at != std::string_view::npos; at = rest.find('\n')) {
        line += rest.substr(0, at);
        end();
        line.clear();
        rest.remove_prefix(at + 1);
      }
      line += rest;
    }
    if (!line.empty()) end();
    const bool good = std::ferror(source) == 0;
    if (source != streams_.in) std::fclose(source);
    if (!good) base::throwFileError(EIO, file);
  }

  site::DryRun readPlans() {
    site::DryRun planned;
    for (const std::string& file : arguments_.plans) {
      readLines(file, [&](const site::FileResult& result) { planned.add(result); });
    }
    return planned;
  }

  void merge() {
    for (const std::string& file : arguments_.files) {
      readLines(file, [&](site::FileResult& result) { done(result); });
    }
  }

  void fault(std::string_view file, std::string_view sentence) {
    clearProgress();
    complain(streams_, file, sentence);
    worst_ = kNoReadWrite;
  }

  void found(std::size_t files) override { files_ = files; }

  void done(site::FileResult& result) override {
    ++done_;
    if (result.note != site::Note::None) {
      ++(site::isFault(result.note) ? faults_ : left_);
      clearProgress();
      complain(streams_, result.file, site::textOf(result.note).english);
      if (site::isFault(result.note)) worst_ = kNoReadWrite;
    }
    if (result.uncertainCount > 0) {
      clearProgress();
      complain(streams_, result.file,
               std::to_string(result.uncertainCount) + " texts are uncertain and left");
      worst_ = std::max<int>(worst_, kUncertain);
      uncertain_ += result.uncertainCount;
    }
    if (result.kind != site::FileKind::Other && result.note == site::Note::None) {
      Sum& sum = sums_[static_cast<std::size_t>(result.form)];
      ++sum.files;
      sum.changing += result.changes ? 1 : 0;
    }
    ++dones_[static_cast<std::size_t>(result.done)];
    if (jsonl_) jsonl_->put(site::lineOf(result));
    if (report_) report_->add(result);
    if (arguments_.progress) showProgress(result.file);
  }

  void showProgress(std::string_view file) {
    const auto now = std::chrono::steady_clock::now();
    if (now - shownAt_ < std::chrono::milliseconds(200)) return;
    shownAt_ = now;
    clearProgress();
    shown_ = std::to_string(done_) + " of " + std::to_string(files_) + " " + std::string(file);
    std::fwrite(shown_.data(), 1, shown_.size(), streams_.err);
    std::fflush(streams_.err);
  }
  void clearProgress() {
    if (shown_.empty()) return;
    const std::string blank = "\r" + std::string(shown_.size(), ' ') + "\r";
    std::fwrite(blank.data(), 1, blank.size(), streams_.err);
    shown_.clear();
  }

  void summary() {
    clearProgress();
    std::string text;
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      if (sums_[i].files == 0) continue;
      text += std::string(nameOf(static_cast<convert::Form>(i))) + ": " + std::to_string(sums_[i].files) +
              " files";
      if (arguments_.task != Task::SiteRestore) text += ", " + std::to_string(sums_[i].changing) + " change";
      text += "\n";
    }
    for (std::size_t i = 1; i < dones_.size(); ++i) {
      if (dones_[i] > 0)
        text += std::string(nameOf(static_cast<site::Done>(i))) + ": " + std::to_string(dones_[i]) + "\n";
    }
    text +=
        "uncertain texts: " + std::to_string(uncertain_) + "\nnot done: " + std::to_string(faults_) + "\n";
    // Not among lines of JSON.
    const bool taken = arguments_.jsonl == "-" || arguments_.report == "-";
    std::FILE* const where = taken ? streams_.err : streams_.out;
    if (std::fwrite(text.data(), 1, text.size(), where) != text.size() || std::fflush(where) != 0)
      worst_ = kNoReadWrite;
  }

  struct Sum {
    std::size_t files = 0;
    std::size_t changing = 0;
  };
  const Arguments& arguments_;
  const Streams& streams_;
  convert::FontTable fonts_;
  std::optional<Output> jsonl_;
  std::optional<site::Report> report_;
  std::array<Sum, convert::kForms> sums_{};
  std::array<std::size_t, 5> dones_{};
  std::size_t files_ = 0, done_ = 0, faults_ = 0, left_ = 0, uncertain_ = 0;
  std::chrono::steady_clock::time_point shownAt_;
  std::string shown_;
  int worst_ = kDone;
};

}  // namespace

int runSite(const Arguments& arguments, const Streams& streams) {
  return SiteProgram(arguments, streams).run();
}

}  // namespace cli
