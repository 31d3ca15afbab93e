#include "generators/generators.h"

#include "app/mdlsaerto.h"
#include "app/menu_names.h"
#include "base/cp1252.h"
#include "base/files.h"
#include "base/path.h"
#include "base/text.h"
#include "generators/frmCSSstile.h"
#include "generators/frmDesign.h"
#include "generators/frmMatrix.h"
#include "generators/frmtempformat.h"
#include "generators/selection.h"
#include "resources/ids.h"

namespace generators {
namespace {

constexpr std::size_t kFirstIds = mnuTFlistLast - mnuTFlist + 1;

int templateCommand(std::size_t number) {
  const auto id = number < kFirstIds ? mnuTFlist + number : mnuTFmore + (number - kFirstIds);
  return static_cast<int>(id);
}

}  // namespace

Generators::Generators(app::Workbench& bench) : bench_(bench), tableAndColor_(bench) {
  loadKept();
  std::vector<app::Command> rows = {{mnutempformat,
                                     "mnutempformat",
                                     "|85|&ფორმატების სია...",
                                     {},
                                     [this] { mnutempformat_Click(); },
                                     nullptr,
                                     nullptr,
                                     "საკუთარი ფორმატების შედგენა"}};
  rows.push_back({mnuDesign,
                  "mnuDesign",
                  "|59|ფრეიმების &გვერდი...",
                  {},
                  [this] { mnuDesign_Click(); },
                  nullptr,
                  nullptr,
                  "გვერდები ფრეიმებით: განლაგება, თვისებები, ახალი დოკუმენტები"});
  app::MenuPlan::Line submenu{0, "|85|ფორ&მატები", {mnutempformat, 0}, "მონიშნულის ჩასმა საკუთარ ფორმატში"};
  submenu.listed = [this] {
    std::vector<int> ids;
    for (std::size_t number = 0; number < templates_.size(); ++number) ids.push_back(templateCommand(number));
    return ids;
  };
  rows.push_back({mnuCSSstile,
                  "mnuCSSstile",
                  "|61|&CSS სტილი...",
                  {},
                  [&bench] { editStyle(bench); },
                  [](const app::CommandState& state) { return state.hasText; },
                  nullptr,
                  "კურსორთან მდგომი წესის ან STYLE ატრიბუტის შედგენა"});
  bench.addCommands(std::move(rows));
  bench.addMenu({app::kTagsMenu, {{mnuDesign, {}, {}}, {mnuCSSstile, {}, {}}, {0, {}, {}}, submenu}});
  addSavedPages(bench);
  addTemplateRows();
}

// A row for each template that has none yet; those of templates that were removed wait for others.
void Generators::addTemplateRows() {
  std::vector<app::Command> rows;
  for (; rows_ < templates_.size(); ++rows_) {
    app::Command row{
        templateCommand(rows_), "mnuTFlist", "", {}, [this, number = rows_] { applyTemplate(number); }};
    row.text = [this, number = rows_]() -> ui::Text {
      const std::string name = base::nameFromStored(templates_[number].name);
      // A name is shown as it is, even one that begins like the number of an icon.
      return "|0|" + base::replaceAll(name.empty() ? " " : name, "&", "&&");
    };
    row.help = "ფორმატის დასაწყისი და დასასრული მონიშნულის ორივე მხარეს";
    rows.push_back(std::move(row));
  }
  bench_.addCommands(std::move(rows));
}

std::string Generators::keptFile() const {
  return base::joinPath(bench_.platform().programFolder(), "formats.TFF");
}

void Generators::loadKept() {
  const std::string file = keptFile();
  if (!base::fileExists(file)) return;
  try {
    templates_ = decodeTemplates(base::readFile(file));
  } catch (const std::exception&) {
    // Kept aside, so that the next change of the list does not write over what may be mended by hand.
    app::guarded(bench_.platform(), [&] { base::renameFile(file, file + ".bad"); });
  }
}

void Generators::TFormatladen() {
  addTemplateRows();
  bench_.menuTextsChanged();
  if (templates_.empty()) {
    if (base::fileExists(keptFile())) base::removeFile(keptFile());
  } else {
    base::writeFile(keptFile(), encodeTemplates(templates_));
  }
}

void Generators::mnuDesign_Click() {
  frmDesign form(bench_);
  bench_.platform().showModal(form);
  bench_.framesetLayout = -1;
  bench_.codeView().setFocus();
}

void Generators::mnutempformat_Click() {
  frmtempformat form(bench_, templates_, [this] { TFormatladen(); });
  bench_.platform().showModal(form);
  bench_.codeView().setFocus();
}

void Generators::applyTemplate(std::size_t number) {
  if (number >= templates_.size()) return;
  wrapSelection(bench_.codeView(), templates_[number].beginning(), templates_[number].end());
}

std::unique_ptr<Generators> attach(app::Workbench& bench) {
  return std::make_unique<Generators>(bench);
}

}  // namespace generators
