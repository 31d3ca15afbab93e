#include "desktop/preview.h"

#include <algorithm>
#include <array>

#include "app/mdlsaerto.h"
#include "app/menu_names.h"
#include "base/error.h"
#include "base/path.h"
#include "desktop/preview_page.h"
#include "resources/ids.h"

namespace desktop {

Preview::Preview(app::Workbench& bench) : bench_(bench) {
  std::vector<app::Command> rows(1);
  rows[0].id = mnuPreview;
  rows[0].name = "mnuPreview";
  rows[0].caption = "|49|გვ&ერდის გადახედვა";
  rows[0].shortcut = {ui::kKeyF1 + 4, false, false, false};
  rows[0].run = [this] { mnuPreview_Click(); };
  rows[0].enabled = [this](const app::CommandState& state) { return state.hasText && showsPage(); };
  rows[0].help = "გვერდი ბრაუზერში, როგორიც ის ახლაა; დოკუმენტი არ ინახება";
  bench.addCommands(std::move(rows));
  bench.addMenu({app::kViewMenu, {{0, {}, {}}, {mnuPreview, {}, {}}}});

  const auto guardedly = [this](auto run) { return [this, run] { app::guarded(bench_.platform(), run); }; };
  window_.refresh.connect(guardedly([this] {
    if (showsPage()) mnuPreview_Click();
  }));
  window_.browser.connect(guardedly([this] { openBrowser(); }));
  window_.left.connect([this] { left(); });
  window_.Wpage.failed.connect(guardedly([this] {
    noEngine_ = true;
    openBrowser();
    window_.leave();
    bench_.codeView().setFocus();
  }));
  bench.closing.connect([this] { window_.leave(); });
}

bool Preview::showsPage() {
  constexpr std::array<std::string_view, 5> kPages = {"HTML", "HTM", "SHTML", "XHTML", "HTT"};
  const std::string title = bench_.shownTitle();
  return title.empty() || std::find(kPages.begin(), kPages.end(), base::extensionOf(title)) != kPages.end();
}

void Preview::writeCopy() {
  PageLetters letters = PageLetters::Own;
  if (bench_.commandChecked(mnuens2)) letters = PageLetters::KeyboardLayout;
  if (bench_.commandChecked(mnuens0)) letters = PageLetters::Russian;
  const std::string text(bench_.codeView().text());
  copy_.write(bench_.shownPath(), bench_.shownTitle(), [&](const std::string& folderUrl) {
    return previewPage(text, letters, folderUrl,
                       [this](std::string_view family) { return bench_.platform().fontFile(family); });
  });
}

void Preview::mnuPreview_Click() {
  writeCopy();
  inBrowser_ = noEngine_ || bench_.props().PreviewInBrowser;
  if (inBrowser_) {
    window_.leave();
    openBrowser();
    return;
  }
  const std::string title = bench_.shownTitle();
  window_.setCaption("გადახედვა" + (title.empty() ? title : ": " + title));
  bench_.platform().showModeless(window_);
  window_.Wpage.open(copy_.path());
}

void Preview::openBrowser() {
  if (copy_.path().empty()) return;
  inBrowser_ = true;
  if (!bench_.platform().browse(copy_.path())) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ბრაუზერის გახსნა ვერ მოხერხდა.");
  }
}

void Preview::left() {
  if (!inBrowser_) copy_.remove();
}

}  // namespace desktop
