// The View menu, the panes around the code view from run to run, and how a document is read.
#include <algorithm>
#include <initializer_list>
#include <utility>

#include "app/FrmH.h"
#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/file_kind.h"
#include "base/path.h"
#include "base/utf8.h"

namespace app {
namespace {

// Registry section of the panes: their widths in 1/96 inch, and "0" for a hidden one.
constexpr const char* kSection = "panes";

ui::Language languageOf(const std::string& title) {
  switch (base::contentOf(base::extensionOf(title))) {
    case base::Content::Html:
    case base::Content::ServerPage:
    case base::Content::Archive:
      return ui::Language::Html;
    case base::Content::Css:
      return ui::Language::Css;
    case base::Content::Xml:
      return ui::Language::Xml;
    case base::Content::Script:
    case base::Content::Plain:
    case base::Content::Unknown:
      break;
  }
  return ui::Language::None;
}

}  // namespace

void FrmH::addViewCommands() {
  const auto several = [](const CommandState& state) { return state.documents > 1; };
  addLookCommands();
  addCommands({
      {.id = mnuTree,
       .icon = ui::MenuIcon::Folder,
       .caption = "დოკუმენტების &ხე",
       .place = {&kViewMenu, 4},
       .shortcut = {ui::kKeyF1 + 7, false, false, false},
       .run = [this] { togglePane(TV); },
       .checked = [this] { return TV.visible(); },
       .help = "დოკუმენტების ხის ჩვენება ან დამალვა"},
      {.id = mnuTagPalette,
       .icon = ui::MenuIcon::TagPalette,
       .caption = "ტეგების პა&ლიტრა",
       .place = {&kViewMenu, 4},
       .shortcut = {ui::kKeyF1 + 8, false, false, false},
       .run = [this] { togglePane(Ltags); },
       .checked = [this] { return Ltags.visible(); },
       .help = "ტეგების პალიტრის ჩვენება ან დამალვა"},
      {.id = mnuNextPane,
       .caption = "შემდეგ &არეზე",
       .place = {&kViewMenu, 4},
       .shortcut = {ui::kKeyF1 + 5, false, false, false},
       .run = [this] { window->nextPane(); },
       .help = "კლავიატურა შემდეგ არეზე გადადის: ტექსტი, ხე, ტეგების პალიტრა, ღილაკები"},
      {.id = mnuNextDocument,
       .icon = ui::MenuIcon::NextDocument,
       .caption = "&შემდეგი დოკუმენტი",
       .place = {&kViewMenu, 5},
       .shortcut = {ui::kKeyTab, true, false, false},
       .run = [this] { step(1); },
       .enabled = several,
       .help = "სიის შემდეგი დოკუმენტი"},
      {.id = mnuPreviousDocument,
       .icon = ui::MenuIcon::PreviousDocument,
       .caption = "&წინა დოკუმენტი",
       .place = {&kViewMenu, 5},
       .shortcut = {ui::kKeyTab, true, true, false},
       .run = [this] { step(-1); },
       .enabled = several,
       .help = "სიის წინა დოკუმენტი"},
  });
}

void FrmH::togglePane(ui::Control& pane) {
  const bool visible = !pane.visible();
  if (!visible) T1.setFocus();  // the keyboard must not stay in what goes
  pane.setVisible(visible);
  if (&pane == rightPane) rightTabs->setVisible(visible);
}

void FrmH::restorePanes() {
  ui::PaneWidths widths;
  widths.left = registryNumber(platform_.registryValue(kSection, "left")).value_or(widths.left);
  widths.right = registryNumber(platform_.registryValue(kSection, "right")).value_or(widths.right);
  window->setPaneWidths(widths);
  zoomTo(registryNumber(platform_.registryValue(kSection, "zoom")).value_or(0));
  if (platform_.registryValue(kSection, "tree") == "0") togglePane(TV);
  if (platform_.registryValue(kSection, "palette") == "0") togglePane(Ltags);
}

void FrmH::keepPanes() {
  const ui::PaneWidths widths = window->paneWidths();
  platform_.setRegistryValue(kSection, "left", std::to_string(widths.left));
  platform_.setRegistryValue(kSection, "right", std::to_string(widths.right));
  platform_.setRegistryValue(kSection, "zoom", std::to_string(T1.zoom()));
  platform_.setRegistryValue(kSection, "tree", TV.visible() ? "1" : "0");
  platform_.setRegistryValue(kSection, "palette", Ltags.visible() ? "1" : "0");
}

// Into the code view. How a document is read is decided the first time, and stays with it.
void FrmH::showIn(const std::shared_ptr<ui::CodeDocument>& document, const std::string& title) {
  document->language = languageOf(title);
  T1.show(document);
  if (!std::exchange(document->viewDecided, true)) {
    T1.setView(base::readsAsUtf8(T1.text()) ? ui::TextView::Utf8 : ui::TextView::EightBit);
    nameOddEncoding();
  }
  viewChanged();
}

void FrmH::chooseView(ui::TextView view) {
  T1.document()->viewChosen = true;
  T1.setView(view);
  viewChanged();
}

void FrmH::followName() {
  const ui::Language language = languageOf(documentSession.title(CurrentItemIndex));
  if (std::exchange(T1.document()->language, language) != language) T1.languageChanged();
}

// Its bytes are shown and kept, but it can hardly be edited here: the user shall know why.
void FrmH::nameOddEncoding() {
  if (base::isUtf16(T1.text())) {
    setPanel("kMain", "ფაილი UTF-16-ითაა ჩაწერილი: ჩანს მისი ბაიტები, შენახვისას ისინი უცვლელი რჩება");
  }
}

}  // namespace app
