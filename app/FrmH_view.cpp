// The View menu, and the panes around the code view from run to run.
#include "app/FrmH.h"
#include "app/mdlsaerto.h"
#include "app/menu_names.h"

namespace app {
namespace {

// Registry section of the panes: their widths in 1/96 inch, and "0" for a hidden one.
constexpr const char* kSection = "panes";

}  // namespace

void FrmH::addViewCommands() {
  const auto always = CommandRule();
  const auto several = [](const CommandState& state) { return state.documents > 1; };
  addCommands({
      {mnuWordWrap,
       "mnuWordWrap",
       "|45|სტრიქონების &გადატანა",
       {},
       [this] {
         Props.WordWrap = !Props.WordWrap;
         T1.setWordWrap(Props.WordWrap);
         saveProps();
       },
       always,
       [this] { return Props.WordWrap; },
       "გრძელი სტრიქონების გადატანა ფანჯრის სიგანეზე"},
      {mnuNextDocument,
       "mnuNextDocument",
       "|47|&შემდეგი დოკუმენტი",
       {ui::kKeyTab, true, false, false},
       [this] { step(1); },
       several,
       nullptr,
       "სიის შემდეგი დოკუმენტი"},
      {mnuPreviousDocument,
       "mnuPreviousDocument",
       "|48|&წინა დოკუმენტი",
       {ui::kKeyTab, true, true, false},
       [this] { step(-1); },
       several,
       nullptr,
       "სიის წინა დოკუმენტი"},
      {mnuTree,
       "mnuTree",
       "|89|დოკუმენტების &ხე",
       {ui::kKeyF1 + 7, false, false, false},
       [this] { togglePane(TV); },
       always,
       [this] { return TV.visible(); },
       "დოკუმენტების ხის ჩვენება ან დამალვა"},
      {mnuTagPalette,
       "mnuTagPalette",
       "|87|ტეგების პა&ლიტრა",
       {ui::kKeyF1 + 8, false, false, false},
       [this] { togglePane(Ltags); },
       always,
       [this] { return Ltags.visible(); },
       "ტეგების პალიტრის ჩვენება ან დამალვა"},
  });
  addMenu({kViewMenu,
           {{mnuWordWrap, {}, {}},
            {mnuTree, {}, {}},
            {mnuTagPalette, {}, {}},
            {0, {}, {}},
            {mnuNextDocument, {}, {}},
            {mnuPreviousDocument, {}, {}}}});
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
  if (platform_.registryValue(kSection, "tree") == "0") togglePane(TV);
  if (platform_.registryValue(kSection, "palette") == "0") togglePane(Ltags);
}

void FrmH::keepPanes() {
  const ui::PaneWidths widths = window->paneWidths();
  platform_.setRegistryValue(kSection, "left", std::to_string(widths.left));
  platform_.setRegistryValue(kSection, "right", std::to_string(widths.right));
  platform_.setRegistryValue(kSection, "tree", TV.visible() ? "1" : "0");
  platform_.setRegistryValue(kSection, "palette", Ltags.visible() ? "1" : "0");
}

}  // namespace app
