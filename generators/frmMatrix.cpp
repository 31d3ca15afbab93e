#include "generators/frmMatrix.h"

#include <algorithm>
#include <array>

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/path.h"
#include "base/text.h"
#include "base/utf8.h"

namespace generators {
namespace {

constexpr ui::Shortcut kRename{ui::kKeyF1 + 1, false, false, false};
constexpr ui::Shortcut kDelete{ui::kKeyDelete, false, false, false};
constexpr const char* kExtension = ".html";

// What an empty library can be filled with.
struct Sample {
  const char* resource;
  const char* name;
};
constexpr std::array<Sample, 2> kSamples = {
    {{"PAGE_HTML", "HTML 4.01.html"}, {"PAGE_GEORGIAN", "ქართული UTF-8.html"}}};

// The font of the code view if it shows such bytes, else the bundled one that does.
ui::Font pageFont(ui::Font font, std::string_view page) {
  const bool utf8 = base::readsAsUtf8(page);
  const bool ascii = !utf8 && base::isUtf8(page);
  if (ascii || utf8 == (font.characterSet == ui::CharacterSet::Utf8)) return font;
  font.name.clear();
  font.characterSet = utf8 ? ui::CharacterSet::Utf8 : ui::CharacterSet::Ansi;
  return font;
}

}  // namespace

frmMatrix::frmMatrix(app::Workbench& bench)
    : Form("frmMatrix", IDD_frmMatrix),
      bench_(bench),
      pages_(base::joinPath(bench.platform().programFolder(), "Pages")) {
  setTexts();
  connect();
  showList("");
}

void frmMatrix::setTexts() {
  setCaption("შენახული გვერდები");
  List1.stretches = Tpreview.stretches = true;
  Cnew.setCaption("&ახალი დოკუმენტი");
  Csave.setCaption("ნაჩვენების &შენახვა...");
  Csamples.setCaption("&ნიმუშების ჩამატება");
  Crename.setCaption("&სახელის შეცვლა...");
  Cdelete.setCaption("&წაშლა...");
  CEXIT.setCaption("&გამოსვლა");
  List1.hint = "გვერდები";
  Tpreview.hint = "გვერდის დასაწყისი";
  Cnew.hint = "ახალი დოკუმენტი არჩეული გვერდიდან";
  Csave.hint = "ნაჩვენები დოკუმენტი გვერდად შეინახება";
  Csamples.hint = "ცარიელ სიაში ჩაემატება მზა გვერდები";
  defaultButton = &Cnew;
  cancelButton = &CEXIT;
}

void frmMatrix::connect() {
  List1.selectionChanged.connect([this] { List1_Click(); });
  List1.doubleClicked.connect([this] { Cnew.click(); });
  Cnew.clicked.connect([this] { Cnew_Click(); });
  Csave.clicked.connect([this] { Csave_Click(); });
  Csamples.clicked.connect([this] { Csamples_Click(); });
  Crename.clicked.connect([this] { Crename_Click(); });
  Cdelete.clicked.connect([this] { Cdelete_Click(); });
  CEXIT.clicked.connect([this] { close(); });
}

bool frmMatrix::keyPressed(const ui::Shortcut& key) {
  if (key != kRename && key != kDelete) return false;
  (key == kRename ? Crename : Cdelete).click();
  return true;
}

// The named page is selected; the first when there is no such one.
void frmMatrix::showList(const std::string& selected) {
  const std::vector<std::string> names = pages_.names();
  const auto at = std::find(names.begin(), names.end(), selected);
  List1.setItems({names.begin(), names.end()});
  List1.setSelected(names.empty() ? -1 : at == names.end() ? 0 : static_cast<int>(at - names.begin()));
  List1_Click();
}

std::string frmMatrix::selected() const {
  return List1.selected() < 0 ? "" : List1.items()[static_cast<std::size_t>(List1.selected())].bytes;
}

void frmMatrix::List1_Click() {
  const std::string name = selected();
  Cnew.setEnabled(!name.empty());
  Crename.setEnabled(!name.empty());
  Cdelete.setEnabled(!name.empty());
  Csave.setEnabled(!bench_.codeView().text().empty());
  Csamples.setEnabled(List1.items().empty());
  std::string preview;
  std::string info = List1.items().empty() ? "გვერდები ჯერ არ არის." : "";
  if (!name.empty()) {
    try {
      const std::string bytes = pages_.read(name);
      preview = pagePreview(bytes);
      Tpreview.setFont(pageFont(bench_.codeView().currentFont(), bytes));
      info = std::to_string(bytes.size()) + " ბაიტი";
    } catch (const std::exception& error) {
      info = app::errorText(error).description;  // no box: the user may be on the way to another row
    }
  }
  Tpreview.setText(std::move(preview));
  Linfo.setCaption(base::replaceAll(info, "&", "&&"));
}

void frmMatrix::Cnew_Click() {
  const std::string name = selected();
  bench_.mnunewF_Click(documentExtension(name).c_str(), pages_.read(name));
  bench_.codeView().select(0, 0);
  close();
}

void frmMatrix::Csave_Click() {
  std::string proposal;
  const std::int16_t shown = bench_.shownIndex();
  if (shown >= 0 && bench_.documents().Item(shown).saved)
    proposal = base::fileName(bench_.documents().Item(shown).FileTitle);
  const auto name = askName("ნაჩვენების შენახვა", proposal, kExtension);
  if (!name) return;
  if (pages_.has(*name) &&
      app::messageBox(bench_.platform(), "ეს გვერდი უკვე არსებობს:\r\n" + *name + "\r\nგინდათ მისი შეცვლა?",
                      "ნაჩვენების შენახვა", app::frmBOXa::Kind::YesNo,
                      ui::IconBox::Sign::Question) != app::kAnswerYes) {
    return;
  }
  pages_.write(*name, bench_.documentText(shown));
  showList(*name);
}

void frmMatrix::Csamples_Click() {
  for (const Sample& sample : kSamples) {
    pages_.write(sample.name, bench_.platform().resource(sample.resource));
  }
  showList("");
  List1.setFocus();  // this button is off now
}

void frmMatrix::Crename_Click() {
  const std::string old = selected();
  const auto name = askName("სახელის შეცვლა", old, extensionIn(old));
  if (!name || *name == old) return;
  pages_.rename(old, *name);
  showList(*name);
}

void frmMatrix::Cdelete_Click() {
  const std::string name = selected();
  if (app::messageBox(bench_.platform(), "წაიშალოს ეს გვერდი?\r\n" + name, "წაშლა", app::frmBOXa::Kind::YesNo,
                      ui::IconBox::Sign::Question) != app::kAnswerYes) {
    return;
  }
  const auto row = static_cast<std::size_t>(List1.selected());
  pages_.remove(name);
  // The row behind it, or the last one.
  const std::size_t next = row + 1 < List1.items().size() ? row + 1 : row == 0 ? 0 : row - 1;
  showList(List1.items()[next].bytes);
  List1.setFocus();
}

std::optional<std::string> frmMatrix::askName(const char* title, std::string proposal,
                                              std::string_view extension) {
  while (true) {
    const auto typed = app::inputBox(bench_.platform(), "გვერდის სახელი:", title, std::move(proposal));
    if (!typed || typed->empty()) return std::nullopt;
    const std::string name = completedName(*typed, extension);
    if (app::IsBadFileName(name)) {
      app::reportBadName(bench_.platform());
    } else if (isReservedName(name)) {
      app::messageBox(bench_.platform(), "ფაილს ასეთი სახელი ვერ ექნება:\r\n" + name, title,
                      app::frmBOXa::Kind::Message, ui::IconBox::Sign::Critical);
    } else {
      return name;
    }
    proposal = *typed;
  }
}

void addSavedPages(app::Workbench& bench) {
  bench.addCommands({{.id = mnuMatrix,
                      .icon = ui::MenuIcon::Folder,
                      .caption = "შენა&ხული გვერდები...",
                      .place = {&app::kTagsMenu, 6},
                      .run =
                          [&bench] {
                            frmMatrix form(bench);
                            bench.platform().showModal(form);
                            bench.codeView().setFocus();
                          },
                      .help = "ახალი დოკუმენტი შენახული გვერდიდან, ან ნაჩვენების შენახვა"}});
}

}  // namespace generators
