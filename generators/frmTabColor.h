// A small picker in two modes: the size of a new table, dragged over a grid, or a colour from a palette.
#pragma once

#include <optional>
#include <string>

#include "base/color.h"
#include "generators/table_markup.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/picture.h"
#include "ui/platform/platform.h"

namespace generators {

class frmTabColor : public ui::Form {
 public:
  enum class Mode { Table, Color };
  // The two have windows of their own.
  frmTabColor(ui::Platform& platform, Mode mode);

  // Shows the form beside the pointer; the answer is for tableMarkup(), empty when closed without a choice.
  static std::string tabload(ui::Platform& platform);
  // The same for colours. What is chosen, its text and the form of it are kept in `choice` for the next time.
  enum class As { FontColor, Color, BgColor, Bare };
  struct Choice {
    base::Color color = base::rgb(255, 0, 0);
    As as = As::FontColor;
  };
  static std::string colorload(ui::Platform& platform, Choice& choice);

  ui::PictureBox PP{*this, IDC_frmTabColor_PP};
  ui::Label LBtabcount{*this, IDC_frmTabColor_LBtabcount};
  ui::OptionButton Op1_0{*this, IDC_frmTabColor_Op1_0, 1};
  ui::OptionButton Op1_1{*this, IDC_frmTabColor_Op1_1, 1};
  ui::OptionButton Op1_2{*this, IDC_frmTabColor_Op1_2, 1};
  ui::PictureBox Psample{*this, IDC_frmTabColor_Psample};
  ui::Label Lhex{*this, IDC_frmTabColor_Lhex};
  ui::TextBox Thex{*this, IDC_frmTabColor_Thex};
  ui::Button Cmore{*this, IDC_frmTabColor_Cmore};
  ui::Label Lform{*this, IDC_frmTabColor_Lform};
  ui::OptionButton OPfontcolor{*this, IDC_frmTabColor_OPfontcolor, 2};
  ui::OptionButton OPcolor{*this, IDC_frmTabColor_OPcolor, 2};
  ui::OptionButton OPbgcolor{*this, IDC_frmTabColor_OPbgcolor, 2};
  ui::OptionButton Opnotag{*this, IDC_frmTabColor_Opnotag, 2};
  ui::Button Ckolor{*this, IDC_frmTabColor_Ckolor};
  ui::Button MBklose{*this, IDC_frmTabColor_MBklose};

  void load() override { PP.setFocus(); }

  const std::string& result() const { return result_; }
  Choice choice() const { return {color_, as()}; }
  void choose(const Choice& choice);

  // Side of a cell, in 1/96 inch.
  static constexpr int kCell = 10;       // of the grid
  static constexpr int kColorCell = 13;  // of the palette
  static constexpr int kNamedGap = 4;    // above the named colours

 private:
  void setTexts();
  void connect();

  // Table
  ui::Size grid() const { return {PP.size().width / kCell, PP.size().height / kCell}; }
  void paintGrid(ui::Canvas& canvas);
  void markCells(ui::Point pointer);
  void takeCells(ui::Point pointer);
  bool gridKey(int key);
  void setMarked(ui::Size cells);
  void takeTable(int lastColumn, int lastRow);
  TableBorder border() const;

  // Colours
  void paintPalette(ui::Canvas& canvas);
  std::optional<std::size_t> colorAt(ui::Point pointer) const;
  void pointAt(ui::Point pointer);
  bool paletteKey(int key);
  void setColor(base::Color color);  // field and sample follow
  void showColor(base::Color color);
  void Thex_Change();
  void Cmore_Click();
  void Ckolor_Click();
  As as() const;
  void finish(std::string result);

  ui::Platform& platform_;
  Mode mode_;
  ui::Size marked_;  // columns and rows under the rectangle; none: hidden
  bool pressed_ = false;
  base::Color color_ = 0;
  std::string result_;
};

// The wanted text of a colour; "$" in it stands for the text that the caller wraps.
std::string colorText(base::Color color, frmTabColor::As as);

}  // namespace generators
