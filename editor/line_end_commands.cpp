#include "editor/line_end_commands.h"

#include <utility>

#include "app/menus.h"
#include "base/utf8.h"
#include "resources/ids.h"

namespace editor {
namespace {

constexpr const char* kPanel = "kLineEnds";

const app::Menu kLineEndMenu{.caption = "სტრიქონის &ბოლოები",
                             .help = "სტრიქონის ბოლოების შეცვლა მთელ ტექსტში",
                             .place = {&app::kEditMenu, 5}};

}  // namespace

LineEndCommands::LineEndCommands(app::Workbench& bench) : bench_(bench) {
  const auto row = [this](base::LineEnd end, app::Command command) {
    command.place = {&kLineEndMenu};
    command.run = [this, end] { convertTo(end); };
    command.enabled = [this](const app::CommandState&) { return kinds().any(); };
    command.checked = [this, end] { return all(end); };
    command.radio = true;
    return command;
  };
  bench.addCommands({
      row(base::LineEnd::CrLf,
          {.id = mnuToCrLf, .caption = "&CR LF (Windows)", .help = "ყოველი სტრიქონი CR LF-ით მთავრდება"}),
      row(base::LineEnd::Lf,
          {.id = mnuToLf, .caption = "&LF (Unix)", .help = "ყოველი სტრიქონი LF-ით მთავრდება"}),
      row(base::LineEnd::Cr,
          {.id = mnuToCr, .caption = "C&R (ძველი Mac)", .help = "ყოველი სტრიქონი CR-ით მთავრდება"}),
  });

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
  const auto items = bench_.menuItems({mnuToCrLf, mnuToLf, mnuToCr});
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
