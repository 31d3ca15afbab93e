// The words of the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "convert/forms.h"
#include "convert/page_plan.h"

namespace cli {

enum class Task { Help, Version, Detect, Convert, SitePlan, SiteApply, SiteRestore, SiteReport };

struct Arguments {
  Task task = Task::Help;
  std::vector<std::string> files;  // "-" is the standard input
  bool json = false;
  bool text = false;
  convert::Target to = convert::Target::Utf8;
  std::optional<convert::Form> from;
  bool fromUtf16 = false;
  convert::OldFonts oldFonts = convert::OldFonts::TakeAway;
  std::string newFonts;
  bool comments = false;
  bool scripts = true;
  std::string fonts;  // path of a table; empty: only the built-in one
  std::string output;
  bool inPlace = false;
  std::string backup;  // suffix; of a site a folder

  // Of a site.
  std::string out;                 // new folder
  std::string folder;              // where a restored site is now
  std::string report, jsonl;       // files; "-" is the standard output
  std::string list;                // file with names of files; "-" is the standard input
  std::vector<std::string> plans;  // of earlier runs
  std::vector<std::string> include, exclude;
  unsigned threads = 1;
  std::size_t differences = 40;
  bool force = false;
  bool progress = false;
};

// Nothing, and a sentence in `fault`, when the words cannot be understood.
std::optional<Arguments> parse(const std::vector<std::string>& words, std::string& fault);

std::string_view helpText();

}  // namespace cli
