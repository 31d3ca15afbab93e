// The context menu of the tree: documents are added, removed and renamed there.
#include "app/FrmH.h"
#include "app/document_tree.h"
#include "app/mdlsaerto.h"
#include "app/progress.h"
#include "base/error.h"
#include "base/files.h"
#include "base/path.h"

namespace app {

std::int16_t FrmH::documentOfNode(int node) const {
  if (node < 0) return -1;
  const std::string& tag = TV.nodes()[static_cast<std::size_t>(node)].tag;
  return static_cast<std::int16_t>(tag.empty() ? -1 : std::stoi(tag));
}

std::int16_t FrmH::selectedDocument() const {
  return documentOfNode(TV.selected());
}

// Among its like: a root lists its documents kind by kind, each in the order of the list.
bool FrmH::TV_CanDropOn(int node, int target) const {
  const std::int16_t from = documentOfNode(node);
  const std::int16_t to = documentOfNode(target);
  if (from < 0 || to < 0 || from == to) return false;
  const auto& nodes = TV.nodes();
  const auto at = [&](int i) -> const ui::TreeView::Node& { return nodes[static_cast<std::size_t>(i)]; };
  return at(node).parent == at(target).parent && at(node).icon == at(target).icon;
}

void FrmH::TV_DroppedOn(int node, int target) {
  if (TV_CanDropOn(node, target)) moveDocument(documentOfNode(node), documentOfNode(target));
}

void FrmH::TV_ContextMenu() {
  runCommand(platform_.popupMenu(menuItems({mnuwebAdd, mnuwebRename, mnuwebRemove})));
}

void FrmH::mnuwebAdd_Click() {
  ui::FileDialog dialog;
  dialog.title = "Open";
  dialog.filter = "All Files(*.*)|*.*";
  dialog.kind = "documents";
  dialog.multiple = true;
  const auto chosen = platform_.openFiles(dialog);
  if (chosen.empty()) return;
  documentSession.park();
  std::string failed;
  {
    const base::ScopedFlag busy(busy_);
    Progress progress(
        platform_, [this](const std::string& line) { setPanel("kMain", line); }, chosen.size());
    for (const std::string& path : chosen) {
      if (!progress.step(path)) break;
      addFile(path, failed);
    }
  }
  Treefulen();
  showCaption();
  if (!failed.empty()) throw base::Error(base::ErrorNumber::DeviceError, failed);
}

void FrmH::addFile(const std::string& path, std::string& failed) {
  if (documentSession.recordOf(path)) return;
  try {
    const bool picture = isPictureFile(path) && base::fileExists(path);
    const std::string text = picture ? kImageValue : base::readFile(path);
    const std::int16_t added = documentSession.append(text, path, base::fileName(path));
    if (!picture) documentSession.file(added) = base::traceOf(path, text);
    if (WebProject.WEBopened) copyIntoProject(added);
  } catch (const std::exception& error) {
    failed += base::fileName(path) + ": " + error.what() + "\r\n";
  }
}

void FrmH::mnuwebRemove_Click() {
  const std::int16_t index = selectedDocument();
  const bool member = WebProject.Item(index).IsInWEB;
  if (closeDocument(index) && member) WebProject.WEBChanged = true;
}

void FrmH::mnuwebRename_Click() {
  const std::int16_t index = selectedDocument();
  Ithem& record = WebProject.Item(index);
  const auto answer = inputBox(platform_, "ფაილის ახალი სახელი:", "File", base::fileName(record.FileTitle));
  if (!answer || *answer == base::fileName(record.FileTitle)) return;
  if (IsBadFileName(*answer)) {
    reportBadName(platform_);
    return;
  }
  if (record.filepath.empty()) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ჯერ შეინახეთ დოკუმენტი: ფაილი ჯერ არ აქვს.");
  }
  const std::string target = base::joinPath(base::folderOf(record.filepath), *answer);
  if (!documentSession.othersOf(target, index).empty() ||
      (base::fileExists(target) && !base::sameFile(target, record.filepath))) {
    throw base::Error(base::ErrorNumber::PermissionDenied, "ამ სახელის ფაილი უკვე არსებობს:\r\n" + target);
  }
  base::renameFile(record.filepath, target);
  record.filepath = target;
  record.FileTitle = base::joinPath(base::folderOf(record.FileTitle), *answer);
  if (record.IsInWEB) WebProject.WEBChanged = true;
  if (index == CurrentItemIndex) {
    CurrentFilePath = target;
    followName();
  }
  Treefulen();
  showCaption();
}

}  // namespace app
