#include "print/frmprintpreview.h"

#include <algorithm>
#include <cmath>

#include "app/mdlsaerto.h"
#include "print/printing.h"
#include "print/scaled_canvas.h"

namespace print {
namespace {

constexpr int kAround = 10;  // between paper and picture's edge
constexpr int kStep = 60;    // of an arrow key
constexpr int kKeyPageUp = 0x21;
constexpr int kKeyPageDown = 0x22;
// "+" and "-" of the letters' part of the keyboard and of its number pad.
constexpr int kKeyPlus = 0xBB, kKeyAdd = 0x6B, kKeyMinus = 0xBD, kKeySubtract = 0x6D;
constexpr base::Color kPaper = base::rgb(255, 255, 255);

}  // namespace

frmprintpreview::frmprintpreview(app::Workbench& bench)
    : Form("frmprintpreview", IDD_frmprintpreview),
      bench_(bench),
      settings_(readPrintSettings(bench.platform())),
      source_(shownSource(bench, false)) {
  setCaptions();
  OPwhole.choose();
  CKnumbers.setChecked(settings_.lineNumbers);
  defaultButton = &Cprint;
  cancelButton = &CEXIT;
  layOut(settings_);

  Ppage.paint = [this](ui::Canvas& canvas) { paint(canvas); };
  Ppage.keyDown = [this](int key) { return Ppage_KeyDown(key); };
  Ppage.mouseDown.connect([this](ui::Point point) { dragged_ = point.y; });
  Ppage.mouseUp.connect([this](ui::Point) { dragged_.reset(); });
  Ppage.mouseMove.connect([this](ui::Point point) { Ppage_MouseMove(point); });
  Ppage.doubleClicked.connect([this](ui::Point) { zoom(OPwhole.chosen()); });
  Cfirst.clicked.connect([this] { showPage(0); });
  Cprevious.clicked.connect([this] { showPage(page_ - 1); });
  Cnext.clicked.connect([this] { showPage(page_ + 1); });
  Clast.clicked.connect([this] { showPage(sheet_->layout().pages() - 1); });
  OPwhole.changed.connect([this] { zoom(false); });
  OPwidth.changed.connect([this] { zoom(true); });
  CKnumbers.changed.connect([this] { CKnumbers_Click(); });
  Csetup.clicked.connect([this] { Csetup_Click(); });
  Cprint.clicked.connect([this] { printShown(bench_, settings_); });
  CEXIT.clicked.connect([this] { close(); });
}

void frmprintpreview::setCaptions() {
  setCaption("ბეჭდვის წინასწარი ნახვა");
  Cfirst.setCaption("|<");
  Cprevious.setCaption("<");
  Cnext.setCaption(">");
  Clast.setCaption(">|");
  OPwhole.setCaption("&მთელი გვერდი");
  OPwidth.setCaption("გვერდის &სიგანე");
  CKnumbers.setCaption("სტრიქონის &ნომრები");
  Csetup.setCaption("&პარამეტრები...");
  Cprint.setCaption("&ბეჭდვა...");
  CEXIT.setCaption("&დახურვა");
  Cfirst.hint = "პირველი გვერდი (Home)";
  Cprevious.hint = "წინა გვერდი (PgUp)";
  Cnext.hint = "შემდეგი გვერდი (PgDn)";
  Clast.hint = "ბოლო გვერდი (End)";
  OPwhole.hint = "მინუსი (-)";
  OPwidth.hint = "პლუსი (+)";
}

// The old pages stay when the new ones cannot be made.
void frmprintpreview::layOut(const PrintSettings& settings) {
  auto made = std::make_unique<PrintSheet>(source_, settings.setup, settings.lineNumbers);
  settings_ = settings;
  sheet_ = std::move(made);
  showPage(page_);
}

void frmprintpreview::showPage(int at) {
  const int pages = sheet_->layout().pages();
  page_ = std::clamp(at, 0, pages - 1);
  scroll_ = 0;
  Cfirst.setEnabled(page_ > 0);
  Cprevious.setEnabled(page_ > 0);
  Cnext.setEnabled(page_ + 1 < pages);
  Clast.setEnabled(page_ + 1 < pages);
  const std::string place = pageOf(page_, pages);
  Lpage.setCaption(place);
  Ppage.setCaption(source_.title.empty() ? place : source_.title + ", " + place);
  Ppage.repaint();
}

frmprintpreview::View frmprintpreview::view() const {
  const ui::Size room = Ppage.size();
  const ui::Size paper = sheet_->size();
  const double across = static_cast<double>(room.width - 2 * kAround) / paper.width;
  const double down = static_cast<double>(room.height - 2 * kAround) / paper.height;
  View view{};
  view.scale = std::max(OPwidth.chosen() ? across : std::min(across, down), 0.01);
  const auto wide = static_cast<int>(std::lround(paper.width * view.scale));
  const auto high = static_cast<int>(std::lround(paper.height * view.scale));
  view.mostScroll = std::max(0, high + 2 * kAround - room.height);
  const int top =
      view.mostScroll > 0 ? kAround - std::min(scroll_, view.mostScroll) : (room.height - high) / 2;
  view.paper = {(room.width - wide) / 2, top, wide, high};
  return view;
}

void frmprintpreview::paint(ui::Canvas& canvas) {
  const View now = view();
  const ui::Size room = Ppage.size();
  canvas.fill({0, 0, room.width, room.height}, canvas.systemColor(ui::SystemColor::Shadow));
  canvas.fill(now.paper, kPaper);
  ScaledCanvas scaled(canvas, now.scale, {now.paper.left, now.paper.top});
  sheet_->paint(scaled, page_);
  if (Ppage.focused()) canvas.focusMark({2, 2, room.width - 4, room.height - 4});
}

void frmprintpreview::scroll(int by) {
  scroll_ = std::clamp(scroll_ + by, 0, view().mostScroll);
  Ppage.repaint();
}

void frmprintpreview::turn(int direction) {
  const int most = view().mostScroll;
  if (direction > 0 ? scroll_ < most : scroll_ > 0) {
    scroll(direction * Ppage.size().height * 9 / 10);
  } else if (page_ + direction >= 0 && page_ + direction < sheet_->layout().pages()) {
    showPage(page_ + direction);
    if (direction < 0) scroll(most);
  }
}

void frmprintpreview::zoom(bool toWidth) {
  (toWidth ? OPwidth : OPwhole).choose();
  scroll_ = 0;
  Ppage.repaint();
}

bool frmprintpreview::keyPressed(const ui::Shortcut& key) {
  if (key == ui::ctrl('P')) {
    Cprint.click();
    return true;
  }
  if (key.ctrl || key.alt) return false;
  switch (key.key) {
    case kKeyPageUp:
      turn(-1);
      return true;
    case kKeyPageDown:
      turn(1);
      return true;
    case ui::kKeyHome:
      showPage(0);
      return true;
    case ui::kKeyEnd:
      showPage(sheet_->layout().pages() - 1);
      return true;
    case kKeyPlus:
    case kKeyAdd:
      zoom(true);
      return true;
    case kKeyMinus:
    case kKeySubtract:
      zoom(false);
      return true;
    default:
      return false;
  }
}

bool frmprintpreview::Ppage_KeyDown(int key) {
  if (key != ui::kKeyUp && key != ui::kKeyDown) return false;
  scroll(key == ui::kKeyUp ? -kStep : kStep);
  return true;
}

void frmprintpreview::Ppage_MouseMove(ui::Point point) {
  if (!dragged_) return;
  scroll(*dragged_ - point.y);
  dragged_ = point.y;
}

void frmprintpreview::CKnumbers_Click() {
  PrintSettings changed = settings_;
  changed.lineNumbers = CKnumbers.checked();
  const bool done = ui::atGate([&] {
    layOut(changed);
    writePrintSettings(bench_.platform(), settings_);
  });
  if (!done) CKnumbers.setChecked(settings_.lineNumbers);
}

void frmprintpreview::Csetup_Click() {
  PrintSettings changed = settings_;
  if (!printerOf(bench_.platform()).pageSetup(changed.setup)) return;
  layOut(changed);
  writePrintSettings(bench_.platform(), settings_);
}

}  // namespace print
