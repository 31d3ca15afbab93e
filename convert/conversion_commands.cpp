#include "convert/conversion_commands.h"

#include "app/menus.h"
#include "resources/ids.h"

namespace convert {
namespace {

using namespace ui::literals;

enum class Takes {
  WholeText,
  WholeTextWithHourglass,
  Selection,
  SelectionToClipboard,
  SelectionToClipboardAsUtf8
};

const app::Menu kConversionMenu{.caption = "ÊÏÍÅÄÒÔÉÒÄÁÉÓ ×ÖÍØÝÉÄÁÉ"_legacy,
                                .help = "მთელი ტექსტის გადაყვანა კოდებსა და ბაიტებს შორის",
                                .place = {&app::kEditMenu, 3, 1}};

struct Row {
  app::Command command;
  Takes takes;
  const Replacement Conversions::*by = nullptr;  // none: the text as it is
};

std::vector<Row> rows() {
  using ui::MenuIcon;
  return {
      {{.id = mnuCopy,
        .icon = MenuIcon::Copy,
        .caption = "ÊÏÐÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 2, 1},
        .shortcut = ui::ctrl('C'),
        .help = "მონიშნულის კოპირება ბუფერში"},
       Takes::SelectionToClipboard},
      {{.id = mnuUTF8,
        .icon = MenuIcon::ToUtf8,
        .caption = "UTF8 ÊÏÃÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მთელი ტექსტი: ლათინური ასოებიდან UTF-8-ში"},
       Takes::WholeText,
       &Conversions::latinToUtf8},
      {{.id = mnumtubers,
        .icon = MenuIcon::MarkedToUtf8,
        .caption = "ÌÀÒÊÉÒÄÁÖËÉÓ UTF8 ÊÏÃÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მონიშნული: ლათინური ასოებიდან UTF-8-ში"},
       Takes::Selection,
       &Conversions::latinToUtf8},
      {{.id = mnuTut8dekod,
        .icon = MenuIcon::FromUtf8,
        .caption = "UTF8 ÃÄÊÏÃÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მთელი ტექსტი: UTF-8-დან ლათინურ ასოებში"},
       Takes::WholeText,
       &Conversions::utf8ToLatin},
      {{.id = mnuUTF8dekod,
        .icon = MenuIcon::MarkedFromUtf8,
        .caption = "ÌÀÒÊÉÒÄÁÖËÉÓ UTF8 ÃÄÊÏÃÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მონიშნული: UTF-8-დან ლათინურ ასოებში"},
       Takes::Selection,
       &Conversions::utf8ToLatin},
      {{.id = mnuUbendkopi,
        .icon = MenuIcon::Utf8Copy,
        .caption = "UTF8 ÊÏÃÉÒÄÁÀ ÃÀ ÊÏÐÉÒÄÁÀ"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მონიშნული UTF-8-ში ბუფერში; დოკუმენტი არ იცვლება"},
       Takes::SelectionToClipboardAsUtf8,
       &Conversions::latinToUtf8},
      {{.id = mnuTkod,
        .icon = MenuIcon::AsciiToIso,
        .caption = "ØÀÒÈÖËÉ            ASCII - ISO"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მთელი ტექსტი: ლათინური ასოებიდან ძველი შრიფტის კოდებში"},
       Takes::WholeText,
       &Conversions::latinToLegacy},
      {{.id = mnukod,
        .icon = MenuIcon::MarkedAsciiToIso,
        .caption = "ÌÀÒÊÉÒÄÁÖËÉÓ  ASCII-ISO"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მონიშნული: ლათინური ასოებიდან ძველი შრიფტის კოდებში"},
       Takes::Selection,
       &Conversions::latinToLegacy},
      {{.id = mnuTfonkod,
        .icon = MenuIcon::IsoToAscii,
        .caption = "ØÀÒÈÖËÉ             ISO - ASCII"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მთელი ტექსტი: ძველი შრიფტის კოდებიდან ლათინურ ასოებში"},
       Takes::WholeText,
       &Conversions::legacyToLatin},
      {{.id = mnuMfonkod,
        .icon = MenuIcon::MarkedIsoToAscii,
        .caption = "ÌÀÒÊÉÒÄÁÖËÉÓ   ISO - ASCII"_legacy,
        .place = {&app::kEditMenu, 3},
        .help = "მონიშნული: ძველი შრიფტის კოდებიდან ლათინურ ასოებში"},
       Takes::Selection,
       &Conversions::legacyToLatin},
      {{.id = mnuhinu,
        .icon = MenuIcon::RussianFromReferences,
        .caption = "ÒÖÓÖËÉ ISO-HEX  ÃÀÍ  ISO-BYN"_legacy,
        .place = {&kConversionMenu},
        .help = "რუსული: HTML-კოდებიდან Windows-1251-ის ბაიტებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::referencesToRussian},
      {{.id = mnuUinH,
        .icon = MenuIcon::RussianToReferences,
        .caption = "ÒÖÓÖËÉ ISO-BYN ÃÀÍ ISO-HEX"_legacy,
        .place = {&kConversionMenu},
        .help = "რუსული: Windows-1251-ის ბაიტებიდან HTML-კოდებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::russianToReferences},
      {{.id = mnuQHIU,
        .icon = MenuIcon::FromReferences,
        .caption = "ØÀÒÈÖËÉ ISO-HEX ÃÀÍ ISO-BYN"_legacy,
        .place = {&kConversionMenu},
        .help = "ქართული: HTML-კოდებიდან ძველი შრიფტის კოდებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::referencesToLegacy},
      {{.id = mnuQUIH,
        .icon = MenuIcon::ToReferences,
        .caption = "ØÀÒÈÖËÉ ISO-BYN ÃÀÍ ISO-HEX"_legacy,
        .place = {&kConversionMenu},
        .help = "ქართული: ძველი შრიფტის კოდებიდან HTML-კოდებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::legacyToReferences},
      {{.id = mnuQUTFIH,
        .icon = MenuIcon::Utf8ToReferences,
        .caption = "ØÀÒÈÖËÉ BYN-UTF8 ÃÀÍ HEX-UTF8"_legacy,
        .place = {&kConversionMenu},
        .help = "ქართული: UTF-8-დან HTML-კოდებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::utf8ToReferences},
      {{.id = mnuQHIUTF,
        .icon = MenuIcon::ReferencesToUtf8,
        .caption = "ØÀÒÈÖËÉ UTF8-HEX ÃÀÍ UTF8-BYN"_legacy,
        .place = {&kConversionMenu},
        .help = "ქართული: HTML-კოდებიდან UTF-8-ში"},
       Takes::WholeTextWithHourglass,
       &Conversions::referencesToUtf8},
      {{.id = mnuxuc,
        .icon = MenuIcon::Khutsuri,
        .caption = "ØÀÒÈÖËÉ áÖÝÖÒÉ ISO-BYN ÃÀÍ  UTF8-HEX"_legacy,
        .place = {&kConversionMenu},
        .help = "ქართული: ძველი შრიფტის კოდებიდან ხუცურის HTML-კოდებში"},
       Takes::WholeTextWithHourglass,
       &Conversions::legacyToKhutsuri},
  };
}

// The caret stays at its letter: what stands before it is converted by itself.
void convertWhole(ui::CodeView& view, const std::function<std::string(std::string_view)>& convert) {
  const std::string_view text = view.text();
  const std::size_t caret = convert(text.substr(0, static_cast<std::size_t>(view.selStart()))).size();
  view.setText(convert(text), static_cast<int>(caret));
}

void run(app::Workbench& bench, Takes takes, const std::function<std::string(std::string_view)>& convert) {
  ui::CodeView& view = bench.codeView();
  switch (takes) {
    case Takes::WholeText:
      convertWhole(view, convert);
      break;
    case Takes::WholeTextWithHourglass: {
      if (view.text().empty()) return;
      const ui::Hourglass hourglass(bench.platform());
      convertWhole(view, convert);
      break;
    }
    case Takes::Selection: {
      if (view.selLength() == 0) return;
      const std::string converted = convert(view.selText());
      const int start = view.selStart();
      view.step([&] { view.replaceSelection(converted); });
      view.select(start, static_cast<int>(converted.size()));
      break;
    }
    case Takes::SelectionToClipboard:
      if (view.selLength() != 0) bench.platform().setClipboard(bench.clipOf(view.selText()));
      break;
    case Takes::SelectionToClipboardAsUtf8: {
      if (view.selLength() == 0) return;
      const std::string converted = convert(view.selText());
      bench.platform().setClipboard({converted, converted, static_cast<int>(ui::TextView::Utf8)});
      break;
    }
  }
}

bool needsSelection(Takes takes) {
  return takes == Takes::Selection || takes == Takes::SelectionToClipboard ||
         takes == Takes::SelectionToClipboardAsUtf8;
}

}  // namespace

void addConversionCommands(app::Workbench& bench, const Conversions& conversions) {
  std::vector<Row> all = rows();
  std::vector<app::Command> commands;
  for (Row& row : all) {
    const auto convert = [&conversions, by = row.by](std::string_view text) {
      return by == nullptr ? std::string(text) : (conversions.*by)(text);
    };
    row.command.run = [&bench, takes = row.takes, convert] { run(bench, takes, convert); };
    row.command.enabled = needsSelection(row.takes) ? app::hasSelection : app::hasText;
    commands.push_back(std::move(row.command));
  }
  bench.addCommands(std::move(commands));
}

}  // namespace convert
