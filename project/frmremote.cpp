#include "project/frmremote.h"

#include <algorithm>
#include <utility>

#include "app/mdlsaerto.h"
#include "base/disk.h"
#include "base/files.h"
#include "base/local_time.h"
#include "base/path.h"
#include "base/text.h"
#include "project/publish_texts.h"

namespace project {

frmremote::frmremote(app::Workbench& bench, publish::Account account, const publish::MakeTransport& connect,
                     std::string folder, FetchedFiles& fetched)
    : ServerForm("frmremote", IDD_frmremote, bench),
      folder_(std::move(folder)),
      address_(publish::addressText(account.address)),
      fetched_(fetched) {
  const std::string state = publish::stateFile(folder_, account.address);
  publisher_ = std::make_unique<publish::Publisher>(std::move(account), connect, state, work_);
  stopButton_ = &Cstop;
  stayOpen_ = {&CEXIT};
  setCaption("სერვერის ფაილები");
  LV.hint = "რა არის სერვერის ამ საქაღალდეში";
  LV.stretches = LV.enterOpens = true;
  LV.columns = {{"სახელი", 120}, {"ზომა", 48}, {"შეიცვალა", 74}, {"აქ", 60}};
  Copen.setCaption("&გახსნა");
  Copen.hint = "საქაღალდე, ან ფაილი რედაქტორში";
  Cup.setCaption("&ზემოთ");
  Crefresh.setCaption("გა&ნახლება");
  Cdownload.setCaption("ჩამო&ტვირთვა");
  Cdownload.hint = "ამ კომპიუტერის იმავე ადგილას, ქვესაქაღალდეებიანად";
  Csend.setCaption("&უკან გაგზავნა");
  Csend.hint = "ჩამოტვირთული ფაილი, რომელიც აქ შეცვალეთ";
  Cmake.setCaption("ახალი &საქაღალდე...");
  Crename.setCaption("გადა&რქმევა...");
  Cdelete.setCaption("&წაშლა...");
  Cstop.setCaption("შეჩ&ერება");
  CEXIT.setCaption("დახურვა");
  defaultButton = &Copen;
  cancelButton = &CEXIT;

  LV.selectionChanged.connect([this] { showButtons(); });
  LV.doubleClicked.connect([this] { Copen_Click(); });
  Copen.clicked.connect([this] { Copen_Click(); });
  Cup.clicked.connect([this] { Cup_Click(); });
  Crefresh.clicked.connect([this] { list(place_); });
  Cdownload.clicked.connect([this] { Cdownload_Click(); });
  Csend.clicked.connect([this] { Csend_Click(); });
  Cmake.clicked.connect([this] { Cmake_Click(); });
  Crename.clicked.connect([this] { Crename_Click(); });
  Cdelete.clicked.connect([this] { Cdelete_Click(); });
  Cstop.clicked.connect([this] { stop(); });
  CEXIT.clicked.connect([this] {
    if (queryClose()) close();
  });
  Lplace.setCaption(address_);
  showButtons();
}

void frmremote::shown() {
  list("");
}

bool frmremote::keyPressed(const ui::Shortcut& key) {
  const struct {
    ui::Shortcut key;
    ui::Button& button;
  } kKeys[] = {{{ui::kKeyF1 + 4}, Crefresh}, {{ui::kKeyF1 + 1}, Crename}, {{ui::kKeyDelete}, Cdelete}};
  for (const auto& [pressed, button] : kKeys) {
    if (key == pressed && button.enabled()) {
      button.click();
      return true;
    }
  }
  return false;
}

const publish::Entry* frmremote::chosen() const {
  const auto at = static_cast<std::size_t>(std::max(LV.selected(), 0));
  return LV.selected() < 0 || at >= entries_.size() ? nullptr : &entries_[at];
}

const publish::Entry* frmremote::named(const std::string& name) const {
  const auto at = std::ranges::find(entries_, name, &publish::Entry::name);
  return at == entries_.end() ? nullptr : &*at;
}

std::string frmremote::pathOf(const std::string& name) const {
  return publish::joinRemote(place_, name);
}

std::string frmremote::localPath(const std::string& path) const {
  std::string below = path;
  std::ranges::replace(below, '/', '\\');
  return base::joinPath(folder_, below);
}

bool frmremote::list(const std::string& folder) {
  std::vector<publish::Entry> entries;
  Lprogress.setCaption("ვკითხულობთ სიას...");
  if (!run([&] { entries = publisher_->list(folder); })) return false;
  std::ranges::sort(entries, {},
                    [](const publish::Entry& entry) { return std::pair(!entry.folder, entry.name); });
  const std::string before = folder == place_ && chosen() != nullptr ? chosen()->name : "";
  place_ = folder;
  entries_ = std::move(entries);
  Lplace.setCaption(address_ + (place_.empty() ? "" : "/" + place_));
  showRows();
  const publish::Entry* const again = named(before);
  if (!entries_.empty()) LV.setSelected(again == nullptr ? 0 : static_cast<int>(again - entries_.data()));
  showButtons();
  LV.setFocus();
  return true;
}

bool frmremote::changedHere(const publish::Item& item) const {
  const base::disk::Look now = base::disk::look(item.local.source);
  return now.kind == base::disk::Kind::File &&
         (static_cast<std::int64_t>(now.size) != item.local.size || now.changed != item.local.time);
}

std::string frmremote::stateOf(const std::string& path) const {
  const auto at = fetched_.find(path);
  if (at == fetched_.end()) return "";
  return changedHere(at->second) ? "აქ შეცვლილია" : "ჩამოტვირთულია";
}

void frmremote::showRows() {
  std::vector<ui::ListView::Item> items;
  items.reserve(entries_.size());
  for (const publish::Entry& entry : entries_) {
    ui::ListView::Item item;
    item.text = entry.name;
    item.subItems = {entry.folder ? "საქაღალდე" : sizeText(entry.size),
                     entry.time < 0 ? "" : base::localTime(entry.time), stateOf(pathOf(entry.name))};
    items.push_back(std::move(item));
  }
  const int selected = LV.selected();
  LV.setItems(std::move(items));
  if (selected < static_cast<int>(entries_.size())) LV.setSelected(selected);
}

void frmremote::showButtons() {
  if (running()) return;
  const publish::Entry* const entry = chosen();
  const bool file = entry != nullptr && !entry->folder;
  Copen.setEnabled(entry != nullptr);
  Cup.setEnabled(!place_.empty());
  Cdownload.setEnabled(file);
  const auto fetched = file ? fetched_.find(pathOf(entry->name)) : fetched_.end();
  Csend.setEnabled(fetched != fetched_.end() && changedHere(fetched->second));
  Crename.setEnabled(entry != nullptr);
  Cdelete.setEnabled(entry != nullptr);
  Cstop.setEnabled(false);
}

void frmremote::take(const PublishWork::News& news) {
  for (const PublishWork::Event& event : news.events) failure_ = event.failure;
  if (stopping()) Lprogress.setCaption("ჩერდება...");
  if (news.again) Lprogress.setCaption(textOf(*news.again) + "; კიდევ ვცდით");
}

void frmremote::ended(const std::string& why) {
  Lprogress.setCaption(why);
  showRows();
  showButtons();
  LV.setFocus();
}

bool frmremote::change(const std::string& doing, const std::function<void()>& task) {
  Lprogress.setCaption(doing);
  return run(task) && list(place_);
}

bool frmremote::isUnsaved(const std::string& file) {
  app::Session& session = bench_.session();
  return std::ranges::any_of(session.unsaved(),
                             [&](std::int16_t index) { return base::samePath(session.path(index), file); });
}

bool frmremote::fetch(const std::string& path) {
  const std::string target = localPath(path);
  if (!publish::isLocalPath(path)) {
    tell("ასეთი სახელის ფაილს Windows ვერ შექმნის: " + path);
    return false;
  }
  if (isUnsaved(target)) {
    tell("ეს დოკუმენტი გახსნილია და შეუნახავი ცვლილებები აქვს:\r\n" + target);
    return false;
  }
  if (base::fileExists(target)) {
    const std::string answer =
        app::messageBox(bench_.platform(),
                        "ეს ფაილი ამ კომპიუტერზე უკვე არის:\r\n" + target +
                            "\r\n\r\nშევცვალოთ სერვერის ფაილით? თუ არა, აქაური დარჩება.",
                        caption(), app::frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Warning);
    if (answer == app::kAnswerCancel) return false;
    if (answer != app::kAnswerYes) return true;
  }
  Lprogress.setCaption("ჩამოიტვირთება: " + path);
  publish::Item item;
  if (!run([&] {
        for (std::size_t end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1)) {
          base::makeFolder(localPath(path.substr(0, end)));
        }
        item = publisher_->download(path, target);
      })) {
    return false;
  }
  fetched_[path] = std::move(item);
  showRows();
  showButtons();
  return true;
}

