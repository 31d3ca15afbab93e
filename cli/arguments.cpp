#include "cli/arguments.h"

#include <algorithm>
#include <charconv>
#include <thread>

namespace cli {
namespace {

class Parser {
 public:
  Parser(const std::vector<std::string>& words, std::string& fault) : words_(words), fault_(fault) {}

  std::optional<Arguments> run() {
    if (words_.empty()) return bad("nothing to do: say detect, convert, site or publish (--help tells more)");
    const std::string& first = words_[next_++];
    if (first == "--help" || first == "-h") return made_;
    if (first == "--version") {
      made_.task = Task::Version;
      return made_;
    }
    if (first == "publish") return made_;  // asks for help
    if (first == "detect")
      made_.task = Task::Detect;
    else if (first == "convert")
      made_.task = Task::Convert;
    else if (first == "site") {
      if (!siteTask()) return std::nullopt;
    } else
      return bad("unknown command: " + first);
    while (next_ < words_.size()) {
      const std::string& word = words_[next_++];
      if (word == "--help" || word == "-h") {
        made_.task = Task::Help;
        return made_;
      }
      if (word == "--") {
        made_.files.insert(made_.files.end(), words_.begin() + static_cast<std::ptrdiff_t>(next_),
                           words_.end());
        break;
      }
      if (word == "-" || word.empty() || word[0] != '-')
        made_.files.push_back(word);
      else if (!option(word))
        return std::nullopt;
    }
    return checked();
  }

 private:
  std::optional<Arguments> bad(const std::string& fault) {
    fault_ = fault;
    return std::nullopt;
  }

  // "--name VALUE" or "--name=VALUE".
  std::optional<std::string> value(const std::string& word, std::string_view name) {
    if (word.size() > name.size() && word[name.size()] == '=') return word.substr(name.size() + 1);
    if (next_ < words_.size()) return words_[next_++];
    fault_ = std::string(name) + " needs a value";
    return std::nullopt;
  }

  bool option(const std::string& word) {
    // "-j4" as make has it.
    const std::string name = word.starts_with("-j") ? "-j" : word.substr(0, word.find('='));
    const bool flag = name.size() == word.size();
    const auto unknown = [&] {
      fault_ = "unknown option: " + word;
      return false;
    };
    if (made_.task >= Task::SitePlan) {
      if (siteOption(word, name, flag)) return true;
      if (!fault_.empty()) return false;
      if (made_.task >= Task::SiteRestore) return unknown();
      if (name == "-o" || name == "--output" || name == "--in-place" || name == "--text" ||
          name == "--backup")
        return unknown();
    }
    if (name == "--text" && flag) return made_.text = true;
    if (name == "--fonts") return take(made_.fonts, word, name);
    if (made_.task == Task::Detect) {
      if (name == "--json" && flag) return made_.json = true;
      return unknown();
    }
    if (name == "--in-place" && flag) return made_.inPlace = true;
    if (name == "--comments" && flag) return made_.comments = true;
    if (name == "--no-scripts" && flag) {
      made_.scripts = false;
      return true;
    }
    if (name == "-o" || name == "--output")
      return take(made_.output, word, name) && notEmpty(made_.output, name);
    if (name == "--backup") return take(made_.backup, word, name) && notEmpty(made_.backup, name);
    if (name == "--to") return to(word);
    if (name == "--from") return from(word);
    if (name == "--old-fonts") return oldFonts(word);
    return unknown();
  }

  bool siteTask() {
    const std::string what = next_ < words_.size() ? words_[next_++] : std::string();
    if (what == "plan")
      made_.task = Task::SitePlan;
    else if (what == "apply")
      made_.task = Task::SiteApply;
    else if (what == "restore")
      made_.task = Task::SiteRestore;
    else if (what == "report")
      made_.task = Task::SiteReport;
    else
      fault_ = "site is followed by plan, apply, restore or report";
    return fault_.empty();
  }

  bool number(const std::string& word, std::string_view name, std::size_t most, std::size_t& into) {
    std::string given;
    if (name == "-j" && word.size() > 2)
      given = word.substr(word[2] == '=' ? 3 : 2);
    else if (!take(given, word, name))
      return false;
    const auto read = std::from_chars(given.data(), given.data() + given.size(), into);
    if (read.ec != std::errc() || read.ptr != given.data() + given.size() || into > most)
      fault_ = std::string(name) + " is a number from 0 to " + std::to_string(most) + ", not " + given;
    return fault_.empty();
  }

