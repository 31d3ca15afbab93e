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

// Sets a flag for the length of a block.
class Writing {
 public:
  explicit Writing(bool& flag) : flag_(flag) { flag_ = true; }
  Writing(const Writing&) = delete;
  Writing& operator=(const Writing&) = delete;
  ~Writing() { flag_ = false; }

 private:
  bool& flag_;
};

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
      if (!writing_) app::guarded(bench_.platform(), [this, run] { (this->*run)(); });
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
  addItem("Index.HTML", "");
  LV.setSelected(0);
  enableCreate();
}

std::string frmWEB::HTMLheaderi(const std::string& title) const {
  return project::HTMLheaderi(title, bench_.props());
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

void frmWEB::addItem(const std::string& name, const std::string& source) {
  auto items = LV.items();
  ui::ListView::Item item;
  item.text = name;
  item.tag = source;
  item.icon = source.empty() ? kNewPageIcon : fileIcon(name);
  items.push_back(std::move(item));
  LV.setItems(std::move(items));
  LV.setSelected(static_cast<int>(LV.items().size()) - 1);
  LV.setFocus();
}

void frmWEB::addPage() {
  std::size_t number = LV.items().size();
  std::string name;
  do {
    name = "NewPage" + std::to_string(number++) + ".HTML";
  } while (isListed(name, -1));
  addItem(name, "");
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
  for (const std::string& path : chosen) {
    std::string name = base::fileName(path);
    while (isListed(name, -1)) {
      // Two files cannot have one name in the project's folder.
      const std::string answer = app::messageBox(
          bench_.platform(),
          "სიაში ამ სახელის ფაილი უკვე არის:\r\n" + name + "\r\n\r\nგინდათ ახალი ფაილის სხვა სახელით ჩასმა?",
          "New WEB", app::frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
      if (answer == app::kAnswerCancel) return;
      if (answer != app::kAnswerYes) {
        name.clear();
        break;
      }
      const auto typed = app::inputBox(bench_.platform(), "ფაილის სახელი პროექტში:", "New WEB", name);
      if (!typed) {
        name.clear();
        break;
      }
      if (app::IsBadFileName(*typed)) {
        app::reportBadName(bench_.platform());
      } else {
        name = *typed;
      }
    }
    if (!name.empty()) addItem(name, path);
  }
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
    app::reportBadName(bench_.platform());
    std::string kept;
    for (const char c : Tpname.text()) {
      if (!app::IsBadFileName({&c, 1})) kept += c;
    }
    Tpname.setText(kept);
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
  if (base::folderExists(folder)) {
    bool replace = false;
    if (!mayReplace(folder, replace)) return;
    const Writing writing(writing_);  // events run meanwhile
    writeFiles(folder, replace);
  }
  // The main window says it when the project is not there.
  if (base::fileExists(project)) {
    bench_.ofnen(project);
  } else {
    bench_.WEB_Open(project);
  }
  close();
}

void frmWEB::writeFiles(const std::string& folder, bool replace) {
  std::string text, failed;
  const std::string project = base::joinPath(folder, Tpname.text() + ".WEB");
  const auto step = [&failed](const std::string& name, const std::function<void()>& action) {
    try {
      action();
    } catch (const std::exception& error) {
      failed += name + ": " + error.what() + "\r\n";
    }
  };
  app::Progress progress(
      bench_.platform(), [this](const std::string& line) { LBinfo.setCaption(line); }, LV.items().size());
  for (const auto& item : LV.items()) {
    const std::string& name = item.text.bytes;
    if (!progress.step(name)) {
      failed += "შეწყვეტილია.\r\n";
      break;
    }
    const std::string target = base::joinPath(folder, name);
    const bool gone = !item.tag.empty() && !base::fileExists(item.tag);
    if (gone) {
      failed += name + ": ფაილი ვერ მოიძებნა: " + item.tag + "\r\n";
      continue;  // nor is it named in the project
    }
    text.append(base::storedName(name)).append(base::kCrLf);
    if (replace || !base::fileExists(target)) {
      step(name, [&] {
        if (item.tag.empty()) {
          base::writeFile(target, HTMLheaderi(name).append(base::kCrLf));
        } else {
          base::copyFile(item.tag, target);
        }
      });
    }
  }
  // The list's own order, its first entry as start page.
  text.append("STOPF=").append(base::storedName(LV.items().front().text.bytes)).append(base::kCrLf);
  if (replace || !base::fileExists(project))
    step(base::fileName(project), [&] { base::writeFile(project, text); });
  if (!failed.empty()) {
    app::messageBox(bench_.platform(),
                    "Error!!\r\nError:N: " +
                        std::to_string(static_cast<int>(base::ErrorNumber::DeviceError)) + "\r\n" + failed,
                    "ERROR!!!", app::frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
  }
}

}  // namespace project
