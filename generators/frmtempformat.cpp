#include "generators/frmtempformat.h"

#include <utility>

#include "app/mdlsaerto.h"
#include "base/cp1252.h"
#include "base/error.h"
#include "base/files.h"

namespace generators {
namespace {

using ui::operator""_keyboard;

constexpr const char* kKind = "templates";
constexpr const char* kFilter = "Temp Formats(*.TFF)|*.TFF";

}  // namespace

frmtempformat::frmtempformat(app::Workbench& bench, TemplateFormats& templates, std::function<void()> changed)
    : Form("frmtempformat", IDD_frmtempformat),
      bench_(bench),
      templates_(templates),
      changed_(std::move(changed)) {
  setCaption("Temp Formats");
  List1.stretches = Tfor.stretches = Tnach.stretches = true;
  Lsaxeli.setCaption("&სახელი:");
  Lfor.setCaption("დასაწყ&ისი:");
  Lnach.setCaption("დასას&რული:");
  Cadd.setCaption("ჩა&მატება");
  Cchange.setCaption("შე&ცვლა");
  Cremove.setCaption("&წაშლა");
  Cup.setCaption("&ზემოთ");
  Cdown.setCaption("&ქვემოთ");
  Copen.setCaption("gaxsna"_keyboard);
  Csave.setCaption("Cawera"_keyboard);
  COK.setCaption("&OK");
  CEXIT.setCaption("&გამოსვლა");
  List1.hint = "ფორმატები";
  Tsaxeli.hint = "სახელი";
  Tfor.hint = "ტექსტი მონიშნულის წინ";
  Tnach.hint = "ტექსტი მონიშნულის შემდეგ";
  Tfor.readAs(bench.codeView());
  Tnach.readAs(bench.codeView());
  defaultButton = &COK;
  cancelButton = &CEXIT;

  List1.selectionChanged.connect([this] { List1_Click(); });
  Tsaxeli.changed.connect([this] { enableButtons(); });
  Cadd.clicked.connect([this] { Cadd_Click(); });
  Cchange.clicked.connect([this] { Cchange_Click(); });
  Cremove.clicked.connect([this] { Cremove_Click(); });
  Copen.clicked.connect([this] { Copen_Click(); });
  Csave.clicked.connect([this] { Csave_Click(); });
  Cup.clicked.connect([this] { move(-1); });
  Cdown.clicked.connect([this] { move(1); });
  COK.clicked.connect([this] {
    Cadd_Click();
    close();
  });
  CEXIT.clicked.connect([this] { close(); });
  showList(-1);
}

void frmtempformat::showList(int selected) {
  std::vector<ui::Text> names;
  for (const TemplateFormat& format : templates_) names.emplace_back(base::nameFromStored(format.name));
  List1.setItems(std::move(names));
  List1.setSelected(selected);
  enableButtons();
}

void frmtempformat::enableButtons() {
  const int at = List1.selected();
  const bool named = !Tsaxeli.text().empty();
  Cadd.setEnabled(named);
  COK.setEnabled(named);
  Cchange.setEnabled(named && at >= 0);
  Cremove.setEnabled(at >= 0);
  Cup.setEnabled(at > 0);
  Cdown.setEnabled(at >= 0 && at + 1 < static_cast<int>(templates_.size()));
  Csave.setEnabled(!templates_.empty());
}

void frmtempformat::List1_Click() {
  if (List1.selected() >= 0) {
    const TemplateFormat& format = templates_[static_cast<std::size_t>(List1.selected())];
    Tfor.setText(format.beginning());
    Tnach.setText(format.end());
    Tsaxeli.setText(base::nameFromStored(format.name));
  }
  enableButtons();
}

TemplateFormat frmtempformat::edited() const {
  return TemplateFormat::of(base::storedName(Tsaxeli.text()), Tfor.text(), Tnach.text());
}

// Behind the list, if a file can still hold it all.
void frmtempformat::append(const TemplateFormats& more) {
  if (templates_.size() + more.size() > kMostTemplates) {
    throw base::Error(base::ErrorNumber::InvalidCall, "ფორმატები მეტისმეტად ბევრია.");
  }
  templates_.insert(templates_.end(), more.begin(), more.end());
}

void frmtempformat::Cadd_Click() {
  append({edited()});
  showList(static_cast<int>(templates_.size()) - 1);
  changed_();
}

void frmtempformat::Cchange_Click() {
  const int at = List1.selected();
  templates_[static_cast<std::size_t>(at)] = edited();
  showList(at);
  changed_();
}

void frmtempformat::Cremove_Click() {
  const int at = List1.selected();
  templates_.erase(templates_.begin() + at);
  showList(at < static_cast<int>(templates_.size()) ? at : at - 1);
  List1_Click();
  changed_();
}

void frmtempformat::move(int by) {
  const int at = List1.selected();
  const int to = at + by;
  std::swap(templates_[static_cast<std::size_t>(at)], templates_[static_cast<std::size_t>(to)]);
  showList(to);
  changed_();
}

std::string frmtempformat::folder() const {
  return bench_.documents().WEBopened ? bench_.documents().WEBpath : std::string();
}

void frmtempformat::Copen_Click() {
  const auto paths = bench_.platform().openFiles({"gaxsna"_keyboard, kFilter, {}, false, folder(), kKind});
  if (paths.empty()) return;
  append(decodeTemplates(base::readFile(paths[0])));
  showList(-1);
  changed_();
}

void frmtempformat::Csave_Click() {
  const auto path = bench_.platform().saveFile({"Cawera"_keyboard, kFilter, {}, false, folder(), kKind});
  if (path) base::overwriteFile(*path, encodeTemplates(templates_));
}

}  // namespace generators