void frmremote::Copen_Click() {
  const publish::Entry* const entry = chosen();
  if (running() || entry == nullptr) return;
  const std::string path = pathOf(entry->name);
  if (entry->folder) {
    list(path);
    return;
  }
  if (!fetch(path)) return;
  wanted_ = localPath(path);
  close();
}

void frmremote::Cup_Click() {
  if (!running() && !place_.empty()) list(publish::remoteFolderOf(place_));
}

void frmremote::Cdownload_Click() {
  const publish::Entry* const entry = chosen();
  if (!running() && entry != nullptr) fetch(pathOf(entry->name));
}

bool frmremote::sendOnce(const publish::Item& item) {
  failure_.reset();
  Lprogress.setCaption("იგზავნება: " + item.path);
  return run([&] { publisher_->run({item}); });
}

void frmremote::Csend_Click() {
  const publish::Entry* const entry = chosen();
  if (running() || entry == nullptr) return;
  const std::string name = entry->name;
  const auto fetched = fetched_.find(pathOf(name));
  if (fetched == fetched_.end()) return;
  publish::Item item = fetched->second;
  if (isUnsaved(item.local.source)) return tell("ჯერ შეინახეთ დოკუმენტი:\r\n" + item.local.source);
  const base::disk::Look now = base::disk::look(item.local.source);
  item.local.size = static_cast<std::int64_t>(now.size);
  item.local.time = now.changed;
  item.digest.clear();
  if (!sendOnce(item)) return;
  if (failure_ && failure_->fault() == publish::Fault::ChangedMeanwhile) {
    const std::string answer =
        app::messageBox(bench_.platform(),
                        "სერვერის ფაილი ჩამოტვირთვის შემდეგ ვიღაცამ შეცვალა:\r\n" + item.path +
                            "\r\n\r\nმაინც შევცვალოთ თქვენი ფაილით?",
                        caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning);
    if (answer != app::kAnswerYes || !list(place_)) return;
    const publish::Entry* const theirs = named(name);
    item.there = theirs != nullptr;
    if (theirs != nullptr) item.remote = *theirs;
    if (!sendOnce(item)) return;
  }
  if (failure_) return tell(textOf(*failure_));
  if (!list(place_)) return;
  if (const publish::Entry* const sent = named(name)) item.remote = *sent;
  fetched->second = std::move(item);
  showRows();
  showButtons();
  Lprogress.setCaption("გაგზავნილია: " + name);
}

