#include "search/frmsuch.h"

#include <algorithm>

#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/progress.h"
#include "base/line_ends.h"
#include "base/moved_place.h"
#include "base/scoped_flag.h"
#include "base/text.h"
#include "base/utf8.h"
#include "search/insert_menu.h"
#include "search/terms.h"

namespace search {
namespace {

using namespace ui::literals;

constexpr std::size_t kHistory = 20;
constexpr int kHeightWithList = 491;  // 7365 twips

constexpr ui::Shortcut kNext{ui::kKeyF1 + 2, false, false, false};
constexpr ui::Shortcut kPrevious{ui::kKeyF1 + 2, false, true, false};
constexpr ui::Shortcut kLeave{ui::kKeyEscape, false, false, false};

}  // namespace

frmsuch::frmsuch(app::Workbench& bench) : Form("frmsuch", IDD_frmsuch), bench_(bench), T1_(bench.codeView()) {
  setCaption("Suchen");
  Text1.stretches = Tcvla.stretches = List1.stretches = true;
  LBfind.setCaption("საძიებელი ტექსტი");
  LBreplace.setCaption("შემცვლელი ტექსტი");
  LBscope.setCaption("სად");
  CHK.setCaption("&mxolod mTliani sityva"_keyboard);
  CKcase.setCaption("didi-patara asoebiT"_keyboard);
  CKutf8.setCaption("UTF8");
  CKalfil.setCaption("yvela gaxsnil failSi"_keyboard);
  Czuch.setCaption("Zebna"_keyboard);
  MBAlfind.setCaption("yvelas povna"_keyboard);
  Ccvla.setCaption("Secvla"_keyboard);
  Calcvla.setCaption("yvelas Secvla"_keyboard);
  Ccheinj.setCaption("«»");
  Cmeniu.setCaption("»");
  Text1.hint = "საძიებელი ტექსტი; რამდენიმეს შორის იწერება |>";
  Tcvla.hint = LBreplace.caption();
  Combo1.hint = "სად მოიძებნოს";
  Ccheinj.hint = "საძიებელი და შემცვლელი ტექსტების გაცვლა";
  Cmeniu.hint = "ნიშნების ჩასმა, ბოლო ძებნები";
  Combo1.setItems({"mTlian teqstSi"_keyboard, "markirebul teqstSi"_keyboard,
                   "aqtualuri adgilidan zeviT"_keyboard, "aqtualuri adgilidan qveviT!"_keyboard});
  Combo1.dropWidth = 200;
  defaultButton = &Czuch;

  Text1.changed.connect([this] { Text1_Change(); });
  Combo1.selectionChanged.connect([this] { Combo1_Click(); });
  Czuch.clicked.connect([this] { findNext(); });
  MBAlfind.clicked.connect([this] { MBAlfind_Click(); });
  Ccvla.clicked.connect([this] { Ccvla_Click(); });
  Calcvla.clicked.connect([this] { Calcvla_Click(); });
  Ccheinj.clicked.connect([this] { Ccheinj_Click(); });
  Cmeniu.clicked.connect([this] { Cmeniu_Click(); });
  List1.selectionChanged.connect([this] { List1_Click(); });
  Text1.keyPress = Tcvla.keyPress = [this](int key) { return field_KeyPress(key); };

  bench_.documentShown.connect([this] { followShown(); });
  bench_.viewChanged.connect([this] { readAsShown(); });
  app::ColectionMain& documents = bench_.documents();
  documents.NewItem.connect([this] {
    // The document that has no record is given one just before another is shown.
    if (bench_.shownIndex() < 0) parkedAt_ = bench_.documents().Count() - 1;
    documentsChanged();
  });
  documents.ItemRemoved.connect([this](std::int16_t index, std::int16_t) { documentRemoved(index); });
  bench_.documentMoved.connect([this](std::int16_t from, std::int16_t to) { documentMoved(from, to); });
  documents.ColectionDeleted.connect([this] {
    hits.allDocumentsRemoved();
    oldTexts_.clear();
    std::fill(targets_.begin(), targets_.end(), kGone);
    documentsChanged();
  });
}

void frmsuch::readAsShown() {
  const convert::ReadAs as = convert::readAs(bench_);
  const auto letterTables = [this]() -> const convert::LetterTables& { return tables(); };
  Text1.readAs(T1_);
  Tcvla.readAs(T1_);
  findText_.follow(as, letterTables);
  replacement_.follow(as, letterTables);
}

void frmsuch::open() {
  followShown();
  const std::string selected = T1_.selText();
  if (!selected.empty() && selected.find_first_of("\r\n") == std::string::npos) {
    Text1.setText(selected);
    Text1_Change();
  }
  if (closed()) {
    bench_.platform().showModeless(*this);
  } else {
    Text1.setFocus();
  }
}

void frmsuch::load() {
  Combo1.setSelected(0);
  scope = Scope::WholeText;
  nextPos = -1;
  current_.reset();
  List1.setItems({});
  List1.setVisible(false);
  setHeight(0);
  lbinf.setCaption({});
  documentsChanged();
}

void frmsuch::activated() {
  readAsShown();
  Text1.setFocus();
}

bool frmsuch::keyPressed(const ui::Shortcut& key) {
  if (key == kNext) {
    Czuch.click();
  } else if (key == kPrevious) {
    findPrevious();
  } else if (key == kLeave) {
    if (!busy_) close();  // a search under way is ended first
  } else {
    return false;
  }
  return true;
}

void frmsuch::Text1_Change() {
  const bool oneTerm = Text1.text().find(kTermSeparator) == std::string::npos;
  Ccvla.setEnabled(oneTerm);
  Calcvla.setEnabled(oneTerm);
}

void frmsuch::Combo1_Click() {
  scope = static_cast<Scope>(std::max(Combo1.selected(), 0));
  takePlace();
  nextPos = -1;
  documentsChanged();
}

void frmsuch::takePlace() {
  caretStart = T1_.selStart();
  selectionEnd = caretStart + T1_.selLength();
}

void frmsuch::Ccheinj_Click() {
  const std::string replacement = Tcvla.text();
  Tcvla.setText(Text1.text());
  Text1.setText(replacement);
  Text1_Change();
}

void frmsuch::Cmeniu_Click() {
  const int chosen = bench_.platform().popupMenu(mnual(history_));
  if (chosen == mnuand) {
    Text1.insert(kTermSeparator);
    Text1.setFocus();
  } else if (chosen == mnuend) {
    Tcvla.setText(Tcvla.text() + "\r\n");
    Text1.setText(Text1.text() + "\r\n");
  } else if (chosen == mnutab) {
    Text1.insert("\t");
  } else if (chosen >= mnuhistory && static_cast<std::size_t>(chosen - mnuhistory) < history_.size()) {
    Text1.setText(history_[static_cast<std::size_t>(chosen - mnuhistory)]);
  }
  Text1_Change();
}

std::string frmsuch::field_KeyPress(int key) {
  const ui::CharacterSet set = Text1.font().characterSet;
  if (set == ui::CharacterSet::Utf8) return T1_.typed(static_cast<char32_t>(key));
  if (set == ui::CharacterSet::Russian) {
    key = georgianFromCyrillicField(key);
  } else if (bench_.commandChecked(mnuens1)) {
    key = georgianFromLatin(key, tables());
  }
  return std::string(1, static_cast<char>(key));
}

void frmsuch::findNext() {
  step(Direction::Forward);
}

void frmsuch::findPrevious() {
  step(Direction::Backward);
}

void frmsuch::step(Direction direction) {
  if (busy_) return;
  if (splitTerms(Text1.text()).empty()) {
    if (closed()) open();
    return;
  }
  remember();
  {
    const base::ScopedFlag busy(busy_);
    findindex();
    followEdits();
    const std::string_view text = T1_.text();
    const std::vector<Term> wanted = terms(text);
    setRange(text.size());
    std::optional<Occurrence> occurrence;
    if (direction == Direction::Forward) {
      if (nextPos < 0) nextPos = rangeStart;
      occurrence = search::findNext(text, wanted, static_cast<std::size_t>(nextPos), range());
    } else {
      const bool stillThere = current_ && selectionOf(*current_).start == T1_.selStart();
      const std::size_t before = stillThere ? current_->position : static_cast<std::size_t>(T1_.selStart());
      occurrence = search::findPrevious(text, wanted, before, range());
    }
    if (occurrence) return found(*occurrence);
    if (allFiles() && stepInOtherDocument(direction)) return;
  }
  nextPos = -1;
  current_.reset();
  app::messageBox(bench_.platform(), "Zebna damTavrda.\r\n\r\nmeti araa!!  "_keyboard, caption());
}

// Searches parked texts where they are: a document comes into the code view only for its hit. True: found, or
// stopped by the user.
bool frmsuch::stepInOtherDocument(Direction direction) {
  app::Progress progress(bench_.platform(), panel(), fileIndex.size());
  const auto shown = std::find_if(fileIndex.begin(), fileIndex.end(), [&](const FileEntry& entry) {
    return entry.document == bench_.shownIndex();
  });
  int node = shown == fileIndex.end() ? 0 : shown->node;
  while ((node = direction == Direction::Forward ? findnextindex(node) : findpreviousindex(node)) > 0) {
    if (!progress.step("")) return true;
    const std::int16_t document = documentOf(node);
    if (document < 0) continue;  // closed during the step
    const std::string_view text = bench_.documentText(document);
    const std::vector<Term> wanted = terms(text);
    const Range whole{0, text.size()};
    const auto occurrence = direction == Direction::Forward
                                ? search::findNext(text, wanted, 0, whole)
                                : search::findPrevious(text, wanted, text.size(), whole);
    if (!occurrence) continue;
    bench_.showDocument(document);
    if (bench_.shownIndex() == document) found(*occurrence);
    return true;
  }
  return false;
}

void frmsuch::found(const Occurrence& occurrence) {
  select(selectionOf(occurrence));
  nextPos = static_cast<std::int32_t>(occurrence.position + occurrence.length);
  current_ = occurrence;
  sizeAtStep_ = T1_.text().size();
}

void frmsuch::MBAlfind_Click() {
  if (busy_) return;
  if (!splitTerms(Text1.text()).empty()) remember();
  const bool any = suchen();
  std::vector<ui::Text> rows;
  rows.reserve(hits.size());
  for (std::size_t i = 0; i < hits.size(); ++i) {
    rows.emplace_back("napovni # " + std::to_string(i + 1), ui::TextKind::Keyboard);
  }
  List1.setItems(std::move(rows));
  if (!any) {
    lbinf.setCaption("0 napovni"_keyboard);
    return;
  }
  List1.setVisible(true);
  setHeight(kHeightWithList);
  lbinf.setCaption({std::to_string(hits.size()) + " napovnia", ui::TextKind::Keyboard});
}

bool frmsuch::suchen() {
  hits.clear();
  stopped_ = false;
  if (splitTerms(Text1.text()).empty()) return false;
  const base::ScopedFlag busy(busy_);
  try {
    setRange(T1_.text().size());
    targets_ = targets();
    app::Progress progress(bench_.platform(), panel(), targets_.size());
    for (const int& target : targets_) {
      if (targets_.size() > 1 && !progress.step("")) {
        stopped_ = true;
        break;
      }
      const int document = target;
      if (document == kGone) continue;  // closed during the step
      const std::string_view text = bench_.documentText(static_cast<std::int16_t>(document));
      hits.findAll(document, text, terms(text), allFiles() ? Range{0, text.size()} : range());
    }
  } catch (const std::exception& error) {
    hits.clear();
    app::messageBox(bench_.platform(), "Error: " + app::errorText(error).description + "\r\n\r\n", caption(),
                    app::frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
  }
  targets_.clear();
  return !hits.empty();
}

void frmsuch::List1_Click() {
  const int row = List1.selected();
  if (busy_ || row < 0 || static_cast<std::size_t>(row) >= hits.size()) return;
  const auto number = static_cast<std::size_t>(row);
  const int document = hits[number].document;
  const auto index = static_cast<std::int16_t>(document);
  const bool open =
      document == bench_.shownIndex() || (document >= 0 && document < bench_.documents().Count());
  const auto selection = open ? hits.locate(number, bench_.documentText(index)) : std::nullopt;
  if (selection && document != bench_.shownIndex()) bench_.showDocument(index);
  if (!selection || bench_.shownIndex() != index) {
    lbinf.setCaption("ნაპოვნი # " + std::to_string(row + 1) + " აღარ არის: ტექსტი შეიცვალა");
    return;
  }
  select(*selection);
}

void frmsuch::select(const Selection& selection) {
  T1_.select(selection.start, selection.length);
  if (const auto area = T1_.selectionOnScreen()) moveOff(*area);
}

void frmsuch::findindex() {
  fileIndex.clear();
  app::ColectionMain& documents = bench_.documents();
  const auto nodes = app::treeNodes(documents);
  for (std::size_t i = 0; i < nodes.size(); ++i) {
    if (nodes[i].tag.empty()) continue;
    const auto document = static_cast<std::int16_t>(std::stoi(nodes[i].tag));
    // A document may stand in the tree twice; it is searched once.
    const bool known = std::any_of(fileIndex.begin(), fileIndex.end(),
                                   [&](const FileEntry& entry) { return entry.document == document; });
    if (known || app::isImage(documents.Item(document))) continue;
    fileIndex.push_back({static_cast<std::int16_t>(i + 1), document});
  }
  if (fileIndex.empty()) fileIndex.push_back({-1, -1});
}

int frmsuch::findnextindex(int from) const {
  const auto next = std::find_if(fileIndex.begin(), fileIndex.end(),
                                 [from](const FileEntry& entry) { return entry.node > from; });
  return next == fileIndex.end() ? 0 : next->node;
}

int frmsuch::findpreviousindex(int from) const {
  const auto previous = std::find_if(fileIndex.rbegin(), fileIndex.rend(),
                                     [from](const FileEntry& entry) { return entry.node < from; });
  return previous == fileIndex.rend() ? 0 : std::max<int>(previous->node, 0);
}

std::int16_t frmsuch::documentOf(int node) const {
  const auto entry = std::find_if(fileIndex.begin(), fileIndex.end(),
                                  [node](const FileEntry& known) { return known.node == node; });
  return entry == fileIndex.end() ? std::int16_t{-1} : entry->document;
}

// The shown document, or all: one that has no place in the list yet comes first.
std::vector<int> frmsuch::targets() {
  findindex();
  const std::int16_t shown = bench_.shownIndex();
  if (!allFiles()) return {shown};
  std::vector<int> documents;
  if (shown < 0) documents.push_back(shown);
  for (const FileEntry& entry : fileIndex) {
    if (entry.document >= 0) documents.push_back(entry.document);
  }
  return documents;
}

// The scope's caret and selection are those of the new document; a caret at its end counts as one at its
// start.
void frmsuch::followShown() {
  if (parkedAt_ >= 0 && bench_.shownIndex() >= 0) hits.documentNumbered(parkedAt_);
  parkedAt_ = -1;
  readAsShown();
  takePlace();
  if (static_cast<std::size_t>(caretStart) == T1_.text().size()) caretStart = 0;
  nextPos = -1;
  current_.reset();
  documentsChanged();
}

void frmsuch::followEdits() {
  const std::size_t size = T1_.text().size();
  if (nextPos < 0 || size >= sizeAtStep_) return;
  // What was cut may have stood before the place: rather meet a hit twice than miss one.
  nextPos = std::max<std::int32_t>(0, nextPos - static_cast<std::int32_t>(sizeAtStep_ - size));
}

void frmsuch::documentsChanged() {
  const bool whole = scope == Scope::WholeText;
  CKalfil.setEnabled(whole && bench_.documents().Count() > 0);
  CKalfil.setGreyed(!whole && CKalfil.checked());
  if (busy_) findindex();
}

void frmsuch::documentRemoved(int document) {
  hits.documentRemoved(document);
  parkedAt_ = -1;
  oldTexts_.documentRemoved(document);
  for (int& target : targets_) {
    if (target == document) {
      target = kGone;
    } else if (target > document) {
      --target;
    }
  }
  documentsChanged();
}

void frmsuch::documentMoved(int from, int to) {
  if (parkedAt_ >= 0) hits.documentNumbered(parkedAt_);  // the shown document had just got its place
  parkedAt_ = -1;
  hits.documentMoved(from, to);
  oldTexts_.documentMoved(from, to);
  for (int& target : targets_) target = base::placeAfterMove(target, from, to);
  documentsChanged();
}

Comparison frmsuch::comparison() const {
  return CKcase.checked() ? Comparison::Exact : Comparison::IgnoreCase;
}

// The fields end lines with CR LF. One that is read as UTF-8 holds it already.
std::string frmsuch::searched(const std::string& field, std::string_view document) {
  std::string text = base::withLineEndsOf(document, field);
  const convert::ReadAs written = convert::readAs(bench_);
  const bool utf8 = Text1.font().characterSet == ui::CharacterSet::Utf8;
  if (CKutf8.checked() && !utf8) return utf8FromLegacy(text, tables());
  if (document.data() == T1_.text().data()) return text;
  // The fields are read as the shown document is; another one may be read otherwise.
  convert::ReadAs there{base::readsAsUtf8(document) ? ui::TextView::Utf8 : ui::TextView::EightBit};
  if (there.view == written.view) return text;
  there.mode = convert::modeOfText(document).value_or(convert::TypingMode::GeorgianISO);
  return convert::reencoded(text, written, there, tables()).value_or(text);
}

std::vector<Term> frmsuch::terms(std::string_view document) {
  std::vector<std::string> wanted = splitTerms(Text1.text());
  for (std::string& term : wanted) term = searched(term, document);
  return makeTerms(wanted, CHK.checked(), comparison());
}

const convert::LetterTables& frmsuch::tables() {
  if (!tables_) {
    tables_ =
        convert::loadLetterTables([this](std::string_view name) { return bench_.platform().resource(name); });
  }
  return *tables_;
}

void frmsuch::setRange(std::size_t textSize) {
  const Range range =
      rangeOf(scope, static_cast<std::size_t>(caretStart), static_cast<std::size_t>(selectionEnd), textSize);
  rangeStart = static_cast<std::int32_t>(range.begin);
  rangeEnd = static_cast<std::int32_t>(range.end);
}

Range frmsuch::range() const {
  return {static_cast<std::size_t>(rangeStart), static_cast<std::size_t>(rangeEnd)};
}

std::function<void(const std::string&)> frmsuch::panel() {
  return [this](const std::string& line) {
    bench_.setPanel("kMain", line.empty() ? ui::Text() : "ძებნა (Esc - შეჩერება)  " + line);
  };
}

void frmsuch::remember() {
  std::erase(history_, Text1.text());
  history_.push_front(Text1.text());
  if (history_.size() > kHistory) history_.pop_back();
}

}  // namespace search