  // Those of site alone. False with no fault where the word is none of them.
  bool siteOption(const std::string& word, const std::string& name, bool flag) {
    const bool plan = made_.task == Task::SitePlan;
    const bool apply = made_.task == Task::SiteApply;
    const bool restore = made_.task == Task::SiteRestore;
    const auto text = [&](std::string& into) { return take(into, word, name) && notEmpty(into, name); };
    const auto further = [&](std::vector<std::string>& into) { return text(into.emplace_back()); };
    if (name == "--report" && !restore) return text(made_.report);
    if (name == "--jsonl") return text(made_.jsonl);
    if (name == "--force" && flag && (apply || restore)) return made_.force = true;
    if (name == "--folder" && restore) return text(made_.folder);
    if (made_.task == Task::SiteReport) return false;
    if (name == "--progress" && flag) return made_.progress = true;
    if (name == "-j") {
      std::size_t threads = 1;
      constexpr std::size_t kMostThreads = 256;
      if (!number(word, name, kMostThreads, threads)) return false;
      made_.threads =
          threads > 0 ? static_cast<unsigned>(threads) : std::max(1U, std::thread::hardware_concurrency());
      return true;
    }
    if (restore) return false;
    if (name == "--plan") return further(made_.plans);
    if (name == "--include") return further(made_.include);
    if (name == "--exclude") return further(made_.exclude);
    if (name == "--files") return text(made_.list);
    if (name == "--differences") return number(word, name, 1000000, made_.differences);
    if (name == "--out" && apply) return text(made_.out);
    if (name == "--backup" && apply) return text(made_.backup);
    if (plan && (name == "--out" || name == "--backup")) fault_ = name + " is for apply: plan writes nothing";
    return false;
  }

  bool take(std::string& into, const std::string& word, std::string_view name) {
    auto given = value(word, name);
    if (given) into = std::move(*given);
    return given.has_value();
  }
  bool notEmpty(const std::string& given, std::string_view name) {
    if (given.empty()) fault_ = std::string(name) + " needs a value";
    return !given.empty();
  }

  bool to(const std::string& word) {
    std::string target;
    if (!take(target, word, "--to")) return false;
    if (target == "references")
      made_.to = convert::Target::References;
    else if (target != "utf-8")
      fault_ = "--to is utf-8 or references, not " + target;
    return fault_.empty();
  }

  bool from(const std::string& word) {
    std::string form;
    if (!take(form, word, "--from")) return false;
    made_.from.reset();
    made_.fromUtf16 = form == "utf-16";
    if (form == "auto" || made_.fromUtf16) return true;
    made_.from = convert::formNamed(form);
    if (!made_.from || *made_.from == convert::Form::Mixed || *made_.from == convert::Form::Unknown) {
      fault_ = "--from knows no form " + form;
    }
    return fault_.empty();
  }

  bool oldFonts(const std::string& word) {
    std::string what;
    if (!take(what, word, "--old-fonts")) return false;
    if (what == "keep") {
      made_.oldFonts = convert::OldFonts::Keep;
    } else if (what == "remove") {
      made_.oldFonts = convert::OldFonts::TakeAway;
    } else if (what.starts_with("replace:") && what.size() > 8 &&
               what.find_first_of("\"'<>;{}") == std::string::npos) {
      made_.oldFonts = convert::OldFonts::Exchange;
      made_.newFonts = what.substr(8);
    } else {
      fault_ = "--old-fonts is keep, remove or replace:NAMES, not " + what;
    }
    return fault_.empty();
  }

  std::optional<Arguments> checked() {
    if (made_.task >= Task::SitePlan) return siteChecked();
    if (made_.files.empty()) return bad("no file is named (- is the standard input)");
    if (made_.task == Task::Detect) return made_;
    if (made_.files.size() > 1) return bad("convert takes one file, not also " + made_.files[1]);
    if (made_.inPlace && !made_.output.empty()) return bad("either -o or --in-place");
    if (made_.inPlace && made_.files[0] == "-") return bad("the standard input cannot be converted in place");
    if (!made_.backup.empty() && !made_.inPlace) return bad("--backup is for --in-place");
    if (made_.backup.find_first_of("/\\") != std::string::npos)
      return bad("the suffix of --backup holds a slash");
    return made_;
  }

  std::optional<Arguments> siteChecked() {
    if (made_.task == Task::SiteReport) {
      if (made_.files.empty()) return bad("no file of JSON Lines is named (- is the standard input)");
      if (made_.report.empty() && made_.jsonl.empty()) made_.report = "-";
    } else {
      const bool restore = made_.task == Task::SiteRestore;
      if (made_.files.empty()) return bad(restore ? "no backup folder is named" : "no folder is named");
      if (made_.files.size() > 1) return bad("one folder, not also " + made_.files[1]);
      if (made_.fromUtf16) return bad("--from utf-16 is for convert");
    }
    if (made_.report == "-" && made_.jsonl == "-")
      return bad("either --report or --jsonl to the standard output");
    if (made_.task == Task::SiteApply && made_.out.empty() == made_.backup.empty())
      return bad("apply needs --out DIR, a new folder, or --backup DIR, to change the files themselves");
    return made_;
  }

