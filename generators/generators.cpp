#include "generators/generators.h"

#include "app/mdlsaerto.h"
#include "app/menus.h"
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

const app::Menu kTemplateMenu{.caption = "ფორ&მატები",
                              .icon = ui::MenuIcon::Template,
                              .help = "მონიშნულის ჩასმა საკუთარ ფორმატში",
                              .place = {&app::kTagsMenu, 6}};

}  // namespace

Generators::Generators(app::Workbench& bench) : bench_(bench), tableAndColor_(bench) {
  loadKept();
  using ui::MenuIcon;
  bench.addCommands({{.id = mnuDesign,
                      .icon = MenuIcon::Frameset,
                      .caption = "ფრეიმების &გვერდი...",
                      .place = {&app::kTagsMenu, 5},
                      .run = [this] { mnuDesign_Click(); },
                      .help = "გვერდები ფრეიმებით: განლაგება, თვისებები, ახალი დოკუმენტები"},
                     {.id = mnuCSSstile,
                      .icon = MenuIcon::Style,
                      .caption = "&CSS სტილი...",
                      .place = {&app::kTagsMenu, 5},
                      .run = [&bench] { editStyle(bench); },
                      .enabled = app::hasText,
                      .help = "კურსორთან მდგომი წესის ან STYLE ატრიბუტის შედგენა"},
                     {.id = mnutempformat,
                      .icon = MenuIcon::Template,
                      .caption = "&ფორმატების სია...",
                      .place = {&kTemplateMenu, 1},
                      .run = [this] { mnutempformat_Click(); },
                      .help = "საკუთარი ფორმატების შედგენა"}});
  addSavedPages(bench);
  addTemplateRows();
}

// A row for each template that has none yet; those of templates that were removed wait for others.
void Generators::addTemplateRows() {
  std::vector<app::Command> rows;
  for (; rows_ < templates_.size(); ++rows_) {
    rows.push_back({.id = templateCommand(rows_),
                    .place = {&kTemplateMenu, 2},
                    .run = [this, number = rows_] { applyTemplate(number); },
                    .text = [this, number = rows_]() -> ui::Text {
                      if (number >= templates_.size()) return {};
                      const std::string name = base::nameFromStored(templates_[number].name);
                      return base::replaceAll(name.empty() ? " " : name, "&", "&&");
                    },
                    .help = "ფორმატის დასაწყისი და დასასრული მონიშნულის ორივე მხარეს"});
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
    ui::atGate([&] { base::renameFile(file, file + ".bad"); });
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
