// The main window's documents: opening, switching, new ones, and the tree that lists them.
#include <algorithm>

#include "app/FrmH.h"
#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/new_page.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"

namespace app {
namespace {

using ui::operator""_keyboard;

constexpr const char* kOpenFilter =
    "All Files(*.*)|*.*|HTML-HTM(*.html,*.htm)|*.html;*.htm|Text(*.txt)|*.txt|WEB Proect|*.WEB";

constexpr std::string_view kUntitled = "nosaved";

std::string untitledName(std::int16_t index, std::string_view extension) {
  return std::string(kUntitled) + std::to_string(index) + std::string(extension);
}

// The extension of a name that untitledName gave; nothing when the name is another one.
std::optional<std::string> untitledExtension(const std::string& title) {
  if (!title.starts_with(kUntitled)) return std::nullopt;
  const std::size_t dot = title.find_first_not_of("0123456789", kUntitled.size());
  if (dot == std::string::npos || dot == kUntitled.size() || title[dot] != '.') return std::nullopt;
  return title.substr(dot);
}

// True for the length of a block in which the program itself fills the code view.
class LoadingBlock {
 public:
  explicit LoadingBlock(bool& loading) : loading_(loading) { loading_ = true; }
  LoadingBlock(const LoadingBlock&) = delete;
  LoadingBlock& operator=(const LoadingBlock&) = delete;
  ~LoadingBlock() { loading_ = false; }

