#include "editor/line_commands.h"

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "editor/line_group.h"
#include "editor/reflow.h"
#include "editor/shown_bytes.h"
#include "resources/ids.h"

namespace editor {
namespace {

using ui::operator""_keyboard;

constexpr const char* kGroupTitle = "სტრიქონების დაყოფა";

}  // namespace

LineCommands::LineCommands(app::Workbench& bench) : bench_(bench), replace_(bench) {
  using ui::MenuIcon;
  bench.addCommands({
      {.id = mnulinesnaid,
       .icon = MenuIcon::LineGroups,
       .caption = "სტრიქონების &დაყოფა...",
       .place = {&app::kLinesMenu, 1},
       .run = [this] { mnulinesnaid_Click(); },
       .enabled = app::hasText,
       .help = "გამყოფი ყოველი რამდენიმე სტრიქონის შემდეგ"},
      {.id = mnulinelength,
       .icon = MenuIcon::LineLength,
       .caption = "სტრიქონის სი&გრძე...",
       .place = {&app::kLinesMenu, 1},
       .run = [this] { mnulinelength_Click(); },
       .enabled = app::hasText,
       .help = "სტრიქონების გადანაწილება სიგრძის მიხედვით"},
      {.id = mnuparindent,
       .icon = MenuIcon::Indent,
       .caption = "აბზაცის და&წევა...",
       .place = {&app::kLinesMenu, 1},
       .run = [this] { mnuparindent_Click(); },
       .enabled = app::hasText,
       .help = "შუალედები აბზაცის დასაწყისში"},
      {.id = mnuparzuch,
       .icon = MenuIcon::ListReplace,
       .caption = "შეცვლა &სიით...",
       .place = {&app::kLinesMenu, 2},
       .run = [this] { replace_.openWindow(); },
       .help = "რამდენიმე ტექსტის ერთდროული შეცვლა"},
  });
}

void LineCommands::mnulinesnaid_Click() {
  ui::CodeView& T1 = bench_.codeView();
  if (T1.text().empty()) return;
  const auto count = app::inputBox(bench_.platform(), "mieci xazebis raodenoba."_keyboard, kGroupTitle);
  const int every = count ? lineCount(*count) : 0;
  if (every == 0) return;
  const auto answer = app::inputBox(bench_.platform(), "mieci Tu riTi unda gaiyos xazebi."_keyboard,
                                    kGroupTitle, {}, app::Blanks::Kept);
  if (!answer || answer->empty()) return;
  const ui::Hourglass hourglass(bench_.platform());
  const std::string separator = typedBytes(T1, *answer);
  const auto grouped = groupLines(T1.text(), every, separator);
  if (!grouped) {
    app::messageBox(bench_.platform(), "xazebis raodenoba naklebia dayofis raodenobaze."_keyboard,
                    kGroupTitle);
    return;
  }
  const int start = T1.selStart();
  T1.setText(*grouped);
  T1.select(start, static_cast<int>(separator.size()));
}

int LineCommands::askNumber(const char* prompt, const char* title, int least, int most, int proposal) {
  const auto answer = app::inputBox(bench_.platform(), prompt, title, std::to_string(proposal));
  if (!answer) return 0;
  const int number = lineCount(*answer);
  if (number >= least && number <= most) return number;
  app::messageBox(bench_.platform(),
                  "რიცხვი უნდა იყოს " + std::to_string(least) + "-დან " + std::to_string(most) + "-მდე.",
                  title);
  return 0;
}

// One undoable step; the changed lines are selected, or the caret stands at the word where it stood.
template <class Change>
void LineCommands::changeLines(Change change) {
  ui::CodeView& T1 = bench_.codeView();
  const ui::Hourglass hourglass(bench_.platform());
  const std::string old(T1.text());
  const auto start = static_cast<std::size_t>(T1.selStart());
  const bool selected = T1.selLength() > 0;
  const LineRange range = linesOf(old, start, static_cast<std::size_t>(T1.selLength()));
  const std::string text = change(old, range);
  if (text == old) return;
  T1.setText(text);
  if (selected) {
    T1.select(static_cast<int>(range.start),
              static_cast<int>(text.size() - (old.size() - range.end) - range.start));
  } else {
    T1.select(static_cast<int>(samePlace(old, start, text)), 0);
  }
}

void LineCommands::mnulinelength_Click() {
  const int length = askNumber("სტრიქონის სიგრძე, 10-დან 300-მდე:", "სტრიქონის სიგრძე", kShortestLine,
                               kLongestLine, lineLength_);
  if (length == 0) return;
  lineLength_ = length;
  changeLines([=](const std::string& text, LineRange range) { return rewrap(text, range, length); });
}

void LineCommands::mnuparindent_Click() {
  const int spaces = askNumber("შუალედები აბზაცის წინ, 3-დან 20-მდე:", "აბზაცის დაწევა", kSmallestIndent,
                               kLargestIndent, indent_);
  if (spaces == 0) return;
  indent_ = spaces;
  changeLines(
      [=](const std::string& text, LineRange range) { return indentParagraphs(text, range, spaces); });
}

}  // namespace editor
