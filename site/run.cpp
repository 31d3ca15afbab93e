#include "site/run.h"

#include <algorithm>
#include <new>

#include "base/error.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/path.h"
#include "site/crew.h"
#include "site/page_work.h"

namespace site {

std::string Run::pathOf(std::string_view file) const {
  return base::joinPath(folder_, file);
}

void Run::remember(const FileResult& page) {
  if (page.links.empty()) return;
  const std::lock_guard lock(mutex_);
  own_.addLinks(page.links, page.eight);
}

std::optional<convert::Form> Run::formFor(const ListedFile& file, std::string_view page) const {
  if (file.kind != FileKind::StyleSheet && file.kind != FileKind::Script) return std::nullopt;
  // A dry run has decided it already, if it has seen this file.
  if (planned_ != nullptr) {
    if (const Planned* const known = planned_->find(file.file)) return known->from;
  }
  // Pages were all done before.
  std::optional<convert::Form> form = own_.formOfLinked(file.file);
  if (!form && planned_ != nullptr) form = planned_->formOfLinked(file.file);
  return formToTake(page, options_, file.kind, form);
}

void Run::run(const FileList& list) {
  folder_ = list.folder;
  observer_.found(list.files.size());
  const auto linked = std::ranges::find_if(list.files, [](const ListedFile& file) {
    return file.kind == FileKind::StyleSheet || file.kind == FileKind::Script;
  });
  const auto part = [&](const ListedFile* first, std::size_t count) {
    inOrder(
        count, options_.threads,
        [&](std::size_t begin, std::size_t end, std::vector<FileResult>& results) {
          portion(first + begin, first + end, results);
        },
        observer_);
  };
  const auto pages = static_cast<std::size_t>(linked - list.files.begin());
  part(list.files.data(), pages);
  part(list.files.data() + pages, list.files.size() - pages);
}

void Run::portion(const ListedFile* begin, const ListedFile* end, std::vector<FileResult>& results) {
  Batch batch{results, {}, 0};
  for (; begin != end && !observer_.stopped(); ++begin) {
    observer_.begins(begin->file);
    FileResult result;
    result.file = begin->file;
    result.kind = begin->kind;
    result.note = begin->note;
    results.push_back(std::move(result));
    const std::size_t at = results.size() - 1;
    try {
      one(*begin, batch);
    } catch (const base::Error& error) {
      results[at].note = noteOf(error);
    } catch (const std::bad_alloc&) {
      results[at].note = Note::Memory;
    }
  }
  this->end(batch);
}

namespace {

class Planning : public Run {
 public:
  using Run::Run;

 private:
  void one(const ListedFile& file, Batch& batch) override {
    FileResult& result = batch.results.back();
    if (file.note != Note::None || file.kind == FileKind::Other) return;
    const std::string page = base::readFile(pathOf(file.file));
    result.size = page.size();
    result.hash = base::hash64(page);
    work(page, options(), formFor(file, page), false, result);
    remember(result);
  }
};

}  // namespace

void plan(const Options& options, const DryRun* known, Observer& observer) {
  const FileList list = filesOf(options);
  Planning(options, known, observer).run(list);
}

}  // namespace site
