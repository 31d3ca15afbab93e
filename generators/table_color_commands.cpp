#include "generators/table_color_commands.h"

#include "app/menus.h"
#include "base/line_ends.h"
#include "generators/selection.h"
#include "generators/table_markup.h"
#include "resources/ids.h"

namespace generators {

TableColorCommands::TableColorCommands(app::Workbench& bench) : bench_(bench) {
  bench.addCommands({{.id = mnuTable,
                      .icon = ui::MenuIcon::Table,
                      .caption = "&ცხრილი...",
                      .place = {&app::kTagsMenu, 5},
                      .run = [this] { mnuTable_Click(); },
                      .help = "ახალი ცხრილი: ბადეზე არჩეული სვეტები და სტრიქონები"},
                     {.id = mnuTabColor,
                      .icon = ui::MenuIcon::ColorCode,
                      .caption = "ფერის კო&დი...",
                      .place = {&app::kTagsMenu, 5},
                      .shortcut = ui::ctrlShift('K'),
                      .run = [this] { mnuTabColor_Click(); },
                      .help = "ფერი ატრიბუტად, კოდად ან FONT ტეგად"}});
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
