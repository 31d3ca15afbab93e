#include "cli/cli.h"

#include <algorithm>
#include <cstdint>
#include <new>
#include <string_view>

#include "base/error.h"
#include "base/files.h"
#include "base/utf8.h"
#include "cli/arguments.h"
#include "cli/json.h"
#include "cli/publish.h"
#include "cli/shared.h"
#include "cli/site.h"
#include "convert/font_table.h"
#include "convert/page_plan.h"

namespace cli {
namespace {

using convert::PagePlan;
using convert::Trouble;

// Of a text, as it is shown.
constexpr std::size_t kShownBytes = 200;

struct Fault {
  std::string sentence;
};

convert::PageKind kindOf(const std::string& file, bool text) {
  return text ? convert::PageKind::PlainText : convert::pageKindOf(file);
}

class Program {
 public:
  Program(const Arguments& arguments, const Streams& streams) : arguments_(arguments), streams_(streams) {}

  int run() {
    if (!readFonts(arguments_.fonts, fonts_, streams_)) return kNoReadWrite;
    int worst = kDone;
    for (const std::string& file : arguments_.files) {
      const int code = arguments_.task == Task::Detect ? guarded(file, &Program::detect)
                                                       : guarded(file, &Program::convert);
      worst = std::max(worst, code);
    }
    if (std::fflush(streams_.out) != 0) worst = kNoReadWrite;
    return worst;
  }

 private:
  int guarded(const std::string& file, int (Program::*task)(const std::string&)) {
    try {
      return (this->*task)(file);
    } catch (const base::Error& error) {
      complain(file, sentenceOf(error));
    } catch (const Fault& fault) {
      complain(file, fault.sentence);
    } catch (const std::bad_alloc&) {
      complain(file, "there is not enough memory");
    }
    return kNoReadWrite;
  }

  void complain(const std::string& file, std::string_view what) const { cli::complain(streams_, file, what); }

  void put(std::string_view bytes) const {
    if (std::fwrite(bytes.data(), 1, bytes.size(), streams_.out) != bytes.size()) {
      throw Fault{"the output cannot be written"};
    }
  }

  std::string read(const std::string& file) const {
    if (file != "-") return base::readFile(file);
    auto bytes = readAll(streams_.in);
    if (!bytes) throw Fault{"the input cannot be read"};
    return std::move(*bytes);
  }

  convert::DetectorOptions detectorOptions(const std::string& file) const {
    convert::DetectorOptions options;
    options.parts.kind = kindOf(file, arguments_.text);
    options.parts.comments = arguments_.comments;
    options.parts.scriptStrings = arguments_.scripts;
    options.parts.fonts = arguments_.fonts.empty() ? nullptr : &fonts_;
    options.from = arguments_.from;
    return options;
  }

  int detect(const std::string& file) {
    const std::string page = read(file);
    const convert::Detection found = convert::detect(page, detectorOptions(file));
    if (arguments_.json) {
      writeJson(file, page, found, [this](std::string_view bytes) { put(bytes); });
    } else {
      put(file + ": " + std::string(nameOf(found.page.form)) + " " + share(found.page.confidence) +
          " letters=" + std::to_string(found.page.letters) + "\n");
    }
    if (found.page.trouble == Trouble::None) return kDone;
    complain(file, sentenceOf(found.page.trouble));
    const bool readable =
        found.page.trouble == Trouble::Empty || found.page.trouble == Trouble::ForeignCharset;
    return readable ? kDone : kNoReadWrite;
  }

  int convert(const std::string& file) {
    std::string page = read(file);
    convert::PlanOptions options;
    options.to = arguments_.to;
    options.detector = detectorOptions(file);
    options.fonts = arguments_.oldFonts;
    options.newFonts = arguments_.newFonts;
    if (arguments_.fromUtf16) {
      const Trouble trouble = convert::troubleOf(page);
      if (trouble != Trouble::Utf16Little && trouble != Trouble::Utf16Big) throw Fault{"this is no UTF-16"};
      page = convert::utf8FromUtf16(page, trouble == Trouble::Utf16Big);
      options.declareAnyway = true;
    }
    PagePlan plan = convert::makePlan(page, options);
    const Trouble trouble = plan.detection.page.trouble;
    if (trouble != Trouble::None) {
      complain(file, sentenceOf(trouble));
      if (trouble != Trouble::Empty) return kNoReadWrite;
    }
    plan.detection.parts = {};
    plan.detection.verdicts = {};
    write(file, page, plan);
    return report(file, page, plan) ? kUncertain : kDone;
  }

  void write(const std::string& file, std::string_view page, const PagePlan& plan) const {
    if (arguments_.output.empty() && !arguments_.inPlace) {
      return applyPlan(page, plan, [this](std::string_view bytes) { put(bytes); });
    }
    if (arguments_.inPlace) {
      if (plan.changes.empty() && !arguments_.fromUtf16) return;
      if (!arguments_.backup.empty()) backUp(file);
    }
    base::writeFile(arguments_.inPlace ? file : arguments_.output, applyPlan(page, plan));
  }

  void backUp(const std::string& file) const {
    const std::string backup = file + arguments_.backup;
    if (base::fileExists(backup) || base::folderExists(backup)) {
      throw Fault{"the backup " + backup + " is there already; nothing was changed"};
    }
    base::copyFile(file, backup);
  }

  // Lists what was left; whether there was any.
  bool report(const std::string& file, std::string_view page, const PagePlan& plan) const {
    convert::LineCounter lines(page);
    bool any = false;
    for (const convert::Change& change : plan.changes) {
      if (!change.verdict.uncertain) continue;
      any = true;
      const std::string line = file + ":" + std::to_string(lines.lineOf(change.begin)) +
                               ": left, uncertain (" + std::string(nameOf(change.verdict.reason)) +
                               "): " + shown(page, change) + "\n";
      std::fwrite(line.data(), 1, line.size(), streams_.err);
    }
    return any;
  }

  static std::string shown(std::string_view page, const convert::Change& change) {
    const std::string_view old =
        page.substr(change.begin, std::min<std::size_t>(change.end - change.begin, kShownBytes));
    return oneLine(old, convert::Form::Western);
  }

  const Arguments& arguments_;
  const Streams& streams_;
  convert::FontTable fonts_;
};

}  // namespace

int run(const std::vector<std::string>& words, const Streams& streams, const Machine& machine) {
  const auto say = [](std::FILE* file, std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), file);
  };
  const bool asksHelp = std::find(words.begin(), words.end(), "--help") != words.end();
  if (!words.empty() && words[0] == "publish" && !asksHelp) {
    return publish({words.begin() + 1, words.end()}, streams, machine);
  }
  std::string fault;
  const auto arguments = parse(words, fault);
  if (!arguments) {
    say(streams.err, "zervo-cli: " + fault + "\n");
    return kUsage;
  }
  if (arguments->task == Task::Help) {
    say(streams.out, helpText());
    return kDone;
  }
  if (arguments->task == Task::Version) {
    say(streams.out, "zervo-cli " ZERVO_VERSION "\n");
    return kDone;
  }
  if (arguments->task >= Task::SitePlan) return runSite(*arguments, streams);
  return Program(*arguments, streams).run();
}

}  // namespace cli
