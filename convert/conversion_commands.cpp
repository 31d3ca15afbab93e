#include "convert/conversion_commands.h"

#include "app/menu_names.h"
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

struct Row {
  int id;
  const char* name;
  ui::Text caption;
  Takes takes;
  const Replacement Conversions::*by;  // none: the text as it is
  const char* help;
};

const std::vector<Row>& rows() {
  static const std::vector<Row> all = {
      {mnuCopy, "mnuCopy", "|8|ÊÏÐÉÒÄÁÀ"_legacy, Takes::SelectionToClipboard, nullptr,
       "მონიშნულის კოპირება ბუფერში"},
      {mnuUTF8, "mnuUTF8", "|19|UTF8 ÊÏÃÉÒÄÁÀ"_legacy, Takes::WholeText, &Conversions::latinToUtf8,
       "მთელი ტექსტი: ლათინური ასოებიდან UTF-8-ში"},
      {mnumtubers, "mnumtubers", "|10|ÌÀÒÊÉÒÄÁÖËÉÓ UTF8 ÊÏÃÉÒÄÁÀ"_legacy, Takes::Selection,
       &Conversions::latinToUtf8, "მონიშნული: ლათინური ასოებიდან UTF-8-ში"},
      {mnuTut8dekod, "mnuTut8dekod", "|17|UTF8 ÃÄÊÏÃÉÒÄÁÀ"_legacy, Takes::WholeText,
       &Conversions::utf8ToLatin, "მთელი ტექსტი: UTF-8-დან ლათინურ ასოებში"},
      {mnuUTF8dekod, "mnuUTF8dekod", "|16|ÌÀÒÊÉÒÄÁÖËÉÓ UTF8 ÃÄÊÏÃÉÒÄÁÀ"_legacy, Takes::Selection,
       &Conversions::utf8ToLatin, "მონიშნული: UTF-8-დან ლათინურ ასოებში"},
      {mnuUbendkopi, "mnuUbendkopi", "|11|UTF8 ÊÏÃÉÒÄÁÀ ÃÀ ÊÏÐÉÒÄÁÀ"_legacy,
       Takes::SelectionToClipboardAsUtf8, &Conversions::latinToUtf8,
       "მონიშნული UTF-8-ში ბუფერში; დოკუმენტი არ იცვლება"},
      {mnuTkod, "mnuTkod", "|15|ØÀÒÈÖËÉ            ASCII - ISO"_legacy, Takes::WholeText,
       &Conversions::latinToLegacy, "მთელი ტექსტი: ლათინური ასოებიდან ძველი შრიფტის კოდებში"},
      {mnukod, "mnukod", "|14|ÌÀÒÊÉÒÄÁÖËÉÓ  ASCII-ISO"_legacy, Takes::Selection, &Conversions::latinToLegacy,
       "მონიშნული: ლათინური ასოებიდან ძველი შრიფტის კოდებში"},
      {mnuTfonkod, "mnuTfonkod", "|20|ØÀÒÈÖËÉ             ISO - ASCII"_legacy, Takes::WholeText,
       &Conversions::legacyToLatin, "მთელი ტექსტი: ძველი შრიფტის კოდებიდან ლათინურ ასოებში"},
      {mnuMfonkod, "mnuMfonkod", "|5|ÌÀÒÊÉÒÄÁÖËÉÓ   ISO - ASCII"_legacy, Takes::Selection,
       &Conversions::legacyToLatin, "მონიშნული: ძველი შრიფტის კოდებიდან ლათინურ ასოებში"},
      {mnuhinu, "mnuhinu", "|22|ÒÖÓÖËÉ ISO-HEX  ÃÀÍ  ISO-BYN"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::referencesToRussian, "რუსული: HTML-კოდებიდან Windows-1251-ის ბაიტებში"},
      {mnuUinH, "mnuUinH", "|23|ÒÖÓÖËÉ ISO-BYN ÃÀÍ ISO-HEX"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::russianToReferences, "რუსული: Windows-1251-ის ბაიტებიდან HTML-კოდებში"},
      {mnuQHIU, "mnuQHIU", "|24|ØÀÒÈÖËÉ ISO-HEX ÃÀÍ ISO-BYN"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::referencesToLegacy, "ქართული: HTML-კოდებიდან ძველი შრიფტის კოდებში"},
      {mnuQUIH, "mnuQUIH", "|25|ØÀÒÈÖËÉ ISO-BYN ÃÀÍ ISO-HEX"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::legacyToReferences, "ქართული: ძველი შრიფტის კოდებიდან HTML-კოდებში"},
      {mnuQUTFIH, "mnuQUTFIH", "|26|ØÀÒÈÖËÉ BYN-UTF8 ÃÀÍ HEX-UTF8"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::utf8ToReferences, "ქართული: UTF-8-დან HTML-კოდებში"},
      {mnuQHIUTF, "mnuQHIUTF", "|27|ØÀÒÈÖËÉ UTF8-HEX ÃÀÍ UTF8-BYN"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::referencesToUtf8, "ქართული: HTML-კოდებიდან UTF-8-ში"},
      {mnuxuc, "mnuxuc", "|28|ØÀÒÈÖËÉ áÖÝÖÒÉ ISO-BYN ÃÀÍ  UTF8-HEX"_legacy, Takes::WholeTextWithHourglass,
       &Conversions::legacyToKhutsuri, "ქართული: ძველი შრიფტის კოდებიდან ხუცურის HTML-კოდებში"},
  };
  return all;
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
  std::vector<app::Command> commands;
  app::MenuPlan plan{app::kEditMenu, {}};
  app::MenuPlan::Line submenu{
      0, "ÊÏÍÅÄÒÔÉÒÄÁÉÓ ×ÖÍØÝÉÄÁÉ"_legacy, {}, "მთელი ტექსტის გადაყვანა კოდებსა და ბაიტებს შორის"};
  for (const Row& row : rows()) {
    const auto convert = [&conversions, by = row.by](std::string_view text) {
      return by == nullptr ? std::string(text) : (conversions.*by)(text);
    };
    app::Command command{row.id, row.name, row.caption, row.id == mnuCopy ? ui::ctrl('C') : ui::Shortcut(),
                         [&bench, takes = row.takes, convert] { run(bench, takes, convert); }};
    command.enabled = [selection = needsSelection(row.takes)](const app::CommandState& state) {
      return selection ? state.hasSelection : state.hasText;
    };
    command.help = row.help;
    commands.push_back(std::move(command));
    if (row.takes == Takes::WholeTextWithHourglass) {
      submenu.lines.push_back(row.id);
    } else {
      plan.lines.push_back({row.id, {}, {}});
    }
  }
  plan.lines.push_back(std::move(submenu));
  bench.addCommands(std::move(commands));
  bench.addMenu(plan);
}

}  // namespace convert
