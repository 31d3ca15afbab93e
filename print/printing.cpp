#include "print/printing.h"

#include <algorithm>

#include "app/mdlsaerto.h"
#include "app/menus.h"
#include "base/error.h"
#include "print/frmprint.h"
#include "print/frmprintpreview.h"
#include "resources/ids.h"

namespace print {
namespace {

void mnuPageSetup_Click(app::Workbench& bench) {
  PrintSettings settings = readPrintSettings(bench.platform());
  if (!printerOf(bench.platform()).pageSetup(settings.setup)) return;
  writePrintSettings(bench.platform(), settings);
}

void mnuPrintPreview_Click(app::Workbench& bench) {
  frmprintpreview form(bench);
  bench.platform().showModal(form);
  bench.codeView().setFocus();
}

void mnuPrint_Click(app::Workbench& bench) {
  printShown(bench, readPrintSettings(bench.platform()));
  bench.codeView().setFocus();
}

}  // namespace

PrintSource shownSource(app::Workbench& bench, bool selection) {
  const ui::CodeView& view = bench.codeView();
  PrintSource source;
  source.text = selection ? view.selText() : view.text();
  // A byte-order mark is no letter.
  if (view.view() == ui::TextView::Utf8 && source.text.starts_with("\xEF\xBB\xBF")) source.text.erase(0, 3);
  source.title = bench.shownTitle();
  source.cell = printerOf(bench.platform()).codeCell(view.currentFont());
  if (selection) {
    // The last line may have its begin alone in the part before; that is where the selection goes on.
    const std::string before(view.text().substr(0, static_cast<std::size_t>(view.selStart())));
    const bool inside = !before.empty() && before.back() != '\n' && before.back() != '\r';
    source.firstLine = printedLines(before) + (inside ? 0 : 1);
  }
  return source;
}

ui::Printer& printerOf(ui::Platform& platform) {
  ui::Printer* const printer = platform.printer();
  if (printer == nullptr) throw base::Error(base::ErrorNumber::DeviceError, "ბეჭდვა აქ შეუძლებელია.");
  return *printer;
}

void printShown(app::Workbench& bench, const PrintSettings& settings) {
  ui::Printer& printer = printerOf(bench.platform());
  const PrintSource whole = shownSource(bench, false);
  const int pages = PrintSheet(whole, settings.setup, settings.lineNumbers).layout().pages();
  const auto choice = printer.choose({pages, bench.codeView().selLength() > 0, settings.setup});
  if (!choice) return;
  const PrintSource source = choice->selection ? shownSource(bench, true) : whole;
  // The user may have chosen another paper in the dialog.
  ui::PageSetup setup = settings.setup;
  const ui::Size paper = choice->job->sheet();
  setup.width = paper.width;
  setup.height = paper.height;
  const PrintSheet sheet(source, setup, settings.lineNumbers);
  const std::vector<int> order = printOrder(*choice, sheet.layout().pages());
  if (order.empty()) throw base::Error(base::ErrorNumber::InvalidCall, "ასეთი გვერდი არ არის.");
  frmprint form(bench.platform(), *choice->job, sheet, order, source.title.empty() ? "Zervo" : source.title);
  bench.platform().showModal(form);
}

void attachPrinting(app::Workbench& bench) {
  using ui::MenuIcon;
  bench.addCommands({{.id = mnuPageSetup,
                      .icon = MenuIcon::PageSetup,
                      .caption = "გვერდის პარა&მეტრები...",
                      .place = {&app::kFileMenu, 6},
                      .run = [&bench] { mnuPageSetup_Click(bench); },
                      .help = "ქაღალდი და ველები ბეჭდვისთვის"},
                     {.id = mnuPrintPreview,
                      .icon = MenuIcon::PrintPreview,
                      .caption = "ბეჭდვის წინას&წარი ნახვა...",
                      .place = {&app::kFileMenu, 6},
                      .run = [&bench] { mnuPrintPreview_Click(bench); },
                      .enabled = app::hasText,
                      .help = "როგორ დაიბეჭდება დოკუმენტი"},
                     {.id = mnuPrint,
                      .icon = MenuIcon::Print,
                      .caption = "ბეჭდ&ვა...",
                      .place = {&app::kFileMenu, 6},
                      .shortcut = ui::ctrl('P'),
                      .run = [&bench] { mnuPrint_Click(bench); },
                      .enabled = app::hasText,
                      .help = "დოკუმენტის ან მონიშნულის ბეჭდვა"}});
}

}  // namespace print
