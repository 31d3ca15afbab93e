// The strip of tabs above the code view: one for each document that has text.
#include <utility>

#include "app/FrmH.h"
#include "app/document_tree.h"

namespace app {

// Also when nothing is known to have changed: unsaved changes come from everywhere.
void FrmH::idle() {
  if (!busy_ && std::exchange(diskDue_, false)) ui::atGate([this] { lookAtDisk(); });
  if (FileChanged != shownChanged_) showName(shownName_);
  showTabs();
  showNotice();
  refreshToolBar();
  Workbench::idle();
}

void FrmH::showTabs() {
  std::vector<ui::TabStrip::Tab> tabs;
  int selected = -1;
  tabbed_.clear();
  const auto add = [&](std::int16_t index, const std::string& title, const std::string& path, bool changed) {
    if (index == CurrentItemIndex) selected = static_cast<int>(tabs.size());
    tabs.push_back({title + (changed ? kChangedMark : ""), path.empty() ? title : path});
    tabbed_.push_back(index);
  };
  for (std::int16_t i = 0; i < WebProject.Count(); ++i) {
    const Ithem& record = WebProject.Item(i);
    if (!isImage(record)) add(i, record.FileTitle, record.filepath, documentSession.changed(i));
  }
  if (CurrentItemIndex < 0) {
    const std::string title = documentSession.title(-1);
    add(-1, title.empty() ? "ახალი" : title, CurrentFilePath, FileChanged);
  }
  TS.setTabs(std::move(tabs), selected);
}

void FrmH::TS_CloseAsked(int tab) {
  const std::int16_t index = tabbed_[static_cast<std::size_t>(tab)];
  if (index >= 0 && WebProject.Item(index).IsInWEB) {
    setPanel("kMain", "პროექტის დოკუმენტი პროექტთან ერთად იხურება");
    return;
  }
  closeDocument(index);
}

void FrmH::TS_Moved(int from, int to) {
  documentSession.park();  // a document that has no place yet gets the last one, where its tab already is
  showTabs();
  moveDocument(tabbed_[static_cast<std::size_t>(from)], tabbed_[static_cast<std::size_t>(to)]);
}

void FrmH::moveDocument(std::int16_t from, std::int16_t to) {
  documentSession.move(from, to);
  documentMoved(from, to);
  showCaption();
  Treefulen();
}

}  // namespace app
