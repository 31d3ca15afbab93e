// The report of a site as one HTML page that needs nothing else: totals, and each file with its changes.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "site/site.h"

namespace site {

// Keeps little of each file in memory; what is to be shown waits in a temporary file. All throw base::Error
// where that cannot be written or read.
class Report {
 public:
  Report();
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;
  ~Report();

  void add(const FileResult& result);  // takes the place of an earlier one of the same file
  void write(const std::function<void(std::string_view)>& out);

 private:
  struct Row {
    std::uint64_t at = 0;  // of what is shown, in the temporary file
    std::uint32_t size = 0;
    convert::Form form = convert::Form::Ascii;
    Note note = Note::None;
    Done done = Done::Nothing;
    bool page = false;  // of a kind that is converted
    bool changes = false;
    std::uint64_t letters = 0, changeCount = 0, uncertainCount = 0;
  };
  using Rows = std::map<std::string, Row, std::less<>>;

  std::string totals() const;
  std::string together() const;

  Rows rows_;
  std::map<std::string, std::vector<std::string>, std::less<>>
      linking_;  // pages, by what they link, without case
  std::string spoolPath_;
  std::FILE* spool_ = nullptr;
  std::uint64_t spooled_ = 0;
};

}  // namespace site
