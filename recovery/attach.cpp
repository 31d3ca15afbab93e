#include "recovery/attach.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/path.h"
#include "recovery/frmrecovery.h"

namespace recovery {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;  // bytes copied at a time: a fraction of a millisecond
constexpr std::size_t kMostWaiting = std::size_t{2} * 1024 * 1024;  // for the disk
constexpr int kWait = 20;                                      // milliseconds, while that much is waiting
constexpr std::size_t kMostLogged = std::size_t{1024} * 1024;  // bytes of changes before a fresh copy is made
constexpr std::size_t kMostList = std::size_t{1024} * 1024;    // bytes of the list of documents
constexpr std::int64_t kTimeStep = 10;                         // seconds

std::int64_t now() {
  return static_cast<std::int64_t>(std::time(nullptr));
}

// Beside a program that was unpacked somewhere and can write there; else the user's own.
std::string recoveryFolder(const ui::Platform& platform) {
  const std::string program = platform.programFolder();
  if (!base::fileExists(base::joinPath(program, "uninstall.exe"))) {
    std::string beside = base::joinPath(program, "Recovery");
    base::disk::makeFolder(beside);
    const std::string probe = base::joinPath(beside, base::disk::newName() + ".tmp");
    if (std::FILE* file = base::disk::open(probe, base::disk::Mode::Create)) {
      std::fclose(file);
      base::disk::remove(probe);
      return beside;
    }
  }
  return base::disk::ownFolder("Recovery");
}

}  // namespace

std::unique_ptr<Recovery> attach(app::Workbench& bench) {
  return std::make_unique<Recovery>(bench);
}

Recovery::Recovery(app::Workbench& bench) : bench_(bench) {
  bench.codeView().edited.connect(
      [this](const ui::CodeDocument& document, const ui::TextEdit& edit) { T1_Edited(document, edit); });
  bench.inBackground = [this] { return background(); };
  bench.pause.connect([this] { sync(); });
  bench.documentShown.connect([this] { sync(); });
  bench.closing.connect([this] { closing(); });
}

Recovery::~Recovery() = default;

void Recovery::start(bool plain) {
  folder_ = recoveryFolder(bench_.platform());
  begin();
  ui::atGate([this] { offer(); });
  if (plain && bench_.props().ReopenSession) ui::atGate([this] { offerSession(); });
  sync();
}

void Recovery::begin() {
  if (writer_ || folder_.empty()) return;
  run_.emplace(folder_);
  writer_ = std::make_unique<Writer>();
  written_.reset();
  sync();
}

// Keeping -------------------------------------------------------------------------------------------------

void Recovery::T1_Edited(const ui::CodeDocument& document, const ui::TextEdit& edit) {
  if (!writer_) return;
  Kept& kept = kept_[document.number];
  const auto log = [&](Copy& copy) {
    if (copy.path.empty()) return;
    std::string record = copy.journal.change(edit.position, edit.removed, edit.added);
    if (record.empty()) return;
    if (now() - kept.toldTime >= kTimeStep) record += timeRecord(kept.toldTime = now());
    writer_->append(copy.path, std::move(record));
  };
  log(kept.now);
  if (kept.fresh) log(*kept.fresh);
}

std::pair<std::int16_t, std::shared_ptr<ui::CodeDocument>> Recovery::find(std::uint64_t number) {
  for (const std::int16_t index : bench_.session().texts()) {
    if (auto document = bench_.session().document(index); document && document->number == number) {
      return {index, std::move(document)};
    }
  }
  return {};
}

int Recovery::background() {
  if (!writer_) return -1;
  for (auto& [number, kept] : kept_) {
    const bool many = kept.now.journal.whole() && !kept.fresh && kept.now.journal.logged() > kMostLogged &&
                      kept.now.journal.logged() > kept.now.journal.copied();
    if (many) kept.fresh.emplace();
    Copy& copy = kept.fresh ? *kept.fresh : kept.now;
    if (copy.journal.whole()) continue;
    if (writer_->waiting() > kMostWaiting) return kWait;
    const auto [index, document] = find(number);
    if (!document) {
      drop(kept);
      kept_.erase(number);
      return 0;
    }
    copyPiece(*document, index, kept, copy);
    return 0;
  }
  return -1;
}

void Recovery::copyPiece(const ui::CodeDocument& document, std::int16_t index, Kept& kept, Copy& copy) {
  if (copy.path.empty()) {
    copy.path = run_->newPage();
    writer_->create(copy.path);
    writer_->append(copy.path, Journal::head(placeOf(index), kept.toldTime = now()));
  }
  const std::size_t size = document.size();
  const std::size_t from = copy.journal.copied();
  const std::size_t length = std::min(kPiece, size - from);
  writer_->append(copy.path, copy.journal.copy(document.piece(from, length), from + length == size));
  if (copy.journal.whole() && kept.fresh) {
    writer_->remove(kept.now.path);
    kept.now = std::move(*kept.fresh);
    kept.fresh.reset();
  }
}