 private:
  bool& loading_;
};

}  // namespace

void FrmH::mnuOpen_Click() {
  ui::FileDialog dialog;
  dialog.title = "Open";
  dialog.filter = kOpenFilter;
  dialog.kind = "documents";
  const auto chosen = platform_.openFiles(dialog);
  if (!chosen.empty()) ofnen(chosen.front());
}

void FrmH::ofnen(const std::string& path) {
  const LoadingBlock loading(Loading);
  platform_.pumpEvents();
  if (base::fileExists(path)) documentOpened(path);
  if (base::lastThree(path) == "WEB") {
    if (unsavedDocuments() &&
        !askAndSave("ginaT gaxsnil failebSi cvlilebis damaxsovreba?"_keyboard, "NEW WEB",
                    [this] { return WebProject.WEBopened ? SaveProject(false) : saveAllChanged(); })) {
      return;
    }
    WEB_Open(path);
  } else if (isPictureFile(path)) {
    if (!base::fileExists(path)) base::readFile(path);  // says why it cannot be added
    appendRecord(kImageValue, path, base::fileName(path));
    WebProject.WEBChanged = true;
    Treefulen();
  } else {
    openText(path);
  }
}

void FrmH::openText(const std::string& path) {
  const std::string text = base::readFile(path);  // before anything changes
  const auto known = recordOf(path);
  if (WebProject.WEBopened && known) {
    const std::string answer =
        messageBox(platform_, "es faili ukve aris proeqtSi.\r\ngindaT misi axal fanjaraSi gaxsna?"_keyboard,
                   "File Open", frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question);
    if (answer == kAnswerYes) {
      platform_.startProcess(base::joinPath(platform_.programFolder(), "Zervo.exe") + " " + path);
    } else {
      showDocument(*known);
    }
    return;
  }
  if (!CurrentFilePath.empty() && base::samePath(path, CurrentFilePath)) {
    const std::string answer =
        messageBox(platform_, "es faili ukve gaxsnilia.\r\ngindaT misi axlidan gaxsna?"_keyboard, "Open",
                   frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question);
    if (answer != kAnswerYes) return;
    showText(text, base::fileName(path));
    FileChanged = false;
    return;
  }
  if (known) {
    showDocument(*known);
    return;
  }

  parkShown();
  showText(text, base::fileName(path));
  CurrentItemIndex = appendRecord(T1.document(), path, base::fileName(path));
  CurrentFilePath = path;
  FileChanged = false;
  showCaption();
  Treefulen();
  documentShown();
}

void FrmH::mnunewF_Click(const char* extension, const std::string& text) {
  const LoadingBlock loading(Loading);
  parkShown();
  const std::string title = untitledName(WebProject.Count(), extension);
  showText(text, title);
  CurrentItemIndex = appendRecord(T1.document(), "", title);
  CurrentFilePath.clear();
  FileChanged = false;
  T1.select(static_cast<int>(text.size()), 0);
  showCaption();
  Treefulen();
  documentShown();
}

void FrmH::newPage() {
  if (!Props.NewPageSkeleton) return mnunewF_Click(".HTML", "<HTML>");
  const NewPage page = wholePage(Props);
  mnunewF_Click(".HTML", page.text);
  T1.select(page.caret, 0);
}

void FrmH::mnuClose_Click() {
  closeDocument(CurrentItemIndex);
}

// False: the user keeps it.
bool FrmH::closeDocument(std::int16_t index) {
  const bool shown = isShown(index);
  const bool named = shown ? !CurrentFilePath.empty() : !WebProject.Item(index).filepath.empty();
  const bool changed = shown ? FileChanged : WebProject.Item(index).Changed;
  if (changed && (named || !documentText(index).empty()) &&
      !askAndSave("faili Seicvala.\r\ngindaT cvlilebebis damaxsovreba?"_keyboard, "",
                  [this, index] { return SaveDocument("", index); })) {
    return false;
  }
  const LoadingBlock loading(Loading);
  if (!shown) {
    WebProject.RemoveIthem(index);
    if (index < CurrentItemIndex) --CurrentItemIndex;
  } else {
    const std::int16_t closed = CurrentItemIndex;
    if (closed >= 0) WebProject.RemoveIthem(closed);
    showNothing();
    const int next = nearestText(closed);
    if (next >= 0) showDocument(static_cast<std::int16_t>(next));
  }
  nameUntitled();
  showCaption();
  Treefulen();
  return true;
}

// The document with text that is at the position or behind it, or else the nearest before it; -1: none.
int FrmH::nearestText(int position) {
  const auto usable = [this](int i) { return !isImage(WebProject.Item(static_cast<std::int16_t>(i))); };
  for (int i = std::max(position, 0); i < WebProject.Count(); ++i) {
    if (usable(i)) return i;
  }
  for (int i = std::min<int>(position, WebProject.Count()) - 1; i >= 0; --i) {
    if (usable(i)) return i;
  }
  return -1;
}

void FrmH::showDocument(std::int16_t index) {
  if (index == CurrentItemIndex) return;
  const bool hadRecord = CurrentItemIndex >= 0;
  Loading = true;
  switching_ = true;
  try {
    parkShown();
    Ithem& record = WebProject.Item(index);
    if (isImage(record)) {
      // The code view keeps the old text, and Loading stays set: typing on below a picture in the tree marks
      // nothing changed until another command shows a document.
      switching_ = false;
      if (!hadRecord) Treefulen();
      return;
    }
    showIn(record.Value.in(T1), record.FileTitle);
    // The document knows its own; another selection was put there meanwhile.
    if (T1.selStart() != record.SStart || T1.selLength() != record.SLenth) {
      T1.select(record.SStart, record.SLenth);
    }
    CurrentItemIndex = index;
    CurrentFilePath = record.filepath;
    FileChanged = record.Changed;
  } catch (...) {
    Loading = switching_ = false;
    throw;
  }
  Loading = switching_ = false;
  showCaption();
  if (hadRecord) {
    // The clicked node stays; a document shown by another way is marked in the tree.
    for (std::size_t i = 0; i < TV.nodes().size(); ++i) {
      if (TV.nodes()[i].tag != std::to_string(index)) continue;
      const int selected = TV.selected();
      if (selected < 0 || TV.nodes()[static_cast<std::size_t>(selected)].tag != TV.nodes()[i].tag) {
        TV.setSelected(static_cast<int>(i));
      }
      break;
    }
  } else {
    Treefulen();  // the document left behind has just got its record
  }
  documentShown();
}

void FrmH::step(int direction) {
  const int count = WebProject.Count();
  int index = CurrentItemIndex < 0 ? (direction > 0 ? -1 : 0) : CurrentItemIndex;
  for (int tried = 0; tried < count; ++tried) {
    index = (index + direction + count) % count;
    if (isImage(WebProject.Item(static_cast<std::int16_t>(index)))) continue;
    showDocument(static_cast<std::int16_t>(index));
    return;
  }
}

// The documents in their order in the list; the shown one's node is selected, so the file that was just
// opened is the one that is marked.
void FrmH::Treefulen() {
  TV.setNodes(treeNodes(WebProject));
  showTabs();
  if (CurrentItemIndex < 0) return;
  const std::string shown = std::to_string(CurrentItemIndex);
  for (std::size_t i = TV.nodes().size(); i-- > 0;) {
    if (TV.nodes()[i].tag != shown) continue;
    TV.setSelected(static_cast<int>(i));
    return;
  }
}

void FrmH::showCaption() {
  showName(CurrentFilePath.empty() ? titleOf(CurrentItemIndex) : CurrentFilePath);
}

void FrmH::showName(const std::string& name) {
  shownName_ = name;
  shownChanged_ = FileChanged;
  setCaption("Zervo" + (name.empty() ? "" : " [" + name + "]") + (FileChanged ? kChangedMark : ""));
  showTabs();
}

std::string FrmH::titleOf(std::int16_t index) {
  return index >= 0 ? WebProject.Item(index).FileTitle : base::fileName(CurrentFilePath);
}

std::optional<std::int16_t> FrmH::recordOf(const std::string& path) {
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    if (base::samePath(WebProject.Item(i).filepath, path)) return i;
  }
  return std::nullopt;
}

