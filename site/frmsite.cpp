#include "site/frmsite.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <thread>
#include <unordered_map>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/disk.h"
#include "base/error.h"
#include "base/file_errors.h"
#include "base/files.h"
#include "base/hash.h"
#include "base/path.h"
#include "base/scoped_flag.h"
#include "base/text.h"
#include "convert/frmletters.h"
#include "site/backup.h"

namespace site {
namespace {

constexpr std::size_t kRowsAtFirst = 1000;
constexpr std::size_t kMoreRows = 5000;  // with each wish for more
constexpr std::size_t kMostNamed = 12;   // files in a question
constexpr int kPoll = 30;                // milliseconds in which the window does nothing
constexpr double kTellTimeFrom = 2;      // seconds; before that nobody knows

// Each site's own: two windows may show theirs at the same time.
std::string reportName(std::string_view folder) {
  return "Zervo-site-" + base::hexOf(base::hash64(folder)) + ".html";
}

std::string number(std::size_t value) {
  return std::to_string(value);
}

// "*.htm; *.html" as a list.
std::vector<std::string> globsOf(std::string text) {
  std::ranges::replace(text, ',', ';');
  std::vector<std::string> globs;
  for (const std::string& part : base::split(text, ";")) {
    const std::string_view glob = base::trimSpaces(part);
    if (!glob.empty()) globs.emplace_back(glob);
  }
  return globs;
}

std::string timeText(double seconds) {
  const auto whole = static_cast<std::size_t>(std::lround(seconds));
  return whole < 60 ? number(whole) + " წმ" : number(whole / 60) + " წთ " + number(whole % 60) + " წმ";
}

bool isProject(const std::string& path) {
  return base::lastThree(path) == "WEB" && base::fileExists(path);
}

// A path without the separators at its end.
std::string trimmed(std::string path) {
  while (path.size() > 3 && (path.back() == '\\' || path.back() == '/')) path.pop_back();
  return path;
}

}  // namespace

frmsite::frmsite(app::Workbench& bench) : Form("frmsite", IDD_frmsite), bench_(bench) {
  setCaption("მთელი საიტის ასოების გადაყვანა");
  Lfolder.setCaption("სა&იტი:");
  Tfolder.hint = "საიტის საქაღალდე ან პროექტის ფაილი (*.WEB)";
  Cfolder.setCaption("...");
  Cfolder.hint = "საიტის საქაღალდის არჩევა";
  Cproject.setCaption("ღია &პროექტი");
  Cproject.hint = "ახლა გახსნილი პროექტის დოკუმენტები";
  Linclude.setCaption("&მხოლოდ:");
  Tinclude.hint = "ნიმუშები, მაგალითად *.htm; news/*; ცარიელი: ყველა";
  Lexclude.setCaption("გარ&და:");
  Texclude.hint = "ნიმუშები, მაგალითად old; *.bak";
  Lto.setCaption("გადა&ვიყვანოთ:");
  CBto.setItems({"UTF-8", "HTML-კოდები (&#4304;)"});
  CBto.setSelected(0);
  Lfonts.setCaption("ძველი &შრიფტი:");
  CBfonts.setItems({"მოშორდეს", "დარჩეს"});
  CBfonts.setSelected(0);
  Lwhere.setCaption("&სად:");
  CBwhere.setItems({"იმავე ადგილას", "ახალ საქაღალდეში"});
  CBwhere.setSelected(0);
  Ctarget.setCaption("...");
  Cplan.setCaption("შემო&წმება");
  Cstop.setCaption("შეჩ&ერება");
  LV.hint = "საიტის ფაილები";
  LV.stretches = LV.checkBoxes = LV.enterOpens = true;
  LV.columns = {{"ფაილი", 108}, {"ფორმა", 97},       {"სანდოობა", 46},
                {"ადგილი", 40}, {"გაურკვეველი", 58}, {"მდგომარეობა", 76}};
  CKall.setCaption("ყველას მო&ნიშვნა");
  Lsort.setCaption("და&ლაგება:");
  std::vector<ui::Text> orders{"ჯერ გაურკვეველი"};
  for (const ui::ListView::Column& column : LV.columns) orders.push_back(column.caption);
  CBsort.setItems(std::move(orders));
  CBsort.setSelected(0);
  Copen.setCaption("გვერდის განს&ხვავებები");
  Capply.setCaption("&გადაყვანა...");
  Creport.setCaption("ანგარიში");
  Crestore.setCaption("ძველის აღდგენ&ა...");
  CEXIT.setCaption("დახურვა");
  defaultButton = &Cplan;
  cancelButton = &CEXIT;

  for (ui::TextBox* box : {&Tfolder, &Tinclude, &Texclude}) {
    box->changed.connect([this] { optionsChanged(); });
  }
  CBto.selectionChanged.connect([this] { optionsChanged(); });
  CBfonts.selectionChanged.connect([this] { optionsChanged(); });
  CBwhere.selectionChanged.connect([this] { showTargetCaption(); });
  Cfolder.clicked.connect([this] { Cfolder_Click(); });
  Cproject.clicked.connect([this] { Cproject_Click(); });
  Ctarget.clicked.connect([this] { Ctarget_Click(); });
  Cplan.clicked.connect([this] { Cplan_Click(); });
  Cstop.clicked.connect([this] { stop_ = true; });
  LV.rowChecked.connect([this](int row) { LV_Checked(row); });
  LV.selectionChanged.connect([this] { LV_SelectionChanged(); });
  LV.doubleClicked.connect([this] { openSelected(); });
  LV.columnClicked.connect([this](int column) { LV_ColumnClicked(column); });
  CKall.changed.connect([this] { CKall_Changed(); });
  CBsort.selectionChanged.connect([this] { CBsort_Changed(); });
  Copen.clicked.connect([this] { openSelected(); });
  Capply.clicked.connect([this] { Capply_Click(); });
  Creport.clicked.connect([this] { Creport_Click(); });
  Crestore.clicked.connect([this] { Crestore_Click(); });
  CEXIT.clicked.connect([this] {
    if (queryClose()) close();
  });
  showTargetCaption();
  showButtons();
}

void frmsite::load() {
  if (Tfolder.text().empty() && bench_.documents().WEBopened) Cproject_Click();
  showButtons();
}

bool frmsite::queryClose() {
  if (!running_) return true;
  stop_ = closeBehindRun_ = true;
  return false;
}

Options frmsite::wanted() const {
  Options options;
  options.folder = trimmed(std::string(base::trimSpaces(Tfolder.text())));
  options.include = globsOf(Tinclude.text());
  options.exclude = globsOf(Texclude.text());
  options.letters.to = CBto.selected() == 1 ? convert::Target::References : convert::Target::Utf8;
  options.letters.fonts = CBfonts.selected() == 1 ? convert::OldFonts::Keep : convert::OldFonts::TakeAway;
  options.letters.detector.parts.fonts = &fonts_;
  options.threads = std::max(1U, std::thread::hardware_concurrency());
  return options;
}

std::string frmsite::siteFolder() const {
  const std::string path = wanted().folder;
  return isProject(path) ? base::folderOf(base::fullPath(path)) : path;
}

void frmsite::optionsChanged() {
  isPlanned_ = false;
  proposeTarget();
  showButtons();
}

// Beside the site, unless the user has named another.
void frmsite::proposeTarget() {
  if (Ttarget.text() != proposed_) return;
  const std::string folder = trimmed(siteFolder());
  proposed_ = folder.empty() ? std::string() : folder + (inPlace() ? "-old" : "-new");
  Ttarget.setText(proposed_);
}

void frmsite::showTargetCaption() {
  Ltarget.setCaption(inPlace() ? "&ძველები აქ:" : "ახალი აქ:");
  Ttarget.hint = inPlace() ? "საქაღალდე, სადაც ძველი ფაილები შეინახება" : "ახალი საქაღალდე მთელი საიტისთვის";
  Ctarget.hint = Ttarget.hint;
  proposeTarget();
}

void frmsite::Cfolder_Click() {
  const auto folder = bench_.platform().pickFolder("საიტის საქაღალდე");
  if (!folder) return;
  Tfolder.setText(*folder);
  optionsChanged();
}

void frmsite::Cproject_Click() {
  const app::ColectionMain& documents = bench_.documents();
  if (!documents.WEBopened) return;
  Tfolder.setText(documents.WEBpath + documents.WEBtitle);
  optionsChanged();
}

void frmsite::Ctarget_Click() {
  const auto folder = bench_.platform().pickFolder(Ttarget.hint);
  if (folder) Ttarget.setText(*folder);
}

void frmsite::setRunning(bool on) {
  running_ = on;
  for (ui::Control* control : controls()) {
    const ui::ControlKind kind = control->kind();
    if (kind != ui::ControlKind::Label && kind != ui::ControlKind::ProgressBar) control->setEnabled(!on);
  }
  CEXIT.setEnabled(true);
  Cstop.setEnabled(on);
  if (!on) showButtons();
  (on ? Cstop : Cplan).setFocus();
}

bool frmsite::run(std::function<void(Observer&)> work, std::function<void(FileResult&)> take) {
  stop_ = closeBehindRun_ = false;
  struct Running {
    explicit Running(frmsite& owner) : form(owner) { form.setRunning(true); }
    ~Running() {
      form.Bar.setValue(0);
      form.Lprogress.setCaption(form.stop_ ? "შეჩერებულია" : "");
      form.setRunning(false);
    }
    frmsite& form;
  };
  {
    const Running running(*this);
    const auto begin = std::chrono::steady_clock::now();
    Task task(std::move(work), std::move(take));
    for (Task::State state = task.wait(kPoll); !state.ended; state = task.wait(kPoll)) {
      showProgress(state, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
      bench_.platform().pumpEvents();
      if (stop_) task.stop();
    }
    task.finish();
  }
  if (closeBehindRun_) close();
  return !stop_;
}

void frmsite::showProgress(const Task::State& state, double seconds) {
  std::string text =
      state.files == 0 ? "ფაილები იძებნება..." : number(state.done) + " / " + number(state.files);
  if (state.done > 0 && state.files > state.done && seconds > kTellTimeFrom) {
    const double left =
        seconds * static_cast<double>(state.files - state.done) / static_cast<double>(state.done);
    text += "   დარჩა " + timeText(left);
  }
  if (!state.file.empty()) text += "   " + state.file;
  Lprogress.setCaption(stop_ ? "ჩერდება..." : text);
  Bar.setValue(state.files == 0 ? 0 : static_cast<int>(state.done * ui::ProgressBar::kMost / state.files));
}

std::string frmsite::unsavedInSite() {
  app::Session& session = bench_.session();
  const std::string folder = siteFolder();
  std::string names;
  for (const std::int16_t index : session.unsaved()) {
    const std::string path = session.path(index);
    if (!path.empty() && isInside(path, folder)) names += "\r\n" + base::fileName(path);
  }
  return names;
}

void frmsite::Cplan_Click() {
  if (running_) return;
  if (base::trimSpaces(Tfolder.text()).empty()) {
    app::messageBox(bench_.platform(), "ჯერ აირჩიეთ საიტის საქაღალდე ან პროექტი.", caption());
    return;
  }
  const std::string unsaved = unsavedInSite();
  if (!unsaved.empty()) {
    app::messageBox(bench_.platform(),
                    "ამ გახსნილ დოკუმენტებს შეუნახავი ცვლილებები აქვს:" + unsaved +
                        "\r\n\r\nშემოწმდება ფაილები, როგორიც დისკზეა.",
                    caption());
  }
  std::vector<std::size_t> bad;
  fonts_ = convert::fontsOfUser(bench_.platform(), bad);
  isPlanned_ = false;
  rows_.clear();
  showRows();
  planned_ = DryRun();
  report_ = std::make_unique<Report>();
  folder_ = siteFolder();
  const Options options = wanted();
  const bool whole = run(
      [&](Observer& observer) { plan(options, nullptr, observer); },
      [this](FileResult& result) {
        planned_.add(result);
        report_->add(result);
        if (result.kind == FileKind::Other && result.note == Note::None) return;
        rows_.push_back({std::move(result.file), result.form, result.confidence, result.changeCount,
                         result.uncertainCount, result.note, Done::Nothing, result.changes, result.changes});
      });
  isPlanned_ = whole;
  shown_ = kRowsAtFirst;
  sortRows();
  showRows();
  showButtons();
  if (!rows_.empty()) LV.setFocus();
}

void frmsite::Capply_Click() {
  if (running_ || !isPlanned_) return;
  ApplyOptions how;
  const std::string target = trimmed(std::string(base::trimSpaces(Ttarget.text())));
  (inPlace() ? how.backup : how.out) = target;
  if (target.empty()) {
    app::messageBox(bench_.platform(), Ttarget.hint.bytes + ": ჯერ აირჩიეთ.", caption());
    return;
  }
  const auto ticked = static_cast<std::size_t>(
      std::ranges::count_if(rows_, [](const Row& row) { return row.changes && row.ticked; }));
  std::string question = "გადაიყვანება " + number(ticked) + " ფაილი.\r\n";
  question += inPlace() ? "ძველი ფაილები შეინახება აქ და ნებისმიერ დროს აღდგება:\r\n"
                        : "საიტი არ შეიცვლება; მთელი საიტი, გადაყვანილი, ჩაიწერება აქ:\r\n";
  question += target;
  const std::string unsaved = inPlace() ? unsavedInSite() : std::string();
  if (!unsaved.empty()) {
    question +=
        "\r\n\r\nამ გახსნილ დოკუმენტებს შეუნახავი ცვლილებები აქვს; შეიცვლება ფაილი დისკზე, თქვენი "
        "ტექსტი კი ისეთივე დარჩება:" +
        unsaved;
  }
  const std::string answer = app::messageBox(
      bench_.platform(), question + "\r\n\r\nგადავიყვანოთ?", caption(), app::frmBOXa::Kind::YesNo,
      unsaved.empty() ? ui::IconBox::Sign::Question : ui::IconBox::Sign::Warning);
  if (answer != app::kAnswerYes) return;
  for (const Row& row : rows_) planned_.tick(row.file, row.ticked || !row.changes);
  const Options options = wanted();
  std::vector<Row> done;
  // What failed has done a part all the same, and that must be seen.
  const bool good = ui::atGate([&] {
    run([&](Observer& observer) { apply(options, how, &planned_, observer); },
        [&](FileResult& result) {
          if (result.done == Done::Nothing && result.note == Note::None) return;
          if (result.changes) report_->add(result);
          if (result.kind == FileKind::Other && !isFault(result.note)) return;
          done.push_back({std::move(result.file), result.form, result.confidence, result.changeCount,
                          result.uncertainCount, result.note, result.done, result.changes, false});
        });
  });
  takeDone(std::move(done));
  if (good && !stop_) isPlanned_ = false;
  showButtons();
}

// What a run has done with files that the list may have already.
void frmsite::takeDone(std::vector<Row> done) {
  std::unordered_map<std::string_view, std::size_t> known;
  for (std::size_t i = 0; i < rows_.size(); ++i) known.emplace(rows_[i].file, i);
  std::vector<Row> fresh;
  for (Row& row : done) {
    const auto at = known.find(row.file);
    if (at == known.end()) {
      fresh.push_back(std::move(row));
    } else {
      rows_[at->second].done = row.done;
      rows_[at->second].note = row.note;
    }
  }
  std::ranges::move(fresh, std::back_inserter(rows_));
  sortRows();
  showRows();
}

void frmsite::Creport_Click() {
  if (running_ || !report_) return;
  const std::string path = base::joinPath(base::tempFolder(), reportName(folder_));
  run(
      [&](Observer&) {
        base::removeFile(path);
        std::FILE* const file = base::disk::open(path, base::disk::Mode::Create);
        if (file == nullptr) base::throwFileError(errno, path);
        int code = 0;
        report_->write([&](std::string_view bytes) {
          if (code == 0) code = base::disk::write(file, bytes);
        });
        if (std::fclose(file) != 0 && code == 0) code = errno != 0 ? errno : EIO;
        if (code != 0) base::throwFileError(code, path);
      },
      [](FileResult&) {});
  bench_.platform().browse(path);
}

void frmsite::Crestore_Click() {
  if (running_) return;
  std::string backup = inPlace() ? trimmed(std::string(base::trimSpaces(Ttarget.text()))) : std::string();
  Journals known;
  if (!backup.empty() && base::folderExists(backup)) known = readJournals(backup);
  if (known.folder.empty()) {
    const auto chosen = bench_.platform().pickFolder("საქაღალდე, სადაც ძველი ფაილები შეინახა");
    if (!chosen) return;
    backup = *chosen;
    known = readJournals(backup);
  }
  if (!known.folder.empty()) {
    const std::string answer =
        app::messageBox(bench_.platform(),
                        "აღდგება " + number(known.files.size()) + " ფაილი, როგორიც გადაყვანამდე იყო:\r\n" +
                            known.folder + "\r\n\r\nაღვადგინოთ?",
                        caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question);
    if (answer != app::kAnswerYes) return;
  }
  // Of rows of another site nothing would be true any more.
  if (!base::sameFile(known.folder, folder_) && !base::samePath(known.folder, folder_)) {
    rows_.clear();
    report_.reset();
    folder_ = known.folder;
  }
  isPlanned_ = false;
  restoreFrom(backup, false);
  std::string others;
  std::size_t count = 0;
  for (const Row& row : rows_) {
    if (row.note != Note::Changed && row.note != Note::NotFound) continue;
    if (++count <= kMostNamed) others += "\r\n" + row.file;
  }
  if (count == 0 || stop_) return;
  if (count > kMostNamed) others += "\r\n...";
  const std::string answer = app::messageBox(
      bench_.platform(),
      "ეს ფაილები (" + number(count) + ") გადაყვანის შემდეგ შეიცვალა ან წაიშალა და არ აღდგენილა:" + others +
          "\r\n\r\nმათზეც ძველი ჩავწეროთ? ახლანდელი ტექსტი დაიკარგება.",
      caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning);
  if (answer == app::kAnswerYes) restoreFrom(backup, true);
}

void frmsite::restoreFrom(const std::string& backup, bool overwrite) {
  RestoreOptions options;
  options.backup = backup;
  options.overwrite = overwrite;
  options.threads = wanted().threads;
  std::vector<Row> done;
  ui::atGate([&] {
    run([&](Observer& observer) { restore(options, observer); },
        [&](FileResult& result) {
          done.push_back({std::move(result.file), result.form, result.confidence, 0, 0, result.note,
                          result.done, false, false});
        });
  });
  shown_ = std::max(shown_, kRowsAtFirst);
  takeDone(std::move(done));
  showButtons();
}

}  // namespace site
