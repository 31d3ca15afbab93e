// The frameset designer: a layout by a click, options of its frames, and new documents from them.
#pragma once

#include <string>
#include <vector>

#include "app/workbench.h"
#include "generators/frameset.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/picture.h"

namespace generators {

class frmDesign : public ui::Form {
 public:
  explicit frmDesign(app::Workbench& bench);

  ui::PictureBox PSP{*this, IDC_frmDesign_PSP};
  ui::Button TBframe{*this, IDC_frmDesign_TBframe};
  ui::Button TBbagkolor{*this, IDC_frmDesign_TBbagkolor};
  ui::Button TBimage{*this, IDC_frmDesign_TBimage};
  ui::Button TBframparams{*this, IDC_frmDesign_TBframparams};
  ui::Button TBcler{*this, IDC_frmDesign_TBcler};
  ui::PictureBox Pfram{*this, IDC_frmDesign_Pfram};
  ui::PictureBox Pfon{*this, IDC_frmDesign_Pfon};
  ui::Label PFOP{*this, IDC_frmDesign_PFOP};
  ui::Label LSTpage{*this, IDC_frmDesign_LSTpage};
  ui::TextBox TSTpage{*this, IDC_frmDesign_TSTpage};
  ui::Label Lrows{*this, IDC_frmDesign_Lrows};
  ui::TextBox Trows{*this, IDC_frmDesign_Trows};
  ui::Label Lcols{*this, IDC_frmDesign_Lcols};
  ui::TextBox Tcols{*this, IDC_frmDesign_Tcols};
  ui::CheckBox CKborder{*this, IDC_frmDesign_CKborder};
  ui::Label LTramwidth{*this, IDC_frmDesign_LTramwidth};
  ui::TextBox Tramwidth{*this, IDC_frmDesign_Tramwidth};
  ui::Label Tselfram{*this, IDC_frmDesign_Tselfram};
  ui::Label Lname{*this, IDC_frmDesign_Lname};
  ui::TextBox Tname{*this, IDC_frmDesign_Tname};
  ui::Label Lsource{*this, IDC_frmDesign_Lsource};
  ui::TextBox Tsource{*this, IDC_frmDesign_Tsource};
  ui::Button CHfile{*this, IDC_frmDesign_CHfile};
  ui::Label Lskrol{*this, IDC_frmDesign_Lskrol};
  ui::ComboBox CBskrol{*this, IDC_frmDesign_CBskrol};
  ui::CheckBox CKresice{*this, IDC_frmDesign_CKresice};
  ui::Label Limage{*this, IDC_frmDesign_Limage};
  ui::TextBox Timage{*this, IDC_frmDesign_Timage};
  ui::CheckBox CKwasercaichen{*this, IDC_frmDesign_CKwasercaichen};
  ui::Button COK{*this, IDC_frmDesign_COK};
  ui::Button CEXIT{*this, IDC_frmDesign_CEXIT};

  void load() override { PSP.setFocus(); }
  bool queryClose() override;

  const FramesetDesign& design() const { return design_; }

 private:
  void setTexts();
  void connectPictures();
  void connectFields();
  void paintLayouts(ui::Canvas& canvas);
  void paintPreview(ui::Canvas& canvas);
  void paintFrame(ui::Canvas& canvas, const ui::Rect& area, const Background& background, base::Color none,
                  const std::string& name, const std::string& source, bool selected);
  ui::Rect layoutCell(int cell) const;
  ui::Rect previewArea() const { return {0, 0, Pfram.size().width, Pfram.size().height}; }
  void PSP_Click(ui::Point point);
  bool PSP_KeyDown(int key);
  void Pfram_Click(ui::Point point);
  bool Pfram_KeyDown(int key);
  void chooseCell(int cell);
  void selectFrame(int frame);
  void showFields();
  void changed();            // a field was changed by the user
  Background& background();  // of the selected frame, else of the page
  void TBbagkolor_Click();
  void TBimage_Click();
  void TBcler_Click();
  void CHfile_Click();
  void COK_Click();
  bool checkNames();  // says what is wrong and leads there
  bool complain(const char* text, ui::TextBox& field, int frame = -1);
  void generate();
  bool isOpen(const std::string& path) const;
  std::int16_t deliver(const std::string& title, const std::string& text, bool frameset);
  std::string pathInPage(const std::string& path) const;

  app::Workbench& bench_;
  FramesetDesign design_;
  int selected_ = -1;  // frame, from 0; -1: none
  int cell_ = 0;       // of the layout picture, where the keyboard is
  bool touched_ = false;
  bool filling_ = false;
};

}  // namespace generators
