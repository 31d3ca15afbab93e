#include "generators/table_color_commands.h"

#include "app/menu_names.h"
#include "base/line_ends.h"
#include "generators/selection.h"
#include "generators/table_markup.h"
#include "resources/ids.h"

namespace generators {

TableColorCommands::TableColorCommands(app::Workbench& bench) : bench_(bench) {
  std::vector<app::Command> rows = {
      {mnuTable,
       "mnuTable",
       "|57|&ცხრილი...",
       {},
       [this] { mnuTable_Click(); },
       nullptr,
       nullptr,
       "ახალი ცხრილი: ბადეზე არჩეული სვეტები და სტრიქონები"},
      {mnuTabColor, "mnuTabColor", "|56|ფერის კო&დი...", ui::ctrlShift('K'), [this] { mnuTabColor_Click(); },
       nullptr, nullptr, "ფერი ატრიბუტად, კოდად ან FONT ტეგად"}};
  bench.addCommands(std::move(rows));
  bench.addMenu({app::kTagsMenu, {{0, {}, {}}, {mnuTable, {}, {}}, {mnuTabColor, {}, {}}}});
  bench.addToolBar({{mnuTable, ui::ToolIcon::Table, "ცხრილი"}});
}

void TableColorCommands::mnuTable_Click() {
  ui::CodeView& T1 = bench_.codeView();
  const std::string markup = tableMarkup(frmTabColor::tabload(bench_.platform()));
  if (!markup.empty()) T1.replaceSelection(base::withLineEndsOf(T1.text(), markup));
  T1.setFocus();
}

void TableColorCommands::mnuTabColor_Click() {
  ui::CodeView& T1 = bench_.codeView();
  const std::string text = frmTabColor::colorload(bench_.platform(), choice_);
  if (!text.empty()) {
    bench_.colorChosen(choice_.color);
    const std::size_t place = text.find('$');
    if (place == std::string::npos) {
      T1.replaceSelection(text);
    } else {
      wrapSelection(T1, text.substr(0, place), text.substr(place + 1));
    }
  }
  T1.setFocus();
}

}  // namespace generators
