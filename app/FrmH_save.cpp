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

// A message of tens of thousands of missing files could not be read, nor its box shown.
constexpr std::size_t kMostMissingShown = 25;

std::string missingList(const std::vector<std::string>& missing) {
  std::string list;
  for (std::size_t i = 0; i < std::min(missing.size(), kMostMissingShown); ++i) {
    list.append(missing[i]).append(base::kCrLf);
  }
  if (missing.size() > kMostMissingShown) {
    list += "... +" + std::to_string(missing.size() - kMostMissingShown) + "\r\n";
  }
  return list;
}

}  // namespace

bool FrmH::SaveDocument(const std::string& path, std::int16_t index, SaveKind kind) {
  const bool shown = isShown(index);
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
    dialog.name = titleOf(own);
    const auto chosen = platform_.saveFile(dialog);
    if (!chosen || chosen->empty()) return false;
    target = *chosen;
  }
  const auto other = recordOf(target);
  if (other && *other != own) {
    throw base::Error(base::ErrorNumber::PermissionDenied,
                      "ეს ფაილი სხვა დოკუმენტად უკვე გახსნილია:\r\n" + target);
  }

  base::overwriteFile(target, documentText(index));

  if (shown) {
    FileChanged = false;
    CurrentFilePath = target;
  }
  if (own >= 0) {
    Ithem& record = WebProject.Item(own);
    const std::string title = base::fileName(target);
    const bool renamed = record.FileTitle != title;
    record.Changed = false;
    record.saved = true;
    record.filepath = target;
    record.FileTitle = title;
    if (renamed) {
      if (record.IsInWEB) {
        WebProject.WEBChanged = true;
        // Saved elsewhere, it is a project document only when it is still in the project's folder.
        record.IsInWEB = base::samePath(target, base::joinPath(WebProject.WEBpath, title));
      }
      Treefulen();
    }
  }
  if (shown) showCaption();
  if (kind == SaveKind::As) {
    if (WebProject.WEBopened) {
      if (offerInclusion() && WebProject.WEBChanged) writeProjectFile();
    } else if (WebProject.Count() > 1) {
      offerProject();
    }
  }
  return true;
}

void FrmH::mnuSaveas_Click() {
  SaveDocument("", WebProject.Count() < 1 ? std::int16_t{-1} : CurrentItemIndex, SaveKind::As);
}

bool FrmH::unsavedDocuments() {
  const bool empty = CurrentFilePath.empty() && T1.text().empty();
  if (FileChanged && !empty) return true;
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    if (i == CurrentItemIndex) continue;
    const Ithem& record = WebProject.Item(i);
    if (record.Changed && !(record.filepath.empty() && record.Value.empty())) return true;
  }
  return false;
}

bool FrmH::saveAllChanged() {
  if (FileChanged && !SaveDocument("", -1)) return false;
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    if (i != CurrentItemIndex && WebProject.Item(i).Changed && !SaveDocument("", i)) return false;
  }
  return true;
}

bool FrmH::SaveProject(bool ask) {
  parkShown();
  if (!WebProject.WEBopened) {
    if (!ask) return saveAllChanged();
    if (!offerProject()) return false;
    return WebProject.WEBopened ? true : saveAllChanged();
  }
  if (ask && !offerInclusion()) return false;
  if (!saveAllChanged()) return false;
  writeProjectFile();
  return true;
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
  parkShown();
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
    if (recordOf(target)) {
      throw base::Error(base::ErrorNumber::PermissionDenied,
                        "პროექტში ამ სახელის დოკუმენტი უკვე არის:\r\n" + target);
    }
    if (base::fileExists(target)) {
      const std::string answer = messageBox(
          platform_, "პროექტის საქაღალდეში ეს ფაილი უკვე არსებობს:\r\n" + target + "\r\n\r\nჩანაცვლდეს?",
          "New Files", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Warning);
      if (answer == kAnswerCancel) return false;
      if (answer != kAnswerYes) return true;  // this one stays outside
    }
    if (isImage(record)) {
      base::copyFile(record.filepath, target);
    } else {
      base::writeFile(target, documentText(index));
      record.Changed = false;
      if (index == CurrentItemIndex) FileChanged = false;
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
  parkShown();
  const std::string answer = messageBox(platform_, "gindaT gaxsnili failebisgan proeqtis Seqmna?"_keyboard,
                                        "New WEB", frmBOXa::Kind::YesNoCancel, ui::IconBox::Sign::Question);
  if (answer == kAnswerCancel) return false;
  if (answer != kAnswerYes) return true;
  std::string name;
  do {
    const auto typed = inputBox(platform_, "Cawere proeqtis saxeli."_keyboard, "New WEB", name);
    if (!typed) return false;
    name = *typed;
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

void FrmH::WEB_Open(const std::string& path) {
  struct Document {
    std::string name, path, text;
  };
  try {
    // All is read before the old list goes.
    const WebFile file = parseWebFile(base::readFile(path));
    const std::string folder = base::joinPath(base::folderOf(path), "");
    std::vector<Document> found;
    std::vector<std::string> missing;
    std::set<std::string> known;
    const BusyBlock busy(busy_);
    Progress progress(
        platform_, [this](const std::string& line) { setPanel("kMain", line); }, file.names.size());
    for (const std::string& name : file.names) {
      if (!progress.step(name)) return;  // stopped: the open documents stay
      const std::string document = folder + name;
      if (!known.insert(base::upperAscii(document)).second) continue;  // a document never has two records
      if (name.find('\0') != std::string::npos || !base::fileExists(document)) {
        missing.push_back(base::replaceAll(document, std::string_view("\0", 1), "?"));
      } else {
        found.push_back({name, document, base::readFile(document)});
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
    WebProject.WEBChanged = !missing.empty();

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
    if (!missing.empty()) {
      messageBox(platform_, "File not found.\r\n\r\n" + missingList(missing), "Zervo");
    }
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