void Recovery::drop(Kept& kept) {
  if (!kept.now.path.empty()) writer_->remove(kept.now.path);
  if (kept.fresh && !kept.fresh->path.empty()) writer_->remove(kept.fresh->path);
}

void Recovery::sync() {
  if (!writer_) return begin();
  app::Session& session = bench_.session();
  std::map<std::uint64_t, bool> open;  // whether it differs
  for (const std::int16_t index : session.texts()) {
    const bool changed = session.changed(index);
    if (changed && !session.document(index)) session.list.Item(index).Value.in(bench_.codeView());
    const auto document = session.document(index);
    // Where an edit did not mark it changed, it has been edited all the same.
    if (document) open[document->number] = changed || document->edits != document->savedEdits;
  }
  for (auto at = kept_.begin(); at != kept_.end();) {
    const auto known = open.find(at->first);
    if (known != open.end() && known->second) {
      ++at;
    } else {
      drop(at->second);
      at = kept_.erase(at);
    }
  }
  for (const auto& [number, differs] : open) {
    if (differs) kept_[number];  // background() copies it
  }
  Documents documents = documentsNow();
  if (!written_ || *written_ != documents) {
    std::string record = documentsRecord(documents);
    if (!written_ || listSize_ > kMostList) {
      writer_->create(run_->listPath());
      listSize_ = 0;
    }
    listSize_ += record.size();
    writer_->append(run_->listPath(), std::move(record));
    written_ = std::move(documents);
  }
  if (const int error = writer_->takeError()) notKept(error);
}

// Told, and tried again after the user's next pause.
void Recovery::notKept(int error) {
  for (auto& [number, kept] : kept_) {
    drop(kept);
    kept = {};
  }
  written_.reset();
  try {
    base::throwFileError(error, folder_);
  } catch (const base::Error& reason) {
    bench_.setPanel("kMain", std::string("აღდგენის ასლი ვერ იწერება: ") + reason.what());
  }
}

Place Recovery::placeOf(std::int16_t index) {
  app::Session& session = bench_.session();
  Place place;
  place.title = session.title(index);
  place.path = session.path(index);
  const auto document = session.document(index);
  if (document) {
    place.document = document->number;
    place.utf8 = document->view == ui::TextView::Utf8;
    place.viewChosen = document->viewChosen;
  }
  const ui::CodeView& T1 = bench_.codeView();
  const bool shown = session.isShown(index);
  place.start = static_cast<std::uint32_t>(shown ? T1.selStart() : session.list.Item(index).SStart);
  place.length = static_cast<std::uint32_t>(shown ? T1.selLength() : session.list.Item(index).SLenth);
  return place;
}

Documents Recovery::documentsNow() {
  app::Session& session = bench_.session();
  Documents documents;
  if (session.list.WEBopened) documents.project = session.list.WEBpath + session.list.WEBtitle;
  for (std::int16_t i = 0; i < session.list.Count(); ++i) documents.places.push_back(placeOf(i));
  documents.shown = session.shown.index;
  const bool alone = session.shown.index < 0 && !(session.shown.path.empty() && session.text(-1).empty());
  if (alone) {
    documents.shown = static_cast<std::int32_t>(documents.places.size());
    documents.places.push_back(placeOf(-1));
  }
  return documents;
}

void Recovery::finish() {
  if (!writer_) return;
  while (background() >= 0) {
    if (writer_->waiting() > kMostWaiting) writer_->finish();
  }
  writer_->finish();
}

std::string Recovery::sessionFile() const {
  return base::joinPath(folder_, "last.session");
}

// The user has been asked about everything that is marked as changed. What was changed without a mark is not
// theirs to lose by that.
void Recovery::closing() {
  if (!writer_) return;
  sync();
  ui::atGate([this] {
    if (bench_.props().ReopenSession) {
      base::writeFile(sessionFile(), documentsRecord(documentsNow()));
    } else {
      base::removeFile(sessionFile());
    }
  });
  bool left = false;
  for (auto at = kept_.begin(); at != kept_.end();) {
    const auto [index, document] = find(at->first);
    if (document && !bench_.session().changed(index)) {
      left = true;
      ++at;
    } else {
      drop(at->second);
      at = kept_.erase(at);
    }
  }
  finish();
  if (!left) writer_->remove(run_->listPath());
  kept_.clear();
  writer_.reset();
  run_.reset();
}

// Taking back ---------------------------------------------------------------------------------------------

