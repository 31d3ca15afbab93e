#include "preview/preview.h"

#include <algorithm>
#include <array>

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/address.h"
#include "base/cp1252.h"
#include "base/error.h"
#include "base/file_kind.h"
#include "base/path.h"
#include "base/text.h"
#include "base/utf8.h"
#include "preview/preview_page.h"
#include "resources/ids.h"

namespace preview {
namespace {

bool isPage(const std::string& title) {
  return base::contentOf(base::extensionOf(title)) == base::Content::Html;
}

}  // namespace

// Open documents that the browser cannot read as they are now get copies too, when the page names them.
struct Preview::Writing {
  std::string main;  // path of the shown page's copy
  PageLetters letters;
  std::vector<std::int16_t> wanted;  // documents to be copied, in the order in which they were met
};

Preview::Preview(app::Workbench& bench) : bench_(bench) {
  bench.addCommands(
      {{.id = mnuPreview,
        .icon = ui::MenuIcon::Preview,
        .caption = "გვ&ერდის გადახედვა",
        .place = {&app::kViewMenu, 6},
        .shortcut = {ui::kKeyF1 + 4, false, false, false},
        .run = [this] { mnuPreview_Click(); },
        .enabled = [this](const app::CommandState& state) { return state.hasText && showsPage(); },
        .help = "გვერდი ბრაუზერში, როგორიც ის ახლაა; დოკუმენტი არ ინახება"}});

  window_.refresh.connect([this] {
    if (showsPage()) mnuPreview_Click();
  });
  window_.browser.connect([this] { openBrowser(); });
  window_.left.connect([this] { left(); });
  window_.Wpage.failed.connect([this] {
    noEngine_ = true;
    openBrowser();
    window_.leave();
    bench_.codeView().setFocus();
    sayNoEngine();
  });
  bench.closing.connect([this] { window_.leave(); });
}

bool Preview::showsPage() {
  const std::string title = bench_.shownTitle();
  return title.empty() || isPage(title);
}

void Preview::writeCopy() {
  Writing writing{{}, PageLetters::Own, {}};
  if (bench_.commandChecked(mnuens2)) writing.letters = PageLetters::KeyboardLayout;
  if (bench_.commandChecked(mnuens0)) writing.letters = PageLetters::Russian;
  const std::int16_t shown = bench_.shownIndex();
  copy_.write(bench_.shownPath(), bench_.shownTitle(), [&](const std::string& path, const std::string& url) {
    writing.main = path;
    writing.wanted.clear();
    return textOf(writing, shown, url);
  });
  for (std::size_t i = 0; i < writing.wanted.size(); ++i) {
    const std::int16_t index = writing.wanted[i];
    const app::Ithem& record = bench_.documents().Item(index);
    const std::string folder = base::folderOf(record.filepath);
    const bool beside = record.filepath.empty() || base::samePath(folder, base::folderOf(writing.main));
    copy_.writeCompanion(PreviewCopy::companion(writing.main, index, record.FileTitle),
                         textOf(writing, index, beside ? "" : fileUrl(folder + "\\")));
  }
}

std::string Preview::textOf(Writing& writing, std::int16_t index, const std::string& folderUrl) {
  const std::string text = withAddresses(bench_.documentText(index), [&, index](std::string_view address) {
    return addressOf(writing, index, address);
  });
  // The user may have chosen the view of the shown one.
  const bool utf8 =
      index == bench_.shownIndex() ? bench_.codeView().view() == ui::TextView::Utf8 : base::readsAsUtf8(text);
  return previewPage(text, utf8 ? PageLetters::Utf8 : writing.letters, folderUrl,
                     [this](std::string_view family) { return bench_.platform().fontFile(family); });
}

// Of what an address in a document means; empty: it leads there by itself.
std::string Preview::addressOf(Writing& writing, std::int16_t from, std::string_view address) {
  const std::int16_t shown = bench_.shownIndex();
  const std::string fromPath = from == shown ? bench_.shownPath() : bench_.documents().Item(from).filepath;
  // A page without a file stands beside the project's files, or beside all open ones.
  const bool homeless = fromPath.empty();
  const std::string folder = homeless ? bench_.documents().WEBpath : base::folderOf(fromPath);
  const std::string named = base::percentDecoded(base::nameFromStored(address));
  for (std::int16_t i = 0; i < bench_.documents().Count(); ++i) {
    const app::Ithem& record = bench_.documents().Item(i);
    const bool file = !record.filepath.empty();
    const bool same =
        (file && base::equalNoCase(named, base::percentDecoded(base::addressOf(folder, record.filepath)))) ||
        ((!file || homeless) && base::equalNoCase(named, record.FileTitle));
    if (!same || !isPage(record.FileTitle)) continue;
    if (i == shown) return fileUrl(writing.main);
    if (file && !record.Changed) return homeless ? fileUrl(record.filepath) : std::string();
    if (std::find(writing.wanted.begin(), writing.wanted.end(), i) == writing.wanted.end()) {
      writing.wanted.push_back(i);
    }
    return fileUrl(PreviewCopy::companion(writing.main, i, record.FileTitle));
  }
  return {};
}

void Preview::mnuPreview_Click() {
  writeCopy();
  inBrowser_ = noEngine_ || bench_.props().PreviewInBrowser;
  if (inBrowser_) {
    window_.leave();
    openBrowser();
    if (noEngine_) sayNoEngine();
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

// Whether a browser came up nobody can tell, so the page's place is named.
void Preview::sayNoEngine() {
  bench_.setPanel("kMain", "გვერდი ბრაუზერს გადაეცა: " + copy_.path());
  if (told_) return;
  told_ = true;
  app::messageBox(
      bench_.platform(),
      "ამ კომპიუტერზე გადახედვის ფანჯარა გვერდს ვერ აჩვენებს: არ არის მისი ბრაუზერი. გვერდი ნაგულისხმევ "
      "ბრაუზერს გადაეცა; თუ ისიც არ გაიხსნა, გახსენით თავად:\r\n\r\n" +
          copy_.path(),
      "გადახედვა", app::frmBOXa::Kind::Message, ui::IconBox::Sign::Warning);
}

void Preview::left() {
  if (!inBrowser_) copy_.remove();
}

}  // namespace preview