// Into the shown document's own record. A document that has none yet gets one, if there is anything to keep.
void FrmH::parkShown() {
  if (CurrentItemIndex < 0) {
    if (T1.text().empty() && CurrentFilePath.empty()) return;
    const std::string title =
        CurrentFilePath.empty() ? untitledName(WebProject.Count(), ".HTML") : base::fileName(CurrentFilePath);
    CurrentItemIndex = appendRecord(T1.document(), CurrentFilePath, title);
  }
  Ithem& record = WebProject.Item(CurrentItemIndex);
  if (!isImage(record)) {
    record.Value = T1.document();
    record.Changed = FileChanged;
  }
  record.SStart = T1.selStart();
  record.SLenth = T1.selLength();
}

std::int16_t FrmH::appendRecord(const DocumentText& value, const std::string& path,
                                const std::string& title) {
  WebProject.AddNewIthem(value, -1, "", "");
  const auto index = static_cast<std::int16_t>(WebProject.Count() - 1);
  Ithem& record = WebProject.Item(index);
  record.FileTitle = title;
  record.filepath = path;
  record.saved = !path.empty();
  record.Changed = false;
  return index;
}

void FrmH::showNothing() {
  const LoadingBlock loading(Loading);
  CurrentItemIndex = -1;
  CurrentFilePath.clear();
  showText("", "");
  FileChanged = false;
  showCaption();
}

// An untitled document's number is its position, so that no two share a name; positions moved. Pages that
// others refer to by a name (frames) have no file yet either, and keep it.
void FrmH::nameUntitled() {
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    Ithem& record = WebProject.Item(i);
    const auto extension = untitledExtension(record.FileTitle);
    if (record.filepath.empty() && extension) record.FileTitle = untitledName(i, *extension);
  }
}

std::string_view FrmH::documentText(std::int16_t index) {
  return isShown(index) ? T1.text() : WebProject.Item(index).Value.view();
}

void FrmH::setDocumentText(std::int16_t index, std::string_view text) {
  if (isShown(index)) {
    T1.setText(text);
    return;
  }
  Ithem& record = WebProject.Item(index);
  record.Value.in(T1)->setText(text);
  record.Changed = true;
}

}  // namespace app
