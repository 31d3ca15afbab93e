#include "editor/frmxascvla.h"

#include <numeric>

#include "app/mdlsaerto.h"
#include "base/files.h"

namespace editor {
namespace {

constexpr const char* kKind = "pairs";
constexpr const char* kFilter = "Text(*.txt)|*.txt|All Files(*.*)|*.*";

}  // namespace

frmxascvla::frmxascvla(app::Workbench& bench) : Form("frmxascvla", IDD_frmxascvla), bench_(bench) {
  setCaption("Replace");
  LV.stretches = Tfind.stretches = Treplace.stretches = true;
  LV.hint = "წყვილები";
  LV.columns = {{"საძებნი", 110}, {"შემცვლელი", 110}, {"შეიცვალა", 44}};
  Lfind.setCaption("სა&ძებნი:");
  Lreplace.setCaption("შემცვ&ლელი:");
  Cload.setCaption("&გახსნა...");
  Csave.setCaption("&შენახვა...");
  CKcase.setCaption("დიდი და პატარა ასოების გა&რჩევა");
  CKword.setCaption("მ&ხოლოდ მთელი სიტყვა");
  OPselection.setCaption("&მონიშნულში");
  OPdocument.setCaption("დ&ოკუმენტში");
  OPall.setCaption("ყველა გახ&სნილ დოკუმენტში");
  COK.setCaption("შეცვლის დაწ&ყება");
  CEXIT.setCaption("გამოსვლ&ა");
  CKcase.setChecked(true);
  grid_.setLetters([this](const std::string& bytes) { return bench_.clipOf(bytes).letters; });
  Cload.clicked.connect([this] { Cload_Click(); });
  Csave.clicked.connect([this] { Csave_Click(); });
  COK.clicked.connect([this] { COK_Click(); });
  CEXIT.clicked.connect([this] { close(); });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

void frmxascvla::openWindow() {
  const bool selected = bench_.codeView().selLength() > 0;
  OPselection.setEnabled(selected);
  (selected ? OPselection : OPdocument).choose();
  Lresult.setCaption("");
  Tfind.readAs(bench_.codeView());
  Treplace.readAs(bench_.codeView());
  setPairs(pairs());  // without the counts of last time
  bench_.platform().showModal(*this);
  bench_.codeView().setFocus();
}

std::vector<ReplacePair> frmxascvla::pairs() const {
  std::vector<ReplacePair> pairs;
  for (const PairGrid::Row& row : grid_.rows()) pairs.push_back({row.first, row.second});
  return pairs;
}

void frmxascvla::setPairs(const std::vector<ReplacePair>& pairs) {
  std::vector<PairGrid::Row> rows;
  for (const ReplacePair& pair : pairs) rows.push_back({pair.find, pair.replace});
  grid_.setRows(std::move(rows));
}

void frmxascvla::Cload_Click() {
  const auto paths = bench_.platform().openFiles({"წყვილების სია", kFilter, {}, false, {}, kKind});
  if (!paths.empty()) setPairs(parsePairs(base::readFile(paths[0])));
}

void frmxascvla::Csave_Click() {
  const auto path = bench_.platform().saveFile({"წყვილების სია", kFilter, {}, false, {}, kKind});
  if (path) base::writeFile(*path, formatPairs(pairs()));
}

void frmxascvla::COK_Click() {
  grid_.takeTyped();
  const ui::Hourglass hourglass(bench_.platform());
  std::vector<int> counts(grid_.rows().size());
  if (OPselection.chosen()) {
    replaceSelection(counts);
  } else if (OPdocument.chosen()) {
    replaceDocument(counts);
  } else {
    replaceAll(counts);
  }
  showCounts(counts);
}

std::string frmxascvla::replaced(const std::string& text, base::LineEnd lineEnd,
                                 std::vector<int>& counts) const {
  return replaceByList(text, pairs(), lineEnd, {CKcase.checked(), CKword.checked()}, counts);
}

void frmxascvla::replaceSelection(std::vector<int>& counts) {
  ui::CodeView& T1 = bench_.codeView();
  const std::string old = T1.selText();
  const std::string text = replaced(old, base::lineEndOf(T1.text()), counts);
  if (text == old) return;
  const int start = T1.selStart();
  T1.replaceSelection(text);
  T1.select(start, static_cast<int>(text.size()));
}

void frmxascvla::replaceDocument(std::vector<int>& counts) {
  ui::CodeView& T1 = bench_.codeView();
  const std::string text = replaced(std::string(T1.text()), base::lineEndOf(T1.text()), counts);
  if (text == T1.text()) return;
  const int start = T1.selStart();
  T1.setText(text);
  T1.select(start, 0);
}

void frmxascvla::replaceAll(std::vector<int>& counts) {
  replaceDocument(counts);
  for (std::int16_t i = 0; i < bench_.documents().Count(); ++i) {
    if (i == bench_.shownIndex()) continue;
    const std::string old(bench_.documentText(i));
    if (old == app::kImageValue) continue;
    std::string text = replaced(old, base::lineEndOf(old), counts);
    if (text != old) bench_.setDocumentText(i, std::move(text));
  }
}

void frmxascvla::showCounts(const std::vector<int>& counts) {
  std::vector<std::string> notes;
  for (const int count : counts) notes.push_back(std::to_string(count));
  grid_.setNotes(std::move(notes));
  Lresult.setCaption("სულ შეიცვალა: " + std::to_string(std::accumulate(counts.begin(), counts.end(), 0)));
}

}  // namespace editor