std::optional<std::string> frmremote::askName(const std::string& prompt, const std::string& first) {
  const std::optional<std::string> typed = app::inputBox(bench_.platform(), prompt, caption(), first);
  if (!typed || *typed == first) return std::nullopt;
  const std::string name(base::trimSpaces(*typed));
  std::string wrong;
  if (name.empty() || name == "." || name == ".." || name.find('/') != std::string::npos) {
    wrong = "ასეთი სახელი არ შეიძლება: " + name;
  } else if (named(name) != nullptr) {
    wrong = "ასეთი სახელი უკვე არის: " + name;
  }
  if (wrong.empty()) return name;
  tell(wrong);
  return std::nullopt;
}

void frmremote::Cmake_Click() {
  const auto name = askName("ახალი საქაღალდის სახელი:", "");
  if (name) change("იქმნება: " + *name, [&] { publisher_->makeFolder(pathOf(*name)); });
}

void frmremote::Crename_Click() {
  const publish::Entry* const entry = chosen();
  if (running() || entry == nullptr) return;
  const std::string from = pathOf(entry->name);
  const auto name = askName("ახალი სახელი:", entry->name);
  if (!name) return;
  if (change("სახელი იცვლება: " + *name, [&] { publisher_->rename(from, pathOf(*name)); }))
    fetched_.erase(from);
}

void frmremote::Cdelete_Click() {
  const publish::Entry* const entry = chosen();
  if (running() || entry == nullptr) return;
  const std::string path = pathOf(entry->name);
  const bool folder = entry->folder;
  const std::string answer = app::messageBox(
      bench_.platform(),
      (folder ? "სერვერიდან წაიშლება საქაღალდე, თუ ცარიელია:\r\n" : "სერვერიდან წაიშლება ფაილი:\r\n") + path +
          "\r\n\r\nამას ვეღარ დააბრუნებთ. გავაგრძელოთ?",
      caption(), app::frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning);
  if (answer != app::kAnswerYes) return;
  const bool gone =
      change("იშლება: " + path, [&] { folder ? publisher_->removeFolder(path) : publisher_->remove(path); });
  if (gone) fetched_.erase(path);
}

}  // namespace project
