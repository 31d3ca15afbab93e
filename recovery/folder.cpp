#include "recovery/folder.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <utility>

#include "base/disk.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"

namespace recovery {
namespace {

constexpr std::string_view kList = ".run", kPage = ".page", kClaim = ".claim";

// The files of each run, by its name.
std::map<std::string, std::vector<std::string>> runsIn(const std::string& folder) {
  std::map<std::string, std::vector<std::string>> runs;
  for (const std::string& name : base::fileNames(folder)) {
    std::string run;
    if (name.ends_with(kList)) run = name.substr(0, name.size() - kList.size());
    if (name.ends_with(kPage)) run = name.substr(0, name.rfind('-'));
    if (!run.empty()) runs[run].push_back(base::joinPath(folder, name));
  }
  return runs;
}

bool differsFromFile(const KeptText& kept) {
  if (kept.place.path.empty()) return !kept.text.empty();
  try {
    return base::readFile(kept.place.path) != kept.text;
  } catch (const base::Error&) {
    return true;
  }
}

unsigned numberOf(const std::string& page) {
  const std::size_t dash = page.rfind('-');
  unsigned number = 0;
  for (std::size_t i = dash + 1; i < page.size() && page[i] >= '0' && page[i] <= '9'; ++i) {
    number = number * 10 + static_cast<unsigned>(page[i] - '0');
  }
  return number;
}

}  // namespace

Run::Run(std::string folder) : folder_(std::move(folder)) {
  // Numbers of processes come again, and files of a run that died may still be there.
  const auto taken = runsIn(folder_);
  do {
    name_ = base::disk::newName();
  } while (taken.contains(name_));
  list_ = base::joinPath(folder_, name_ + std::string(kList));
}

std::string Run::newPage() {
  return base::joinPath(folder_, name_ + "-" + std::to_string(++pages_) + std::string(kPage));
}

LostRun::LostRun(LostRun&& other) noexcept
    : documents(std::move(other.documents)),
      texts(std::move(other.texts)),
      claim_(std::move(other.claim_)),
      held_(std::exchange(other.held_, nullptr)),
      files_(std::move(other.files_)) {}

LostRun::~LostRun() {
  if (held_ == nullptr) return;
  std::fclose(held_);
  base::disk::remove(claim_);
}

void LostRun::clear() {
  for (const File& file : files_) base::disk::remove(file.path);
  files_.clear();
}

void LostRun::forget(std::uint64_t document) {
  for (const File& file : files_) {
    if (document != 0 && file.document == document) base::disk::remove(file.path);
  }
  texts.erase(std::remove_if(texts.begin(), texts.end(),
                             [document](const KeptText& kept) { return kept.place.document == document; }),
              texts.end());
  if (texts.empty()) clear();
}

std::vector<LostRun> lostRuns(const std::string& folder) {
  std::vector<LostRun> lost;
  for (auto& [name, files] : runsIn(folder)) {
    if (!std::all_of(files.begin(), files.end(), [](const auto& path) { return base::disk::isFree(path); })) {
      continue;  // it lives
    }
    std::string claim = base::joinPath(folder, name + std::string(kClaim));
    std::FILE* held = base::disk::open(claim, base::disk::Mode::Create);
    if (held == nullptr && errno == EEXIST && base::disk::isFree(claim)) {
      base::disk::remove(claim);
      held = base::disk::open(claim, base::disk::Mode::Create);
    }
    if (held == nullptr) continue;
    LostRun run(std::move(claim), held);
    // A newer copy of the same document counts, when it is whole.
    std::sort(files.begin(), files.end(),
              [](const auto& a, const auto& b) { return numberOf(a) < numberOf(b); });
    std::map<std::uint64_t, KeptText> texts;
    bool unread = false;
    for (const std::string& path : files) {
      run.files_.push_back({path, 0});
      try {
        const std::string bytes = base::readFile(path);
        if (path.ends_with(kList)) {
          run.documents = readDocuments(bytes);
        } else if (auto kept = replay(bytes)) {
          run.files_.back().document = kept->place.document;
          texts[kept->place.document] = std::move(*kept);
        }
      } catch (const base::Error&) {
        unread = true;  // it waits for better days
      }
    }
    for (auto& [number, kept] : texts) {
      for (const Place& place : run.documents.places) {
        if (place.document == number) kept.place = place;
      }
      if (differsFromFile(kept)) run.texts.push_back(std::move(kept));
    }
    if (!run.texts.empty()) {
      lost.push_back(std::move(run));
    } else if (!unread) {
      run.clear();
    }
  }
  return lost;
}

}  // namespace recovery
