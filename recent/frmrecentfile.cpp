#include "recent/frmrecentfile.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "app/mdlsaerto.h"
#include "base/file_kind.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "recent/recent_list.h"

namespace recent {
namespace {

using ui::operator""_keyboard;

constexpr int kOtherIcon = 8;
constexpr const char* kFilter =
    "All Files(*.*)|*.*|HTML-HTM(*.html,*.htm)|*.html;*.htm|Text(*.txt)|*.txt|WEB Proect|*.WEB";

}  // namespace

int ikonumer(const std::string& path) {
  if (path.find('.') == std::string::npos) return kOtherIcon;
  switch (base::fileKindOf(base::extensionOf(path))) {
    case base::FileKind::ActivePage:
      return 1;
    case base::FileKind::Media:
      return 2;
    case base::FileKind::Style:
      return 3;
    case base::FileKind::Picture:
      return 4;
    case base::FileKind::Page:
      return 5;
    case base::FileKind::WebProject:
      return 6;
    case base::FileKind::Script:
      return 7;
    case base::FileKind::Php:
      return 9;
    case base::FileKind::Settings:
      return 10;
    case base::FileKind::Text:
      return 11;
    case base::FileKind::Xml:
      return 12;
    case base::FileKind::Other:
      break;
  }
  return kOtherIcon;
}

frmrecentfile::frmrecentfile(app::Workbench& bench)
    : Form("frmrecentfile", IDD_frmrecentfile), bench_(bench) {
  setCaption("Recent Files");
  using enum ui::FileIcon;
  LV.icons = {{1, Server}, {2, Sound}, {3, Style}, {4, Picture},   {5, Page},  {6, Project},
              {7, Script}, {8, Other}, {9, Php},   {10, Settings}, {11, Text}, {12, Xml}};
  COK.setCaption("&Open selected file");
  Copen.setCaption("Open &new File");
  CEXIT.setCaption("&Exit");
  CKonstart.setCaption("siis Ceveneba programis startisas"_keyboard);
  CKonstart.setChecked(bench.props().ShowAtStart > 0);
  LV.hint = "ბოლო ფაილები";
  LV.stretches = true;
  LV.columns = {{"ფაილი", 110}, {"საქაღალდე", 190}};
  std::vector<ui::ListView::Item> items;
  for (const std::string& path : recentPaths(bench.platform().programFolder())) {
    ui::ListView::Item item;
    item.text = base::fileName(path);
    item.subItems = {base::folderOf(path)};
    item.icon = ikonumer(path);
    items.push_back(std::move(item));
  }
  LV.setItems(std::move(items));
  LV.setSelected(0);

  COK.clicked.connect([this] { openSelected(); });
  LV.doubleClicked.connect([this] { openSelected(); });
  Copen.clicked.connect([this] { openNew(); });
  CEXIT.clicked.connect([this] { close(); });
  LV.contextMenu.connect([this] { popup(); });
  CKonstart.changed.connect([this] {
    bench_.props().ShowAtStart = CKonstart.checked() ? 1 : 0;
    bench_.saveProps();
  });
  defaultButton = &COK;
  cancelButton = &CEXIT;
}

std::string frmrecentfile::pathOf(int row) const {
  const auto& item = LV.items()[static_cast<std::size_t>(row)];
  return base::joinPath(item.subItems[0].bytes, item.text.bytes);
}

bool frmrecentfile::keyPressed(const ui::Shortcut& key) {
  if (key != ui::Shortcut{ui::kKeyDelete, false, false, false} || LV.selected() < 0) return false;
  removeEntry();
  return true;
}

void frmrecentfile::finish(const std::string& path) {
  result_ = path;
  addRecent(bench_.platform().programFolder(), path);
  close();
}

void frmrecentfile::openSelected() {
  if (LV.selected() >= 0) finish(pathOf(LV.selected()));
}

void frmrecentfile::openNew() {
  ui::FileDialog dialog;
  dialog.title = Copen.caption();
  dialog.filter = kFilter;
  dialog.kind = "documents";
  const auto chosen = bench_.platform().openFiles(dialog);
  if (!chosen.empty()) finish(chosen.front());
}

void frmrecentfile::removeEntry() {
  const int at = LV.selected();
  if (at < 0) return;
  auto items = LV.items();
  items.erase(items.begin() + at);
  LV.setItems(std::move(items));
  LV.setSelected(std::min(at, static_cast<int>(LV.items().size()) - 1));
  std::vector<std::string> paths;
  for (int i = 0; i < static_cast<int>(LV.items().size()); ++i) paths.push_back(pathOf(i));
  writeRecent(bench_.platform().programFolder(), paths);
}

void frmrecentfile::clearList() {
  LV.setItems({});
  writeRecent(bench_.platform().programFolder(), {});
}

void frmrecentfile::openFolder() {
  if (LV.selected() < 0) return;
  const std::string folder = LV.items()[static_cast<std::size_t>(LV.selected())].subItems[0].bytes;
  if (base::folderExists(folder)) bench_.platform().startProcess("explorer.exe " + folder);
}

void frmrecentfile::popup() {
  const bool any = LV.selected() >= 0;
  const auto item = [](int command, const char* caption, bool enabled) {
    ui::MenuItem made;
    made.caption = caption;
    made.command = command;
    made.enabled = enabled;
    return made;
  };
  switch (bench_.platform().popupMenu({item(mnudelet, "&სიიდან ამოშლა", any),
                                       item(mnufoldop, "საქაღალდის &გახსნა", any),
                                       item(mnucler, "სიის გა&სუფთავება", !LV.items().empty())})) {
    case mnudelet:
      return removeEntry();
    case mnufoldop:
      return openFolder();
    case mnucler:
      return clearList();
    default:
      return;
  }
}

std::string recentopen(app::Workbench& bench) {
  frmrecentfile form(bench);
  bench.platform().showModal(form);
  return form.result();
}

}  // namespace recent