  const std::vector<std::string>& words_;
  std::string& fault_;
  std::size_t next_ = 0;
  Arguments made_;
};

}  // namespace

std::optional<Arguments> parse(const std::vector<std::string>& words, std::string& fault) {
  return Parser(words, fault).run();
}

std::string_view helpText() {
  return R"(Usage:
  zervo-cli detect [--json] [--fonts FILE] [--text] FILE...
  zervo-cli convert [OPTION...] FILE
  zervo-cli site plan FOLDER [--report FILE.html] [--jsonl FILE] [OPTION...]
  zervo-cli site apply FOLDER --out DIR | --backup DIR [--plan FILE.jsonl] [--report FILE.html] [--jsonl FILE] [OPTION...]
  zervo-cli site restore DIR [--folder FOLDER] [--force]
  zervo-cli site report FILE.jsonl... [--report FILE.html] [--jsonl FILE]
  zervo-cli publish [OPTION...] ADDRESS FOLDER
  zervo-cli --help | --version

detect tells in what form the letters of each file are:
  FILE: FORM CONFIDENCE letters=N
  --json            JSON Lines, with every run of text

convert makes the letters of a page correct UTF-8, and changes nothing else of it. FILE may be - for the standard
input. The result goes to the standard output, or:
  -o, --output OUT  to the file OUT
  --in-place        to FILE itself, if anything changes
  --backup SUFFIX   with --in-place: the old file is kept as FILE and SUFFIX
Options:
  --to utf-8|references   what letters become (utf-8)
  --from auto|FORM        what they are (auto); also utf-16
  --fonts FILE            more fonts by whose names texts are known, in lines like "legacy: My Font, Other*"
  --text                  the file is plain text: no tags, no references
  --old-fonts keep|remove|replace:NAMES   fonts that only made old letters readable (remove)
  --comments              convert comments too
  --no-scripts            leave the strings of scripts

site does the same for a whole folder, or the documents of a *.WEB project: HTML, SHTML, PHP, ASP, XML, TXT, and the style
sheets and scripts, which take their form from the pages that link them where they do not tell it. plan only tells what
would change. apply does it: into the new folder DIR with all other files of the site, or in place, with the old files and
a journal in the folder DIR; started again it goes on where it was stopped. restore gives every file of a backup its old
bytes, time and attributes. report makes one report of the JSON Lines of several runs. With the options above but -o,
--in-place and --text, and:
  --report FILE           an HTML page with totals and, file by file, what changes
  --jsonl FILE            the same as JSON Lines, one for each file; - is the standard output
  --plan FILE             JSON Lines of an earlier plan (may be repeated). apply does only what was planned, and leaves
                          files that changed since; plan takes from it what pages link a style sheet or script
  --files LIST            only the files that LIST names, one a line (or NUL between them); - is the standard input
  --include GLOB, --exclude GLOB   only these are converted; these are passed over. May be repeated: "*.htm", "old/**"
  -j N                    N threads; 0: as many as there are processors (1)
  --differences N         changes of a file that are shown, at most (40)
  --force                 apply --out: over other files in DIR; restore: also what others changed since
  --progress              tell on the standard error how far it is

FORM: utf-8 ascii legacy academy keyboard references russian western double-utf-8, of a page also mixed unknown.

publish sends what has changed in FOLDER to sftp://USER@HOST:PORT/DIR, ftps://USER@HOST/DIR or ftp://USER@HOST/DIR and
lists each file: new, changed, same, gone (no longer in FOLDER) or conflict (the server's is not what was sent last).
The password is read from ZERVO_PASSWORD or asked. Options:
  --dry-run               only list
  --delete                remove at the server what is gone
  --overwrite             send over what is in conflict, too
  --key FILE              private key for sftp; without it those of a running agent
  --known-hosts FILE      keys of sftp servers, in OpenSSH's format
  --ca FILE               certificates in PEM that are trusted for ftps, instead of the system's
  --timeout SECONDS       until a silent server is given up (30)
  --verbose               show the conversation

Exit: 0 done; 1 done, but texts were left whose form is uncertain (they are listed), or conflicts; 2 wrong usage; 3 a file
cannot be read or written, is no page, was not published, or (of a site) was left because it is not what it was.
)";
}

}  // namespace cli