void Recovery::offer() {
  std::vector<LostRun> lost = lostRuns(folder_);
  std::vector<const KeptText*> all;
  for (const LostRun& run : lost) {
    for (const KeptText& text : run.texts) all.push_back(&text);
  }
  if (all.empty()) return;
  frmrecovery form(bench_, all);
  bench_.platform().showModal(form);
  if (form.answer() == frmrecovery::Answer::Later) return;
  std::size_t row = 0;
  for (LostRun& run : lost) {
    std::vector<const KeptText*> chosen;
    for (const KeptText& text : run.texts) {
      if (form.chosen(row++)) chosen.push_back(&text);
    }
    if (chosen.empty()) continue;
    if (form.answer() == frmrecovery::Answer::TakeBack) {
      takeBack(run.documents, chosen);
      sync();
      finish();  // in this run's own files, before the old ones go
    }
    std::vector<std::uint64_t> done;
    for (const KeptText* text : chosen) done.push_back(text->place.document);
    for (const std::uint64_t document : done) run.forget(document);
  }
}

void Recovery::offerSession() {
  if (bench_.session().list.Count() > 0 || !base::fileExists(sessionFile())) return;
  takeBack(readDocuments(base::readFile(sessionFile())), {});
}

app::Ithem* Recovery::takeBack(const Place& place, const KeptText* text) {
  app::Session& session = bench_.session();
  const bool there = !place.path.empty() && base::fileExists(place.path);
  if (!there && text == nullptr) return nullptr;
  auto index = place.path.empty() ? std::nullopt : session.recordOf(place.path);
  if (!index) {
    if (there && app::isPictureFile(place.path)) {
      return &session.list.Item(session.append(app::kImageValue, place.path, place.title));
    }
    const std::string bytes = there ? base::readFile(place.path) : std::string();
    index = session.append(bytes, place.path, place.title);
    app::Ithem& record = session.list.Item(*index);
    record.saved = there;
    if (there) record.file = base::traceOf(place.path, bytes);
  }
  // A step that can be undone: the file's own text is behind it.
  if (text != nullptr && session.text(*index) != text->text) session.setText(*index, text->text);
  app::Ithem& record = session.list.Item(*index);
  if (text != nullptr) (session.isShown(*index) ? session.shown.changed : record.Changed) = true;
  record.SStart = static_cast<std::int32_t>(place.start);
  record.SLenth = static_cast<std::int32_t>(place.length);
  if (place.document != 0 && !session.isShown(*index)) {
    const auto& document = record.Value.in(bench_.codeView());
    document->view = place.utf8 ? ui::TextView::Utf8 : ui::TextView::EightBit;
    document->viewDecided = true;
    document->viewChosen = place.viewChosen;
  }
  return &record;
}

void Recovery::takeBack(const Documents& documents, const std::vector<const KeptText*>& texts) {
  app::Session& session = bench_.session();
  const bool nothingOpen =
      session.list.Count() == 0 && session.shown.path.empty() && session.text(-1).empty();
  if (nothingOpen && !documents.project.empty() && base::fileExists(documents.project)) {
    bench_.WEB_Open(documents.project);
  }
  session.park();
  std::vector<const KeptText*> left = texts;
  std::vector<app::Ithem*> all;
  app::Ithem* shown = nullptr;
  for (std::size_t i = 0; i < documents.places.size(); ++i) {
    const Place& place = documents.places[i];
    const auto text = std::find_if(left.begin(), left.end(), [&](const KeptText* kept) {
      return place.document != 0 && kept->place.document == place.document;
    });
    app::Ithem* const record = takeBack(place, text == left.end() ? nullptr : *text);
    if (text != left.end()) left.erase(text);
    if (record == nullptr) continue;
    all.push_back(record);
    if (static_cast<std::int32_t>(i) == documents.shown) shown = record;
  }
  for (const KeptText* text : left) all.push_back(takeBack(text->place, text));
  session.nameUntitled();
  bench_.documentsAdded();
  arrange(all);
  if (shown == nullptr && !all.empty()) shown = all.back();
  for (std::int16_t i = 0; i < session.list.Count(); ++i) {
    if (&session.list.Item(i) == shown) bench_.showDocument(i);
  }
}

// Where these are all that is open they get back their order, too.
void Recovery::arrange(const std::vector<app::Ithem*>& wanted) {
  app::ColectionMain& list = bench_.documents();
  if (list.Count() != static_cast<std::int16_t>(wanted.size())) return;
  for (std::int16_t to = 0; to < list.Count(); ++to) {
    for (auto from = to; from < list.Count(); ++from) {
      if (&list.Item(from) != wanted[static_cast<std::size_t>(to)]) continue;
      if (from != to) bench_.moveDocument(from, to);
      break;
    }
  }
}

}  // namespace recovery
