#include "project/frmWEB.h"

#include <algorithm>
#include <string_view>

#include "app/mdlsaerto.h"
#include "app/progress.h"
#include "app/web_file.h"
#include "base/cp1252.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/scoped_flag.h"
#include "base/text.h"
#include "project/html_header.h"

namespace project {
namespace {

using ui::operator""_keyboard;

constexpr int kNoButton = 6;
constexpr int kNewPageIcon = 1;
constexpr std::size_t kMostFiles = 32000;  // records a list can hold, and more than anybody means to choose
constexpr ui::Shortcut kRename{ui::kKeyF1 + 1, false, false, false};

constexpr const char* kFilter =
    "All Files(*.*)|*.*|HTM-HTML|*.htm;*.html|CSS|*.CSS|Java Script|*.JS|VB Script|*.vbs|TXT|*.txt|INF|*.inf";

struct IconRow {
  int icon;
  std::vector<std::string_view> extensions;
};

const std::vector<IconRow>& iconRows() {
  static const std::vector<IconRow> rows = {
      {1, {"HTM", "HTML", "SHTMl", "STM"}},  // the mixed case never matches: .shtml has the common icon
      {2, {"JS", "VBS"}},
      {3, {"CSS"}},
      {4, {"ASP"}},
      {6, {"GIF", "JPG", "PNG", "WMF", "BMP", "DIB"}},
      {7, {"TXT", "INI", "INF"}},
      {8, {"XML"}},
      {9, {"MP3", "MID", "VMA", "RA", "RM", "WAV"}},
      {10, {"PHP", "PHP3"}}};
  return rows;
}

const std::array<ui::Text, 6>& infoTexts() {
  static const std::array<ui::Text, 6> texts = {
      "axali failis Seqmna"_keyboard, "arsebuli failis Setana"_keyboard, "failis siidan amoSla"_keyboard,
      "proeqtis misamarTi"_keyboard,  "proeqtis Seqmna"_keyboard,        "gamosvla"_keyboard};
  return texts;
}

}  // namespace

int fileIcon(const std::string& name) {
  const std::string extension = base::extensionOf(name);
  for (const IconRow& row : iconRows()) {
    if (std::find(row.extensions.begin(), row.extensions.end(), extension) != row.extensions.end())
      return row.icon;
  }
  return 5;
}

frmWEB::frmWEB(app::Workbench& bench) : Form("frmWEB", IDD_frmWEB), bench_(bench), infoButton_(kNoButton) {
  setCaption("New WEB");
  Lpname.setCaption("პროექტის &სახელი:");
  Lwebpath.setCaption("პროექტის საქაღალ&დე:");
  Label1.setCaption("პროექტის &ფაილები:");
  Tpname.hint = "პროექტის სახელი";
  Twebpath.hint = "პროექტის საქაღალდე";
  LV.hint = "პროექტის ფაილები";
  LV.stretches = true;
  using enum ui::FileIcon;
  LV.icons = {{1, Page},    {2, Script}, {3, Style}, {4, Server}, {5, Other},
              {6, Picture}, {7, Text},   {8, Xml},   {9, Sound},  {10, Php}};
  constexpr std::array<const char*, 6> kCaptions = {"&ახალი გვერდი", "&ჩასმა...", "&წაშლა",
                                                    "სა&ქაღალდე...", "შ&ექმნა",   "&გამოსვლა"};
  for (std::size_t i = 0; i < COK.size(); ++i) {
    COK[i] = std::make_unique<ui::Button>(*this, IDC_frmWEB_COK0 + static_cast<int>(i));
    COK[i]->setCaption(kCaptions[i]);
    COK[i]->hint = infoTexts()[i];
    COK[i]->pointed.connect([this, i](bool over) { showInfo(over ? static_cast<int>(i) : kNoButton); });
  }
  const auto action = [this](void (frmWEB::*run)()) {
    return [this, run] {
      if (!writing_) (this->*run)();
    };
  };
  COK[0]->clicked.connect(action(&frmWEB::addPage));
  COK[1]->clicked.connect(action(&frmWEB::addFiles));
  COK[2]->clicked.connect(action(&frmWEB::removeFile));
  COK[3]->clicked.connect(action(&frmWEB::chooseFolder));
  COK[4]->clicked.connect(action(&frmWEB::create));
  COK[5]->clicked.connect([this] {
    if (queryClose()) close();
  });
  defaultButton = COK[4].get();
  cancelButton = COK[5].get();

  Tpname.changed.connect([this] { Tpname_Change(); });
  Twebpath.changed.connect([this] { enableCreate(); });
  LV.labelEdited = [this](int row, std::string& text) { return LV_AfterLabelEdit(row, text); };
  LV.contextMenu.connect([this] {
    std::vector<ui::MenuItem> items(1);
    ui::MenuItem& remove = items[0];
    remove.caption = infoTexts()[2];
    remove.command = mnuLE;
    remove.enabled = LV.selected() >= 0;
    if (bench_.platform().popupMenu(items) == mnuLE) removeFile();
  });
  addItems({{"Index.HTML", ""}});
  LV.setSelected(0);
  enableCreate();
}

std::string frmWEB::HTMLheaderi(const std::string& title) const {
  return project::HTMLheaderi(base::storedName(title), bench_.props());
}

bool frmWEB::keyPressed(const ui::Shortcut& key) {
  if (LV.items().empty() || LV.selected() < 0) return false;
  if (key == kRename) {
    LV.editSelected();
    return true;
  }
  return false;
}

void frmWEB::showInfo(int button) {
  infoButton_ = button;
  LBinfo.setCaption(button == kNoButton ? ui::Text() : infoTexts()[static_cast<std::size_t>(button)]);
}

void frmWEB::addItems(const std::vector<NewItem>& added) {
  if (added.empty()) return;
  auto items = LV.items();
  for (const auto& [name, source] : added) {
    ui::ListView::Item item;
    item.text = name;
    item.tag = source;
    item.icon = source.empty() ? kNewPageIcon : fileIcon(name);
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  LV.setSelected(static_cast<int>(LV.items().size()) - 1);
  LV.setFocus();
}

// Its number is the count of files before it, also where an earlier page was removed and that name is taken.
void frmWEB::addPage() {
  const std::string name = "NewPage" + std::to_string(LV.items().size()) + ".HTML";
  const bool taken = isListed(name, -1);
  addItems({{name, ""}});
  if (taken) LBinfo.setCaption("სიაში ამ სახელის ფაილი უკვე არის, გადაარქვით (F2): " + name);
}

void frmWEB::addFiles() {
  ui::FileDialog dialog;
  dialog.title = infoTexts()[1];
  dialog.filter = kFilter;
  dialog.kind = "project";
  dialog.multiple = true;
  const auto chosen = bench_.platform().openFiles(dialog);
  if (chosen.size() + LV.items().size() > kMostFiles) {
    app::messageBox(bench_.platform(), "bevri failebia arCeuli."_keyboard, "", app::frmBOXa::Kind::Message,
                    ui::IconBox::Sign::Critical);
    return;
  }
  std::set<std::string> listed;
  for (const auto& item : LV.items()) listed.insert(base::upperAscii(item.text.bytes));
  std::vector<NewItem> added;
  for (const std::string& path : chosen) {
    const auto name = nameFor(path, listed);
    if (!name) break;
    if (name->empty()) continue;
    listed.insert(base::upperAscii(*name));
    added.push_back({*name, path});
  }
  addItems(added);
}

// Two files cannot have one name in the project's folder. Empty: this one stays out; nothing: so do the rest.
std::optional<std::string> frmWEB::nameFor(const std::string& path, const std::set<std::string>& listed) {
  std::string name = base::fileName(path);
  while (listed.count(base::upperAscii(name)) != 0) {
    const std::string answer = app::messageBox(
        bench_.platform(),
        "სიაში ამ სახელის ფაილი უკვე არის:\r\n" + name + "\r\n\r\nგინდათ ახალი ფაილის სხვა სახელით ჩასმა?",
        "New WEB", app::frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
    if (answer == app::kAnswerCancel) return std::nullopt;
    if (answer != app::kAnswerYes) return "";
    const auto typed = app::inputBox(bench_.platform(), "ფაილის სახელი პროექტში:", "New WEB", name);
    if (!typed) return "";
    if (app::IsBadFileName(*typed)) {
      app::reportBadName(bench_.platform());
    } else {
      name = *typed;
    }
  }
  return name;
}

void frmWEB::removeFile() {
  const int at = LV.selected();
  if (at < 0) return;
  auto items = LV.items();
  items.erase(items.begin() + at);
  const int count = static_cast<int>(items.size());
  LV.setItems(std::move(items));
  if (count > 0) LV.setSelected(at < count ? at : at - 1);
}

void frmWEB::chooseFolder() {
  if (const auto folder = bench_.platform().pickFolder(infoTexts()[3])) Twebpath.userSet(*folder);
}

void frmWEB::Tpname_Change() {
  if (app::IsBadFileName(Tpname.text())) {
    const std::string typed = Tpname.text();
    const auto caret = static_cast<std::size_t>(std::max(Tpname.selection().start, 0));
    app::reportBadName(bench_.platform());
    std::string kept;
    std::size_t place = 0;  // of the caret in what is kept
    for (std::size_t i = 0; i < typed.size(); ++i) {
      if (!app::IsBadFileName({&typed[i], 1})) kept += typed[i];
      if (i < caret) place = kept.size();
    }
    Tpname.setText(kept);
    Tpname.select(static_cast<int>(place), 0);
  }
  enableCreate();
}

void frmWEB::enableCreate() {
  COK[4]->setEnabled(!Tpname.text().empty() && !Twebpath.text().empty());
}

bool frmWEB::isListed(const std::string& name, int except) const {
  for (std::size_t i = 0; i < LV.items().size(); ++i) {
    if (static_cast<int>(i) != except && base::samePath(LV.items()[i].text.bytes, name)) return true;
  }
  return false;
}

bool frmWEB::LV_AfterLabelEdit(int row, std::string& text) {
  const std::string old = LV.items()[static_cast<std::size_t>(row)].text.bytes;
  text = std::string(base::trimSpaces(text));
  if (text.empty()) return false;
  if (app::IsBadFileName(text) || text == "." || text == "..") {
    app::reportBadName(bench_.platform());
    return false;
  }
  if (text.find('.') == std::string::npos) {
    const std::size_t dot = old.rfind('.');
    if (dot != std::string::npos && !base::trimSpaces(std::string_view(old).substr(dot + 1)).empty()) {
      text += old.substr(dot);
    }
  }
  if (!isListed(text, row)) return true;
  app::messageBox(bench_.platform(), "სიაში ამ სახელის ფაილი უკვე არის:\r\n" + text, "New WEB");
  return false;
}

bool frmWEB::mayReplace(const std::string& folder, bool& replace) const {
  std::string taken;
  for (const auto& item : LV.items()) {
    const std::string target = base::joinPath(folder, item.text.bytes);
    if (base::fileExists(target) && !base::sameFile(target, item.tag)) taken += item.text.bytes + "\r\n";
  }
  const std::string file = Tpname.text() + ".WEB";
  if (base::fileExists(base::joinPath(folder, file))) taken += file + "\r\n";
  replace = true;
  if (taken.empty()) return true;
  const std::string answer = app::messageBox(
      bench_.platform(), "საქაღალდეში ეს ფაილები უკვე არსებობს:\r\n" + taken + "\r\nჩანაცვლდეს?", "New WEB",
      app::frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Warning);
  replace = answer == app::kAnswerYes;
  return answer != app::kAnswerCancel;
}

void frmWEB::create() {
  if (LV.items().empty()) {
    app::messageBox(bench_.platform(),
                    "proeqtis Sesaqmnelad, failebis siaSi\r\n erTi faili mainc unda iyos Setanili."_keyboard,
                    "");
    return;
  }
  // A copy of the path: the text box may go with the dialog.
  const std::string folder = Twebpath.text();
  const std::string project = base::joinPath(folder, Tpname.text() + ".WEB");
  std::string missing;
  if (base::folderExists(folder)) {
    bool replace = false;
    if (!mayReplace(folder, replace)) return;
    const base::ScopedFlag writing(writing_);  // events run meanwhile
    if (!writeFiles(folder, replace, missing)) return;
  }
  // The main window says it when the project is not there.
  if (base::fileExists(project)) {
    bench_.ofnen(project);
  } else {
    bench_.WEB_Open(project);
  }
  close();
  if (!missing.empty()) {
    app::messageBox(bench_.platform(), "File not found.\r\n\r\n" + missing, "New WEB");
  }
}

// The list's own order, its first entry as start page. A source that has gone is not named.
std::string frmWEB::projectText(std::string& missing) const {
  std::string text;
  for (const auto& item : LV.items()) {
    if (!item.tag.empty() && !base::fileExists(item.tag)) {
      missing.append(item.tag).append(base::kCrLf);
    } else {
      text.append(base::storedName(item.text.bytes)).append(base::kCrLf);
    }
  }
  return text.append("STOPF=").append(base::storedName(LV.items().front().text.bytes)).append(base::kCrLf);
}

// Throws base::Error at the first file that cannot be written: what is written already stays. False: the user
// stopped it.
bool frmWEB::writeFiles(const std::string& folder, bool replace, std::string& missing) {
  const auto wanted = [replace](const std::string& target) { return replace || !base::fileExists(target); };
  app::Progress progress(
      bench_.platform(), [this](const std::string& line) { LBinfo.setCaption(line); }, LV.items().size());
  const std::string text = projectText(missing);
  const std::string project = base::joinPath(folder, Tpname.text() + ".WEB");
  if (wanted(project)) base::writeFile(project, text);
  for (const auto& item : LV.items()) {
    const std::string& name = item.text.bytes;
    if (!progress.step(name)) return false;
    const std::string target = base::joinPath(folder, name);
    if (!wanted(target)) continue;
    if (item.tag.empty()) {
      base::writeFile(target, HTMLheaderi(name).append(base::kCrLf));
    } else if (base::fileExists(item.tag)) {
      base::copyFile(item.tag, target);
    }
  }
  return true;
}

}  // namespace project
