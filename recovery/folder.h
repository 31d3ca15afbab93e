// The recovery folder: a run of the program has one list of its documents there (`RUN.run`, held as long as
// it lives) and a journal for each text that differs from its file (`RUN-NUMBER.page`).
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "recovery/journal.h"

namespace recovery {

// A run of this program that is alive. Its files go with it; those that were kept stay.
class Run {
 public:
  explicit Run(std::string folder);  // an existing folder
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  // Paths of new files: no other run has them.
  std::string newPage();
  const std::string& listPath() const { return list_; }

 private:
  std::string folder_, name_, list_;
  unsigned pages_ = 0;
};

// What a run that did not end orderly has left, claimed: no other copy of the program is shown it meanwhile.
class LostRun {
 public:
  LostRun(LostRun&& other) noexcept;
  LostRun(const LostRun&) = delete;
  LostRun& operator=(const LostRun&) = delete;
  LostRun& operator=(LostRun&&) = delete;
  ~LostRun();

  Documents documents;
  std::vector<KeptText> texts;  // each of another document; places as they were last, where that is known
  // A text that is safe elsewhere or not wanted goes, with the last one all that the run has left.
  void forget(std::uint64_t document);

 private:
  friend std::vector<LostRun> lostRuns(const std::string& folder);
  LostRun(std::string claim, std::FILE* held) : claim_(std::move(claim)), held_(held) {}
  void clear();
  std::string claim_;
  std::FILE* held_;
  struct File {
    std::string path;
    std::uint64_t document;  // 0: of none
  };
  std::vector<File> files_;
};

// Those with a text that differs from its file. What nobody can need any more is taken away.
std::vector<LostRun> lostRuns(const std::string& folder);

}  // namespace recovery
