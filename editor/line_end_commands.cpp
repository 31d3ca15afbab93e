#include "editor/line_end_commands.h"

#include <array>
#include <utility>

#include "app/menu_names.h"
#include "base/utf8.h"
#include "resources/ids.h"

namespace editor {
namespace {

constexpr const char* kPanel = "kLineEnds";

struct Row {
  base::LineEnd end;
  int id;
  const char* name;
  const char* caption;
  const char* help;
};
constexpr std::array<Row, 3> kRows = {{
    {base::LineEnd::CrLf, mnuToCrLf, "mnuToCrLf", "&CR LF (Windows)", "ყოველი სტრიქონი CR LF-ით მთავრდება"},
    {base::LineEnd::Lf, mnuToLf, "mnuToLf", "&LF (Unix)", "ყოველი სტრიქონი LF-ით მთავრდება"},
    {base::LineEnd::Cr, mnuToCr, "mnuToCr", "C&R (ძველი Mac)", "ყოველი სტრიქონი CR-ით მთავრდება"},
}};

}  // namespace

LineEndCommands::LineEndCommands(app::Workbench& bench) : bench_(bench) {
  std::vector<app::Command> commands;
  std::vector<int> ids;
  for (const Row& row : kRows) {
    app::Command command{row.id, row.name, row.caption, {}, [this, end = row.end] { convertTo(end); }};
    command.enabled = [this](const app::CommandState&) { return kinds().any(); };
    command.checked = [this, end = row.end] { return all(end); };
    command.help = row.help;
    command.radio = true;
    commands.push_back(std::move(command));
    ids.push_back(row.id);
  }
  bench.addCommands(std::move(commands));
  bench.addMenu({app::kEditMenu,
                 {{0, {}, {}}, {0, "სტრიქონის &ბოლოები", ids, "სტრიქონის ბოლოების შეცვლა მთელ ტექსტში"}}});

  bench.textChanged.connect([this] { stale_ = true; });
  bench.viewChanged.connect([this] { show(); });  // another document is shown, or this one has another form
  bench.pause.connect([this] { show(); });
  bench.panelClicked.connect([this](std::string_view key) {
    if (key == kPanel) showMenu();
  });
  show();
}

const base::LineEndKinds& LineEndCommands::kinds() {
  show();
  return kinds_;
}

bool LineEndCommands::all(base::LineEnd end) {
  return kinds().any() && !kinds().mixed() && kinds().leading() == end;
}

void LineEndCommands::show() {
  if (!std::exchange(stale_, false)) return;
  const std::string_view text = bench_.codeView().text();
  if (base::isUtf16(text)) {  // these bytes are halves of characters there
    kinds_ = {};
    bench_.setPanel(kPanel, {});
    return;
  }
  kinds_ = base::lineEndKindsOf(text);
  bench_.setPanel(kPanel, kinds_.mixed() ? "შერეული" : std::string(base::nameOf(kinds_.leading())));
}

void LineEndCommands::showMenu() {
  std::vector<ui::MenuItem> items;
  for (const Row& row : kRows) {
    ui::MenuItem item;
    item.caption = row.caption;
    item.command = row.id;
    item.help = row.help;
    item.enabled = kinds().any();
    item.checked = all(row.end);
    item.radio = true;
    items.push_back(std::move(item));
  }
  bench_.runCommand(bench_.platform().popupMenu(items, ui::Platform::PopupPlace::Pointer));
  bench_.codeView().setFocus();
}

// One step of undoing; caret and selection stay at their letters.
void LineEndCommands::convertTo(base::LineEnd end) {
  ui::CodeView& T1 = bench_.codeView();
  if (all(end)) return;
  const ui::Hourglass hourglass(bench_.platform());
  const std::string_view text = T1.text();
  const auto start = static_cast<std::size_t>(T1.selStart());
  const auto length = static_cast<std::size_t>(T1.selLength());
  const auto before = [&](std::size_t place) {
    return static_cast<int>(base::withLineEnds(text.substr(0, place), end).size());
  };
  const int newStart = before(start);
  const int newEnd = before(start + length);
  T1.setText(base::withLineEnds(text, end), newStart);
  if (newEnd > newStart) T1.select(newStart, newEnd - newStart);
}

}  // namespace editor
