#include "cli/arguments.h"

namespace cli {
namespace {

class Parser {
 public:
  Parser(const std::vector<std::string>& words, std::string& fault) : words_(words), fault_(fault) {}

  std::optional<Arguments> run() {
    if (words_.empty()) return bad("nothing to do: say detect, convert or publish (--help tells more)");
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
    else
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
    const std::string name = word.substr(0, word.find('='));
    const bool flag = name.size() == word.size();
    const auto unknown = [&] {
      fault_ = "unknown option: " + word;
      return false;
    };
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
cannot be read or written, is no page, or was not published.
)";
}

}  // namespace cli
