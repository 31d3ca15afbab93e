#include "generators/frmTabColor.h"

#include <algorithm>

#include "app/mdlsaerto.h"
#include "markup/palette.h"

namespace generators {
namespace {

// 3480 by 2130 units of which 1440 make an inch.
constexpr int kTableWidth = 232;
constexpr int kTableHeight = 142;

}  // namespace

std::string colorText(base::Color color, frmTabColor::As as) {
  std::string C = app::ColorToHtml(color);
  switch (as) {
    case frmTabColor::As::BgColor:
      return "BGCOLOR=\"" + C + "\"";
    case frmTabColor::As::Color:
      return "COLOR=\"" + C + "\"";
    case frmTabColor::As::FontColor:
      return "<FONT COLOR=\"" + C + "\">$</FONT>";
    case frmTabColor::As::Bare:
      break;
  }
  return C;
}

frmTabColor::frmTabColor(ui::Platform& platform, Mode mode)
    : Form("frmTabColor", mode == Mode::Table ? IDD_frmTabColor : IDD_frmTabColor_colors),
      platform_(platform),
      mode_(mode) {
  setTexts();
  connect();
  atPointer = true;
  cancelButton = &MBklose;
  const bool table = mode == Mode::Table;
  for (ui::Control* control : {static_cast<ui::Control*>(&Op1_0), static_cast<ui::Control*>(&Op1_1),
                               static_cast<ui::Control*>(&Op1_2)}) {
    control->setVisible(table);
  }
  for (ui::Control* control : {static_cast<ui::Control*>(&Psample), static_cast<ui::Control*>(&Lhex),
                               static_cast<ui::Control*>(&Thex), static_cast<ui::Control*>(&Cmore),
                               static_cast<ui::Control*>(&Lform), static_cast<ui::Control*>(&OPfontcolor),
                               static_cast<ui::Control*>(&OPcolor), static_cast<ui::Control*>(&OPbgcolor),
                               static_cast<ui::Control*>(&Opnotag), static_cast<ui::Control*>(&Ckolor)}) {
    control->setVisible(!table);
  }
  Op1_0.choose();
  if (table) {
    width = kTableWidth;
    setHeight(kTableHeight);
    setMarked({1, 1});
  } else {
    defaultButton = &Ckolor;
    choose({});
  }
}

void frmTabColor::setTexts() {
  setCaption(mode_ == Mode::Table ? "ცხრილი" : "ფერი");
  PP.hint = mode_ == Mode::Table ? "სვეტები და სტრიქონები" : "პალიტრა";
  Op1_0.setCaption("&ჩარჩო");
  Op1_1.setCaption("&ხაზი");
  Op1_2.setCaption("&უჩარჩო");
  Op1_0.hint = "ჩვეულებრივი ჩარჩო";
  Op1_1.hint = "წვრილი შავი ხაზი";
  Op1_2.hint = "ჩარჩოს გარეშე";
  Psample.hint = "არჩეული ფერი";
  Lhex.setCaption("&კოდი ან სახელი:");
  Thex.hint = "ფერის კოდი ან სახელი";
  Cmore.setCaption("&სხვა...");
  Cmore.hint = "სისტემის ფერები";
  Lform.setCaption("რა ჩაიწეროს:");
  OPfontcolor.setCaption("&FONT ტეგი");
  OPcolor.setCaption("&COLOR");
  OPbgcolor.setCaption("&BGCOLOR");
  Opnotag.setCaption("მხო&ლოდ კოდი");
  Ckolor.setCaption("&ჩასმა");
  MBklose.setCaption("&დახურვა");
}

void frmTabColor::connect() {
  if (mode_ == Mode::Table) {
    PP.paint = [this](ui::Canvas& canvas) { paintGrid(canvas); };
    PP.keyDown = [this](int key) { return gridKey(key); };
    PP.mouseDown.connect([this](ui::Point pointer) {
      pressed_ = true;
      markCells(pointer);
    });
    PP.mouseMove.connect([this](ui::Point pointer) {
      if (pressed_) markCells(pointer);
    });
    PP.mouseUp.connect([this](ui::Point pointer) { takeCells(pointer); });
    PP.otherMouseUp.connect([this](ui::Point pointer) { takeCells(pointer); });
  } else {
    PP.paint = [this](ui::Canvas& canvas) { paintPalette(canvas); };
    PP.keyDown = [this](int key) { return paletteKey(key); };
    PP.mouseMove.connect([this](ui::Point pointer) { pointAt(pointer); });
    PP.mouseLeft.connect([this] { showColor(color_); });
    PP.mouseUp.connect([this](ui::Point pointer) {
      const auto at = colorAt(pointer);
      if (!at) return;
      setColor(markup::palette()[*at].color);
      Ckolor_Click();
    });
    Psample.paint = [this](ui::Canvas& canvas) {
      const ui::Rect all{0, 0, Psample.size().width, Psample.size().height};
      canvas.fill(all, color_);
      canvas.frame(all, canvas.systemColor(ui::SystemColor::Shadow));
    };
  }
  Thex.changed.connect([this] { Thex_Change(); });
  Cmore.clicked.connect([this] { Cmore_Click(); });
  Ckolor.clicked.connect([this] { Ckolor_Click(); });
  MBklose.clicked.connect([this] { close(); });
}

std::string frmTabColor::tabload(ui::Platform& platform) {
  frmTabColor form(platform, Mode::Table);
  platform.showModal(form);
  return form.result();
}

std::string frmTabColor::colorload(ui::Platform& platform, Choice& choice) {
  frmTabColor form(platform, Mode::Color);
  form.choose(choice);
  platform.showModal(form);
  if (!form.result().empty()) choice = form.choice();
  return form.result();
}

void frmTabColor::finish(std::string result) {
  result_ = std::move(result);
  close();
}

// Table ---------------------------------------------------------------------------------------------------

TableBorder frmTabColor::border() const {
  if (Op1_1.chosen()) return TableBorder::Line;
  return Op1_2.chosen() ? TableBorder::None : TableBorder::Border;
}

void frmTabColor::setMarked(ui::Size cells) {
  marked_ = cells;
  LBtabcount.setCaption(std::to_string(cells.width) + "/" + std::to_string(cells.height));
  PP.setCaption(LBtabcount.caption());
  PP.repaint();
}

void frmTabColor::markCells(ui::Point pointer) {
  if (pointer.x >= grid().width * kCell || pointer.y >= grid().height * kCell) return;
  if (pointer.x < 0 || pointer.y < 0) {
    setMarked({0, 0});
  } else {
    setMarked({pointer.x / kCell + 1, pointer.y / kCell + 1});
  }
}

// Also beyond the grid: who drags further asks for more.
void frmTabColor::takeCells(ui::Point pointer) {
  pressed_ = false;
  if (pointer.x >= 0 && pointer.y >= 0) takeTable(pointer.x / kCell, pointer.y / kCell);
}

void frmTabColor::takeTable(int lastColumn, int lastRow) {
  finish(tableChoice(lastColumn, lastRow, border()));
}

bool frmTabColor::gridKey(int key) {
  const ui::Size least{std::max(marked_.width, 1), std::max(marked_.height, 1)};
  switch (key) {
    case ui::kKeyLeft:
      setMarked({std::max(least.width - 1, 1), least.height});
      return true;
    case ui::kKeyRight:
      setMarked({std::min(least.width + 1, grid().width), least.height});
      return true;
    case ui::kKeyUp:
      setMarked({least.width, std::max(least.height - 1, 1)});
      return true;
    case ui::kKeyDown:
      setMarked({least.width, std::min(least.height + 1, grid().height)});
      return true;
    case ui::kKeyHome:
      setMarked({1, 1});
      return true;
    case ui::kKeyEnd:
      setMarked(grid());
      return true;
    case ui::kKeySpace:
    case ui::kKeyReturn:
      takeTable(least.width - 1, least.height - 1);
      return true;
    default:
      return false;
  }
}

void frmTabColor::paintGrid(ui::Canvas& canvas) {
  const base::Color line = canvas.systemColor(ui::SystemColor::Shadow);
  const ui::Size cells = grid();
  canvas.fill({0, 0, cells.width * kCell, cells.height * kCell}, canvas.systemColor(ui::SystemColor::Window));
  canvas.fill({0, 0, marked_.width * kCell, marked_.height * kCell},
              canvas.systemColor(ui::SystemColor::Highlight));
  for (int y = 0; y < cells.height; ++y) {
    for (int x = 0; x < cells.width; ++x) {
      canvas.frame(ui::Rect{x * kCell, y * kCell, kCell, kCell}.inside(1), line);
    }
  }
  if (PP.focused()) canvas.focusMark({0, 0, cells.width * kCell, cells.height * kCell});
}

// Colours -------------------------------------------------------------------------------------------------

namespace {

ui::Rect cellOf(std::size_t index) {
  constexpr std::size_t kFirstNamed = 216;
  const int row = static_cast<int>(index) / markup::kPaletteColumns;
  const int column = static_cast<int>(index) % markup::kPaletteColumns;
  return {column * frmTabColor::kColorCell,
          row * frmTabColor::kColorCell + (index >= kFirstNamed ? frmTabColor::kNamedGap : 0),
          frmTabColor::kColorCell, frmTabColor::kColorCell};
}

std::optional<std::size_t> indexOf(base::Color color) {
  const auto& all = markup::palette();
  // From the end: a named colour is marked where its name is.
  for (std::size_t i = all.size(); i-- > 0;) {
    if (all[i].color == color) return i;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> frmTabColor::colorAt(ui::Point pointer) const {
  for (std::size_t i = 0; i < markup::palette().size(); ++i) {
    if (cellOf(i).contains(pointer)) return i;
  }
  return std::nullopt;
}

void frmTabColor::paintPalette(ui::Canvas& canvas) {
  const base::Color line = canvas.systemColor(ui::SystemColor::Shadow);
  for (std::size_t i = 0; i < markup::palette().size(); ++i) {
    canvas.fill(cellOf(i), markup::palette()[i].color);
    canvas.frame(cellOf(i), line);
  }
  const auto chosen = indexOf(color_);
  if (!chosen) return;
  // Two frames, one of which stands out against any colour.
  const ui::Rect cell = cellOf(*chosen);
  canvas.frame(cell, base::rgb(0, 0, 0), 2);
  canvas.frame(cell.inside(2), base::rgb(255, 255, 255));
  if (PP.focused()) canvas.focusMark(cell);
}

void frmTabColor::showColor(base::Color color) {
  const std::string name = markup::colorName(color);
  LBtabcount.setCaption(app::ColorToHtml(color));
  PP.setCaption(app::ColorToHtml(color) + (name.empty() ? "" : " " + name));
}

void frmTabColor::setColor(base::Color color) {
  color_ = color;
  Thex.setText(app::ColorToHtml(color));
  Ckolor.setEnabled(true);
  showColor(color);
  PP.repaint();
  Psample.repaint();
}

void frmTabColor::choose(const Choice& choice) {
  setColor(choice.color);
  ui::OptionButton* const forms[] = {&OPfontcolor, &OPcolor, &OPbgcolor, &Opnotag};
  forms[static_cast<int>(choice.as)]->choose();
}

void frmTabColor::pointAt(ui::Point pointer) {
  const auto at = colorAt(pointer);
  showColor(at ? markup::palette()[*at].color : color_);
}

bool frmTabColor::paletteKey(int key) {
  const int last = static_cast<int>(markup::palette().size()) - 1;
  const auto chosen = indexOf(color_);
  int next = chosen ? static_cast<int>(*chosen) : 0;
  switch (key) {
    case ui::kKeyLeft:
      next -= 1;
      break;
    case ui::kKeyRight:
      next += 1;
      break;
    case ui::kKeyUp:
      next -= markup::kPaletteColumns;
      break;
    case ui::kKeyDown:
      next += markup::kPaletteColumns;
      break;
    case ui::kKeyHome:
      next = 0;
      break;
    case ui::kKeyEnd:
      next = last;
      break;
    case ui::kKeySpace:
      Ckolor_Click();
      return true;
    default:
      return false;
  }
  // A step out of the palette goes nowhere; from the last full row down there are fewer colours.
  if (next >= 0 && next <= last) setColor(markup::palette()[static_cast<std::size_t>(next)].color);
  return true;
}

void frmTabColor::Thex_Change() {
  const auto color = markup::colorFromHtml(Thex.text());
  Ckolor.setEnabled(color.has_value());
  if (!color) return;
  color_ = *color;
  showColor(color_);
  PP.repaint();
  Psample.repaint();
}

void frmTabColor::Cmore_Click() {
  if (const auto color = platform_.pickColor(color_)) setColor(*color);
}

frmTabColor::As frmTabColor::as() const {
  if (OPcolor.chosen()) return As::Color;
  if (OPbgcolor.chosen()) return As::BgColor;
  return Opnotag.chosen() ? As::Bare : As::FontColor;
}

void frmTabColor::Ckolor_Click() {
  finish(colorText(color_, as()));
}

}  // namespace generators
