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
    if (!documentSession.unsaved().empty() &&
        !askWhichToSave("ginaT gaxsnil failebSi cvlilebis damaxsovreba?"_keyboard, "NEW WEB",
                        [this](const std::vector<std::int16_t>& chosen) {
                          return WebProject.WEBopened ? saveProjectWith(chosen) : saveAll(chosen);
                        })) {
      return;
    }
    WEB_Open(path);
  } else if (isPictureFile(path)) {
    if (!base::fileExists(path)) base::readFile(path);  // says why it cannot be added
    documentSession.append(kImageValue, path, base::fileName(path));
    WebProject.WEBChanged = true;
    Treefulen();
  } else {
    openText(path);
  }
}

void FrmH::openText(const std::string& path) {
  const std::string text = base::readFile(path);  // before anything changes
  const auto known = documentSession.recordOf(path);
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
  if (!CurrentFilePath.empty() &&
      (base::samePath(path, CurrentFilePath) || base::sameFile(path, CurrentFilePath))) {
    const std::string answer =
        messageBox(platform_, "es faili ukve gaxsnilia.\r\ngindaT misi axlidan gaxsna?"_keyboard, "Open",
                   frmBOXa::Kind::YesNo, ui::IconBox::Sign::Question);
    if (answer != kAnswerYes) return;
    showText(text, base::fileName(path));
    documentSession.file(-1) = base::traceOf(path, text);
    FileChanged = false;
    return;
  }
  if (known) {
    showDocument(*known);
    return;
  }

  documentSession.park();
  showText(text, base::fileName(path));
  CurrentItemIndex = documentSession.append(T1.document(), path, base::fileName(path));
  documentSession.file(-1) = base::traceOf(path, text);
  CurrentFilePath = path;
  FileChanged = false;
  showCaption();
  Treefulen();
  documentShown();
}

void FrmH::mnunewF_Click(const char* extension, const std::string& text) {
  const LoadingBlock loading(Loading);
  documentSession.park();
  const std::string title = untitledName(WebProject.Count(), extension);
  showText(text, title);
  CurrentItemIndex = documentSession.append(T1.document(), "", title);
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
  const bool shown = documentSession.isShown(index);
  const bool named = !documentSession.path(index).empty();
  if (documentSession.changed(index) && (named || !documentText(index).empty()) &&
      !askAndSave("faili Seicvala.\r\ngindaT cvlilebebis damaxsovreba?"_keyboard, "",
                  [this, index] { return SaveDocument("", index); })) {
    return false;
  }
  const LoadingBlock loading(Loading);
  if (!shown) {
    documentSession.remove(index);
  } else {
    const std::int16_t closed = CurrentItemIndex;
    if (closed >= 0) WebProject.RemoveIthem(closed);
    showNothing();
    const int next = documentSession.nearestText(closed);
    if (next >= 0) showDocument(static_cast<std::int16_t>(next));
  }
  documentSession.nameUntitled();
  showCaption();
  Treefulen();
  return true;
}

void FrmH::showDocument(std::int16_t index) {
  if (index == CurrentItemIndex) return;
  const bool hadRecord = CurrentItemIndex >= 0;
  Loading = true;
  switching_ = true;
  try {
    documentSession.park();
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
  diskDue_ = true;  // its file may have changed while it was not shown
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
  showName(CurrentFilePath.empty() ? documentSession.title(CurrentItemIndex) : CurrentFilePath);
}

void FrmH::showName(const std::string& name) {
  shownName_ = name;
  shownChanged_ = FileChanged;
  setCaption("Zervo" + (name.empty() ? "" : " [" + name + "]") + (FileChanged ? kChangedMark : ""));
  showTabs();
}

void FrmH::showNothing() {
  const LoadingBlock loading(Loading);
  CurrentItemIndex = -1;
  CurrentFilePath.clear();
  documentSession.shown.file = {};
  showText("", "");
  FileChanged = false;
  showCaption();
}

std::string_view FrmH::documentText(std::int16_t index) {
  return documentSession.text(index);
}

void FrmH::setDocumentText(std::int16_t index, std::string_view text) {
  documentSession.setText(index, text);
}

}  // namespace app
