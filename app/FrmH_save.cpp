// The main window's saving: documents, and the web project they may belong to.
#include <algorithm>
#include <limits>
#include <set>

#include "app/FrmH.h"
#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/progress.h"
#include "app/web_file.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"

namespace app {
namespace {

using ui::operator""_keyboard;

constexpr const char* kSaveFilter =
    "HTML(*.htm,*.html)|*.HTML;*.htm|Text(*.txt)|*.txt|CSS|*.css|ASP|*.asp|PHP|*.php|Java Script(*.JS)|*.js|"
    "All Files|*.*";

// `PinListi` of records outside the project whose inclusion the user was asked about: not asked again.
constexpr std::int16_t kDeclined = 1;
constexpr std::int16_t kProjectRecord = -1;

}  // namespace

bool FrmH::SaveDocument(const std::string& path, std::int16_t index, SaveKind kind) {
  const bool shown = documentSession.isShown(index);
  const std::int16_t own = shown ? CurrentItemIndex : index;
  std::string target = path;
  if (target.empty() && kind == SaveKind::Plain) {
    target = shown ? CurrentFilePath : WebProject.Item(own).filepath;
  }
  if (target.empty()) {
    ui::FileDialog dialog;
    dialog.title = "Save";
    dialog.filter = kSaveFilter;
    dialog.kind = "documents";
    dialog.name = base::fileName(documentSession.title(own));
    const auto chosen = platform_.saveFile(dialog);
    if (!chosen || chosen->empty()) return false;
    target = *chosen;
  }
  if (!mayWriteOver(target, own)) return false;

  if (base::samePath(target, documentSession.path(index)) && !settleWithFile(index, Purpose::Save))
    return false;

  writeText(target, index);
  if (own >= 0) {
    Ithem& record = WebProject.Item(own);
    showInTwins(target, own);
    // Saved elsewhere, it is a project document only when it is still in the project's folder.
    const std::string inside = record.IsInWEB ? nameInProject(target) : "";
    const std::string title = inside.empty() ? base::fileName(target) : inside;
    const bool renamed = record.FileTitle != title;
    record.FileTitle = title;
    if (renamed) {
      if (record.IsInWEB) {
        WebProject.WEBChanged = true;
        record.IsInWEB = !inside.empty();
      }
      Treefulen();
    }
  }
  if (shown) {
    followName();
    showCaption();
  }
  if (kind == SaveKind::As) {
    if (WebProject.WEBopened) {
      if (offerInclusion() && WebProject.WEBChanged) writeProjectFile();
    } else if (WebProject.Count() > 1) {
      offerProject();
    }
  }
  return true;
}

// The name by which the project file knows a file: relative to its folder. Empty: outside of it.
std::string FrmH::nameInProject(const std::string& path) const {
  const std::string& folder = WebProject.WEBpath;
  const bool inside = WebProject.WEBopened && path.size() > folder.size() &&
                      base::samePath(std::string_view(path).substr(0, folder.size()), folder);
  return inside ? path.substr(folder.size()) : "";
}

// Other documents may have the file too: a project file that names it twice gives it two.
bool FrmH::mayWriteOver(const std::string& path, std::int16_t index) {
  for (const std::int16_t i : documentSession.othersOf(path, index)) {
    if (index < 0 || !base::samePath(WebProject.Item(index).filepath, path)) {
      throw base::Error(base::ErrorNumber::PermissionDenied,
                        "ეს ფაილი სხვა დოკუმენტად უკვე გახსნილია:\r\n" + path);
    }
    if (!documentSession.changed(i) || documentText(i) == documentText(index)) continue;
    const std::string answer = messageBox(platform_,
                                          "ეს ფაილი სიაში ორჯერაა და მეორე დოკუმენტიც შეცვლილია:\r\n" + path +
                                              "\r\n\r\nჩაიწეროს ამ დოკუმენტის ტექსტი?",
                                          "", frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning);
    if (answer != kAnswerYes) return false;
  }
  return true;
}

// The file's other documents follow what was saved, unless they have changes of their own.
void FrmH::showInTwins(const std::string& path, std::int16_t index) {
  for (const std::int16_t i : documentSession.othersOf(path, index)) {
    Ithem& other = WebProject.Item(i);
    other.file = documentSession.file(index);
    if (i == CurrentItemIndex) {
      const base::ScopedFlag loading(Loading);
      if (!FileChanged) T1.load(documentText(index));
    } else if (!other.Changed && !isImage(other)) {
      other.Value = documentText(index);
    }
  }
}

void FrmH::mnuSaveas_Click() {
  SaveDocument("", WebProject.Count() < 1 ? std::int16_t{-1} : CurrentItemIndex, SaveKind::As);
}

bool FrmH::saveAllChanged() {
  return saveAll(documentSession.unsaved());
}

bool FrmH::saveAll(const std::vector<std::int16_t>& documents) {
  for (const std::int16_t index : documents) {
    if (!SaveDocument("", index)) return false;
  }
  return true;
}

bool FrmH::saveProjectWith(const std::vector<std::int16_t>& documents) {
  documentSession.park();
  if (!saveAll(documents)) return false;
  writeProjectFile();
  return true;
}

bool FrmH::SaveProject(bool ask) {
  documentSession.park();
  if (!WebProject.WEBopened) {
    if (!ask) return saveAllChanged();
    if (!offerProject()) return false;
    return WebProject.WEBopened ? true : saveAllChanged();
  }
  if (ask && !offerInclusion()) return false;
  return saveProjectWith(documentSession.unsaved());
}

std::vector<std::int16_t> FrmH::outsideProject() {
  std::vector<std::int16_t> outside;
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    const Ithem& record = WebProject.Item(i);
    if (!record.IsInWEB && record.PinListi != kDeclined) outside.push_back(i);
  }
  return outside;
}

