#include "project/frmpublish.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "project/frmremote.h"
#include "project/publish_texts.h"
#include "publish/host_file.h"

namespace project {
namespace {

using publish::Change;

constexpr std::size_t kMostLog = std::size_t{32} * 1024;  // bytes that are shown of it
constexpr std::chrono::milliseconds kLook{300};           // list and log are shown anew no more often

std::string number(std::int64_t value) {
  return std::to_string(value);
}

std::string timeText(std::int64_t seconds) {
  return seconds < 60 ? number(seconds) + " წმ"
                      : number(seconds / 60) + " წთ " + number(seconds % 60) + " წმ";
}

}  // namespace

frmpublish::frmpublish(app::Workbench& bench, publish::MakeTransport connect)
    : ServerForm("frmpublish", IDD_frmpublish, bench), connect_(std::move(connect)) {
  stopButton_ = &Cstop;
  stayOpen_ = {&Tlog, &CEXIT};
  setCaption("საიტის გამოქვეყნება");
  Laccount.setCaption("&ანგარიში:");
  CBaccount.hint = "FTP.ini-ს ანგარიშები";
  Laddress.setCaption("&მისამართი:");
  Taddress.hint = "sftp://სერვერი/საქაღალდე, ftps://... ან ftp://...";
  Luser.setCaption("მომ&ხმარებელი:");
  Lpassword.setCaption("პა&როლი:");
  Tpassword.hint = "ცარიელი: საჭიროებისას გკითხავთ";
  Tpassword.setMasked(true);
  CKkeep.setCaption("პაროლის დამახსოვრე&ბა");
  CKkeep.hint = "ინახავს Windows, თქვენი ანგარიშისთვის დაშიფრულს";
  Lkey.setCaption("&გასაღები:");
  Tkey.hint = "SSH-ის პირადი გასაღების ფაილი (OpenSSH); ცარიელი: პაროლით";
  Ckey.setCaption("...");
  Ckey.hint = "გასაღების ფაილის არჩევა";
  Lfolder.setCaption("&საქაღალდე:");
  Tfolder.hint = "ამ კომპიუტერის საქაღალდე, რომელიც გამოქვეყნდება";
  Cfolder.setCaption("...");
  Cfolder.hint = "საქაღალდის არჩევა";
  Ccompare.setCaption("შე&დარება");
  Cstop.setCaption("შეჩ&ერება");
  LV.hint = "რა განსხვავდება სერვერისგან";
  LV.stretches = LV.checkBoxes = true;
  LV.columns = {{"ფაილი", 190}, {"ცვლილება", 80}, {"ზომა", 50}, {"მდგომარეობა", 110}};
  CKall.setCaption("ყველას მო&ნიშვნა");
  Tlog.hint = "ჟურნალი";
  Cupload.setCaption("გაგ&ზავნა...");
  Clog.setCaption("ჟურნალის შენახ&ვა...");
  Cremote.setCaption("სერვერის &ფაილები...");
  CEXIT.setCaption("დახურვა");
  defaultButton = &Ccompare;
  cancelButton = &CEXIT;

  CBaccount.selectionChanged.connect([this] { CBaccount_Click(); });
  CKkeep.changed.connect([this] { CKkeep_Changed(); });
  Taddress.changed.connect([this] { Taddress_Changed(); });
  Tuser.changed.connect([this] { whoChanged(); });
  for (ui::TextBox* box : {&Tpassword, &Tkey, &Tfolder}) {
    box->changed.connect([this] { accountChanged(); });
  }
  Ckey.clicked.connect([this] { Ckey_Click(); });
  Cfolder.clicked.connect([this] { Cfolder_Click(); });
  Ccompare.clicked.connect([this] { Ccompare_Click(); });
  Cstop.clicked.connect([this] { stop(); });
  LV.rowChecked.connect([this](int row) { LV_Checked(row); });
  CKall.changed.connect([this] { CKall_Changed(); });
  Cupload.clicked.connect([this] { Cupload_Click(); });
  Clog.clicked.connect([this] { Clog_Click(); });
  Cremote.clicked.connect([this] { Cremote_Click(); });
  CEXIT.clicked.connect([this] {
    if (queryClose()) close();
  });
  showButtons();
}

void frmpublish::load() {
  const std::string path = base::joinPath(bench_.platform().programFolder(), "FTP.ini");
  lines_.clear();
  // What is damaged in it says the window of the accounts.
  ui::atGate([&] {
    if (base::fileExists(path)) lines_ = parseAccounts(base::readFile(path)).lines;
  });
  std::vector<ui::Text> names;
  for (const std::string& line : lines_) names.emplace_back(accountFields(line)[0]);
  CBaccount.setItems(std::move(names));
  if (Tfolder.text().empty()) {
    const app::ColectionMain& documents = bench_.documents();
    const std::string shown = bench_.shownPath();
    Tfolder.setText(documents.WEBopened ? documents.WEBpath : shown.empty() ? "" : base::folderOf(shown));
  }
  Taddress_Changed();
}

void frmpublish::CBaccount_Click() {
  const auto at = static_cast<std::size_t>(std::max(CBaccount.selected(), 0));
  if (CBaccount.selected() < 0 || at >= lines_.size()) return;
  const FtpFields fields = accountFields(lines_[at]);
  publish::AddressFault fault{};
  auto address = publish::parseAddress(fields[1], fault);
  if (address) {
    if (address->folder.empty() || address->folder == "/") {
      if (!fields[4].empty()) address->folder = fields[4];
    }
    address->user.clear();
    Taddress.setText(publish::addressText(*address));
  } else {
    Taddress.setText(fields[1]);
  }
  Tuser.setText(fields[2]);
  Tpassword.setText(fields[3]);
  Tkey.setText("");
  Taddress_Changed();
}

void frmpublish::Taddress_Changed() {
  publish::AddressFault fault{};
  const auto address = publish::parseAddress(base::trimSpaces(Taddress.text()), fault);
  const bool open = address && address->scheme == publish::Scheme::Ftp;
  Lnote.setCaption(open ? "ჩვეულებრივ FTP-ში პაროლი და ფაილები დაუშიფრავად იგზავნება." : "");
  whoChanged();
}

void frmpublish::whoChanged() {
  ui::Secrets* const store = bench_.platform().secrets();
  CKkeep.setChecked(store != nullptr && store->read(secretName()).has_value());
  accountChanged();
}

std::string frmpublish::secretName() const {
  publish::AddressFault fault{};
  auto address = publish::parseAddress(base::trimSpaces(Taddress.text()), fault);
  if (!address) return "";
  if (!Tuser.text().empty()) address->user = Tuser.text();
  address->folder.clear();
  return publish::addressText(*address);
}

void frmpublish::CKkeep_Changed() {
  ui::Secrets* const store = bench_.platform().secrets();
  if (!CKkeep.checked() && store != nullptr) store->forget(secretName());
}

void frmpublish::keepPassword(const std::optional<std::string>& typed) {
  ui::Secrets* const store = bench_.platform().secrets();
  const std::string secret = typed.value_or(Tpassword.text());
  if (!CKkeep.checked() || store == nullptr || secret.empty()) return;
  ui::atGate([&] { store->keep(secretName(), Tuser.text(), secret); });
}

void frmpublish::accountChanged() {
  compared_ = false;
  showButtons();
}

void frmpublish::Ckey_Click() {
  ui::FileDialog dialog;
  dialog.title = "პირადი გასაღები";
  dialog.filter = "All Files(*.*)|*.*";
  dialog.kind = "key";
  const auto chosen = bench_.platform().openFiles(dialog);
  if (!chosen.empty()) Tkey.userSet(chosen[0]);
}

void frmpublish::Cfolder_Click() {
  if (const auto folder = bench_.platform().pickFolder("რა გამოქვეყნდეს")) Tfolder.userSet(*folder);
}

bool frmpublish::readAccount(publish::Account& account) {
  publish::AddressFault fault{};
  const auto address = publish::parseAddress(base::trimSpaces(Taddress.text()), fault);
  std::string missing;
  if (!address) {
    missing = textOf(fault);
  } else if (!base::folderExists(Tfolder.text())) {
    missing = "ასეთი საქაღალდე არ არის: " + Tfolder.text();
  } else if (address->scheme == publish::Scheme::Sftp && address->user.empty() && Tuser.text().empty()) {
    missing = "ჩაწერეთ მომხმარებლის სახელი.";
  }
  if (!missing.empty()) {
    app::messageBox(bench_.platform(), missing, caption());
    return false;
  }
  account.address = *address;
  account.login.user = Tuser.text();
  if (!Tpassword.text().empty()) account.login.password = Tpassword.text();
  account.login.keyFile = Tkey.text();
  ui::Secrets* const store = bench_.platform().secrets();
  // Who names a key wants to come in with that.
  if (Tpassword.text().empty() && account.login.keyFile.empty() && CKkeep.checked() && store != nullptr) {
    account.login.password = store->read(secretName());
  }
  account.knownHosts = publish::usualHostFile();
  return true;
}

std::string frmpublish::unsavedInFolder(const std::string& folder) {
  app::Session& session = bench_.session();
  std::string names;
  for (const std::int16_t index : session.unsaved()) {
    const std::string path = session.path(index);
    const bool inside = base::upperAscii(path).starts_with(base::upperAscii(folder));
    if (!path.empty() && inside) names += "\r\n" + base::fileName(path);
  }
  return names;
}

void frmpublish::ended(const std::string& why) {
  if (!why.empty()) {
    appendLog(why);
    Lprogress.setCaption(why);
  }
  showLog();
  Bar.setValue(0);
  showRows();
  showButtons();
  (compared_ ? Cupload : Ccompare).setFocus();
}

void frmpublish::take(const PublishWork::News& news) {
  for (const std::string& line : news.lines) appendLog(line);
  for (const PublishWork::Event& event : news.events) takeEvent(event);
  if (news.again) appendLog(textOf(*news.again) + "; კიდევ ვცდით");
  rowsChanged_ |= !news.events.empty();
  const auto now = std::chrono::steady_clock::now();
  if (news.ended || now - looked_ > kLook) {
    looked_ = now;
    if (std::exchange(rowsChanged_, false)) showRows();
    showLog();
  }
  showProgress(news.progress);
}

void frmpublish::showProgress(const publish::Progress& now) {
  if (stopping()) Lprogress.setCaption("ჩერდება...");
  if (stopping() || now.files == 0) return;
  std::string text = number(now.filesDone) + " / " + number(now.files) + "   " + sizeText(now.bytesDone) +
                     " / " + sizeText(now.bytes);
  if (now.rate > 0) text += "   " + sizeText(now.rate) + "/წმ";
  if (now.secondsLeft >= 0) text += "   დარჩა " + timeText(now.secondsLeft);
  if (!now.path.empty()) text += "   " + now.path;
  Lprogress.setCaption(text);
  Bar.setValue(now.bytes == 0 ? 0 : static_cast<int>(now.bytesDone * ui::ProgressBar::kMost / now.bytes));
}

void frmpublish::takeEvent(const PublishWork::Event& event) {
  const auto row = std::ranges::find_if(rows_, [&](const Row& one) { return one.item.path == event.path; });
  if (event.failure) appendLog(event.path + ": " + textOf(*event.failure));
  if (row == rows_.end()) return;
  row->done = !event.failure;
  row->state = event.failure ? textOf(*event.failure) : event.removed ? "წაშლილია" : "გაგზავნილია";
}

void frmpublish::Ccompare_Click() {
  publish::Account account;
  if (running() || !readAccount(account)) return;
  const std::string folder = Tfolder.text();
  const std::string unsaved = unsavedInFolder(folder);
  if (!unsaved.empty()) {
    app::messageBox(bench_.platform(),
                    "ამ გახსნილ დოკუმენტებს შეუნახავი ცვლილებები აქვს:" + unsaved +
                        "\r\n\r\nგაიგზავნება ფაილები, როგორიც დისკზეა.",
                    caption());
  }
  rows_.clear();
  same_ = 0;
  compared_ = false;
  showRows();
  Lprogress.setCaption("ვადარებთ სერვერს...");
  std::vector<publish::Item> items;
  compared_ = run([&, account = std::move(account)]() mutable {
    const std::string state = publish::stateFile(folder, account.address);
    publisher_.reset();
    publisher_ = std::make_unique<publish::Publisher>(std::move(account), connect_, state, work_);
    items = publisher_->compare(publish::localFiles(folder));
  });
  if (!compared_) return;
  keepPassword(typedPassword());
  for (publish::Item& item : items) {
    if (item.change == Change::Same) {
      ++same_;
      continue;
    }
    const bool ticked = item.change == Change::New || item.change == Change::Changed;
    rows_.push_back({std::move(item), ticked, false, {}});
  }
  // What nobody can do without a look comes first.
  std::ranges::stable_sort(rows_, {}, [](const Row& row) {
    return row.item.change == Change::Conflict ? 0 : row.item.change == Change::Gone ? 2 : 1;
  });
  Lprogress.setCaption("");
  showRows();
  showButtons();
  (rows_.empty() ? static_cast<ui::Control&>(Ccompare) : LV).setFocus();
}

void frmpublish::Cupload_Click() {
  if (running() || !compared_) return;
  std::vector<publish::Item> chosen;
  std::size_t removed = 0;
  std::size_t conflicts = 0;
  for (const Row& row : rows_) {
    if (!row.ticked || row.done) continue;
    chosen.push_back(row.item);
    removed += row.item.here ? 0U : 1U;
    conflicts += row.item.change == Change::Conflict ? 1U : 0U;
  }
  if (chosen.empty()) return;
  std::string question = "გაიგზავნება " + std::to_string(chosen.size() - removed) + " ფაილი:\r\n" +
                         std::string(base::trimSpaces(Taddress.text()));
  if (removed > 0) question += "\r\n\r\nსერვერიდან წაიშლება " + std::to_string(removed) + " ფაილი.";
  if (conflicts > 0) {
    question += "\r\n\r\nსერვერის " + std::to_string(conflicts) +
                " ფაილი სხვამ შეცვალა ან თქვენ არ გამოგიქვეყნებიათ; მათ თქვენი ფაილი შეცვლის.";
  }
  const std::string answer = app::messageBox(
      bench_.platform(), question + "\r\n\r\nგავაგრძელოთ?", caption(), app::frmBOXa::Kind::YesNo,
      removed + conflicts > 0 ? ui::IconBox::Sign::Warning : ui::IconBox::Sign::Question);
  if (answer != app::kAnswerYes) return;
  publish::Outcome outcome;
  if (!run([&] { outcome = publisher_->run(chosen); })) return;
  std::string text = "გაიგზავნა: " + std::to_string(outcome.sent);
  if (outcome.removed > 0) text += "   წაიშალა: " + std::to_string(outcome.removed);
  if (outcome.failed > 0) text += "   ვერ მოხერხდა: " + std::to_string(outcome.failed);
  Lprogress.setCaption(text);
  appendLog(text);
  showLog();
}

void frmpublish::Clog_Click() {
  ui::FileDialog dialog;
  dialog.title = "ჟურნალის შენახვა";
  dialog.filter = "*.txt|*.txt";
  dialog.kind = "log";
  if (const auto path = bench_.platform().saveFile(dialog)) base::writeFile(*path, log_);
}

void frmpublish::Cremote_Click() {
  publish::Account account;
  if (running() || !readAccount(account)) return;
  // Both keep what was sent in one file.
  publisher_.reset();
  accountChanged();
  FetchedFiles& fetched = fetched_[Tfolder.text() + "\n" + publish::addressText(account.address)];
  frmremote form(bench_, std::move(account), connect_, Tfolder.text(), fetched);
  bench_.platform().showModal(form);
  keepPassword(form.typedPassword());
  wanted_ = form.wanted();
  if (!wanted_.empty()) close();
}

void frmpublish::appendLog(const std::string& line) {
  log_ += line + std::string(base::kCrLf);
  logChanged_ = true;
}

void frmpublish::showLog() {
  if (!std::exchange(logChanged_, false)) return;
  std::string_view shown = log_;
  if (shown.size() > kMostLog) shown = shown.substr(shown.find('\n', shown.size() - kMostLog) + 1);
  Tlog.setText(std::string(shown));
  Tlog.select(static_cast<int>(shown.size()), 0);
}

void frmpublish::LV_Checked(int row) {
  const auto at = static_cast<std::size_t>(row);
  if (row < 0 || at >= rows_.size()) return;
  rows_[at].ticked = LV.items()[at].checked;
  showButtons();
}

void frmpublish::CKall_Changed() {
  for (Row& row : rows_) row.ticked = CKall.checked();
  showRows();
  showButtons();
}

ui::ListView::Item frmpublish::itemOf(const Row& row) const {
  ui::ListView::Item item;
  item.text = row.item.path;
  item.subItems = {textOf(row.item.change),
                   sizeText(row.item.here ? row.item.local.size : row.item.remote.size), row.state};
  item.boxed = !row.done;
  item.checked = row.ticked && !row.done;
  return item;
}

void frmpublish::showRows() {
  std::vector<ui::ListView::Item> items;
  items.reserve(rows_.size());
  for (const Row& row : rows_) items.push_back(itemOf(row));
  LV.setItems(std::move(items));
}

void frmpublish::showButtons() {
  if (running()) return;
  std::size_t ticked = 0;
  std::int64_t bytes = 0;
  for (const Row& row : rows_) {
    if (!row.ticked || row.done) continue;
    ++ticked;
    bytes += row.item.here ? row.item.local.size : 0;
  }
  std::string text;
  if (compared_) {
    text = "განსხვავდება: " + std::to_string(rows_.size()) + "   იგივეა: " + std::to_string(same_) +
           "   მონიშნულია: " + std::to_string(ticked) + " (" + sizeText(bytes) + ")";
  }
  Lsum.setCaption(text);
  CKall.setChecked(!rows_.empty() && ticked == rows_.size());
  CKall.setEnabled(!rows_.empty());
  Cstop.setEnabled(false);
  Cupload.setEnabled(compared_ && ticked > 0);
  Clog.setEnabled(!log_.empty());
}

}  // namespace project
