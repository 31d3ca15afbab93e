// Print preview: the shown document's pages as they come out of the printer.
#pragma once

#include <memory>
#include <optional>

#include "app/workbench.h"
#include "print/print_settings.h"
#include "print/print_sheet.h"
#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/picture.h"

namespace print {

class frmprintpreview : public ui::Form {
 public:
  // Throws base::Error when the document cannot be laid out on the paper that is set.
  explicit frmprintpreview(app::Workbench& bench);

  ui::PictureBox Ppage{*this, IDC_frmprintpreview_Ppage};
  ui::Label Lpage{*this, IDC_frmprintpreview_Lpage};
  ui::Button Cfirst{*this, IDC_frmprintpreview_Cfirst};
  ui::Button Cprevious{*this, IDC_frmprintpreview_Cprevious};
  ui::Button Cnext{*this, IDC_frmprintpreview_Cnext};
  ui::Button Clast{*this, IDC_frmprintpreview_Clast};
  ui::OptionButton OPwhole{*this, IDC_frmprintpreview_OPwhole, 1};
  ui::OptionButton OPwidth{*this, IDC_frmprintpreview_OPwidth, 1};
  ui::CheckBox CKnumbers{*this, IDC_frmprintpreview_CKnumbers};
  ui::Button Csetup{*this, IDC_frmprintpreview_Csetup};
  ui::Button Cprint{*this, IDC_frmprintpreview_Cprint};
  ui::Button CEXIT{*this, IDC_frmprintpreview_CEXIT};

  void load() override { Ppage.setFocus(); }
  bool keyPressed(const ui::Shortcut& key) override;

 private:
  // The sheet's place in the picture.
  struct View {
    double scale;
    ui::Rect paper;
    int mostScroll;
  };
  View view() const;
  void paint(ui::Canvas& canvas);
  void setCaptions();
  void layOut(const PrintSettings& settings);
  void showPage(int at);
  void turn(int direction);  // a screenful on or back
  void scroll(int by);
  void zoom(bool width);
  bool Ppage_KeyDown(int key);
  void Ppage_MouseMove(ui::Point point);
  void CKnumbers_Click();
  void Csetup_Click();

  app::Workbench& bench_;
  PrintSettings settings_;
  PrintSource source_;
  std::unique_ptr<PrintSheet> sheet_;
  int page_ = 0;
  int scroll_ = 0;              // of the picture, in 1/96 inch
  std::optional<int> dragged_;  // where the mouse holds the paper
};

}  // namespace print