std::optional<std::vector<std::int16_t>> FrmH::chooseFiles(const std::vector<std::int16_t>& offered) {
  std::vector<std::string> rows;
  for (const std::int16_t i : offered) rows.push_back(WebProject.Item(i).FileTitle);
  const auto ticked =
      choiceBox(platform_, "moniSne failebi romlebic proeqtSi unda Sevides."_keyboard, "New Files", rows);
  if (!ticked) return std::nullopt;
  std::vector<std::int16_t> chosen;
  for (const std::size_t row : *ticked) chosen.push_back(offered[row]);
  return chosen;
}

bool FrmH::offerInclusion() {
  documentSession.park();
  const auto outside = outsideProject();
  if (outside.empty()) return true;
  const std::string answer = messageBox(platform_,
                                        "siaSi axali failebia Setanili romlebic\r\n"
                                        "araa proeqtTan dakavSirebuli.gindaT maTi proeqtSi Setana?"_keyboard,
                                        "New Files", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
  if (answer == kAnswerCancel) return false;
  std::vector<std::int16_t> chosen;
  if (answer == kAnswerYes) {
    const auto ticked = chooseFiles(outside);
    if (!ticked) return false;
    chosen = *ticked;
  }
  return include(chosen);
}

bool FrmH::include(const std::vector<std::int16_t>& chosen) {
  for (const std::int16_t i : chosen) {
    if (!copyIntoProject(i)) return false;
  }
  for (const std::int16_t i : outsideProject()) WebProject.Item(i).PinListi = kDeclined;
  Treefulen();
  showCaption();
  return true;
}

bool FrmH::copyIntoProject(std::int16_t index) {
  Ithem& record = WebProject.Item(index);
  const std::string target = base::joinPath(WebProject.WEBpath, record.FileTitle);
  if (!base::samePath(target, record.filepath) && !base::sameFile(target, record.filepath)) {
    const bool sameData = isImage(record) && base::fileExists(target) &&
                          base::readFile(target) == base::readFile(record.filepath);
    if (documentSession.recordOf(target) && !sameData) {
      throw base::Error(base::ErrorNumber::PermissionDenied,
                        "პროექტში ამ სახელის დოკუმენტი უკვე არის:\r\n" + target);
    }
    if (base::fileExists(target) && !sameData) {
      const std::string answer = messageBox(
          platform_, "პროექტის საქაღალდეში ეს ფაილი უკვე არსებობს:\r\n" + target + "\r\n\r\nჩანაცვლდეს?",
          "New Files", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Warning);
      if (answer == kAnswerCancel) return false;
      if (answer != kAnswerYes) return true;  // this one stays outside
    }
    if (isImage(record)) {
      if (!sameData) base::copyFile(record.filepath, target);
    } else {
      base::writeFile(target, documentText(index));
      documentSession.saved(index, target, base::traceOf(target, documentText(index)));
    }
    record.filepath = target;
    if (index == CurrentItemIndex) CurrentFilePath = target;
  }
  record.saved = true;
  record.IsInWEB = true;
  record.PinListi = kProjectRecord;
  WebProject.WEBChanged = true;
  return true;
}

bool FrmH::offerProject() {
  documentSession.park();
  const std::string answer = messageBox(platform_, "gindaT gaxsnili failebisgan proeqtis Seqmna?"_keyboard,
                                        "New WEB", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  std::string name;
  do {
    const auto wanted = inputBox(platform_, "Cawere proeqtis saxeli."_keyboard, "New WEB", name);
    if (!wanted) return false;
    name = *wanted;
    if (IsBadFileName(name)) reportBadName(platform_);
  } while (IsBadFileName(name));
  const auto folder = platform_.pickFolder("პროექტის საქაღალდე");
  if (!folder) return false;
  const std::string file = base::joinPath(*folder, name + ".WEB");
  if (base::fileExists(file) &&
      messageBox(platform_, "ეს პროექტი უკვე არსებობს:\r\n" + file + "\r\n\r\nჩანაცვლდეს?", "New WEB",
                 frmBOXa::Kind::YesNo, ui::IconBox::Sign::Warning) != kAnswerYes) {
    return false;
  }
  const auto chosen = chooseFiles(outsideProject());
  if (!chosen) return false;

  WebProject.WEBpath = base::joinPath(*folder, "");
  WebProject.WEBtitle = name + ".WEB";
  WebProject.WEBopened = true;
  WebProject.WEBChanged = true;
  if (!include(*chosen)) return false;
  writeProjectFile();
  return true;
}

// Every document of the list is named, with the shown one as start page.
void FrmH::writeProjectFile() {
  std::vector<std::string> names;
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) names.push_back(WebProject.Item(i).FileTitle);
  const std::string startPage = CurrentItemIndex >= 0 ? WebProject.Item(CurrentItemIndex).FileTitle : "";
  base::writeFile(projectFile(), webFileText(std::move(names), startPage));
  WebProject.WEBChanged = false;
  WebProject.ColectionSaved();
}

// Of the names in a project file those that lead out of its folder: whoever made the file may mean any file
// of this computer. False: nothing is to be opened.
bool FrmH::askForOutside(const std::string& folder, std::vector<std::string>& names, bool& dropped) {
  std::string outside;
  for (const std::string& name : names) {
    if (leavesFolder(name) && base::fileExists(folder + name))
      outside.append(folder + name).append(base::kCrLf);
  }
  if (outside.empty()) return true;
  const std::string answer = messageBox(
      platform_,
      "პროექტი თავისი საქაღალდის გარეთ მდებარე ფაილებსაც ასახელებს:\r\n" + outside + "\r\nგაიხსნას ისინიც?",
      "Zervo", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Warning);
  if (answer == kAnswerCancel) return false;
  dropped = answer != kAnswerYes;
  if (dropped) names.erase(std::remove_if(names.begin(), names.end(), leavesFolder), names.end());
  return true;
}

void FrmH::WEB_Open(const std::string& path) {
  struct Document {
    std::string name, path, text;
  };
  try {
    // All is read before the old list goes.
    WebFile file = parseWebFile(base::readFile(path));
    const std::string folder = base::joinPath(base::folderOf(path), "");
    std::vector<Document> found;
    std::string missing, twice;
    bool dropped = false;
    if (!askForOutside(folder, file.names, dropped)) return;
    std::set<std::string> known;
    const base::ScopedFlag busy(busy_);
    {
      Progress progress(
          platform_, [this](const std::string& line) { setPanel("kMain", line); }, file.names.size());
      for (const std::string& name : file.names) {
        if (!progress.step(name)) return;  // stopped: the open documents stay
        const std::string document = folder + name;
        if (name.find('\0') != std::string::npos || !base::fileExists(document)) {
          missing.append(base::replaceAll(document, std::string_view("\0", 1), "?")).append(base::kCrLf);
        } else {
          found.push_back({name, document, base::readFile(document)});
          if (!known.insert(base::upperAscii(document)).second) twice += " " + name;
        }
      }
    }

    if (found.size() > std::numeric_limits<std::int16_t>::max()) {
      throw base::Error(base::ErrorNumber::OutOfMemory, "პროექტში მეტისმეტად ბევრი ფაილია.");
    }

    showNothing();
    WebProject.Cler();
    for (Document& document : found) {
      WebProject.AddNewIthem("", -1, "", "");
      Ithem& record = WebProject.Item(static_cast<std::int16_t>(WebProject.Count() - 1));
      record.file = base::traceOf(document.path, document.text);
      record.Value = DocumentText(std::move(document.text));
      record.Changed = false;
      record.filepath = document.path;
      record.FileTitle = document.name;
      record.saved = true;
      record.IsInWEB = true;
      record.PinListi = kProjectRecord;
    }
    WebProject.WEBopened = true;
    WebProject.WEBpath = folder;
    WebProject.WEBtitle = base::fileName(path);
    WebProject.WEBChanged = dropped || !missing.empty();

    Treefulen();
    // The start page, or else the first document with text; pictures and sounds have icons of their own.
    std::int16_t start = -1;
    bool named = false;
    for (const ui::TreeView::Node& node : TV.nodes()) {
      if (node.tag.empty() || node.icon == kIconMedia || node.icon == kIconPictureData) continue;
      const auto index = static_cast<std::int16_t>(std::stoi(node.tag));
      if (file.startPage && base::samePath(WebProject.Item(index).FileTitle, *file.startPage)) {
        start = index;
        named = true;
      } else if (!named && (start < 0 || index < start)) {
        start = index;
      }
    }
    if (start >= 0) showDocument(start);
    WebProject.ColectionReaded();
    if (!twice.empty()) setPanel("kMain", "პროექტის ფაილში ერთზე მეტჯერ წერია:" + twice);
    if (!missing.empty()) messageBox(platform_, "File not found.\r\n\r\n" + missing, "Zervo");
  } catch (const std::exception& error) {
    const ErrorText text = errorText(error);
    messageBox(platform_, text.description + "\r\nError!!\r\nError:N: " + std::to_string(text.number),
               "ERROR!!", frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
  }
}

void FrmH::mnuCloseWEB_Click() {
  if (!leaveDocuments()) return;
  showNothing();
  WebProject.Cler();
  WebProject.WEBopened = false;
  WebProject.WEBChanged = false;
  WebProject.WEBpath.clear();
  WebProject.WEBtitle.clear();
  Treefulen();
}

}  // namespace app
