// "Temp Formats": the list of template formats, edited, loaded and saved.
#pragma once

#include <functional>
#include <string>

#include "app/workbench.h"
#include "generators/template_formats.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace generators {

class frmtempformat : public ui::Form {
 public:
  // Edits `templates` in place and calls `changed` after each change; both must outlive the form.
  frmtempformat(app::Workbench& bench, TemplateFormats& templates, std::function<void()> changed);

  ui::ListBox List1{*this, IDC_frmtempformat_List1};
  ui::Label Lsaxeli{*this, IDC_frmtempformat_Lsaxeli};
  ui::TextBox Tsaxeli{*this, IDC_frmtempformat_Tsaxeli};
  ui::Label Lfor{*this, IDC_frmtempformat_Lfor};
  ui::TextBox Tfor{*this, IDC_frmtempformat_Tfor, ui::TextBox::Holds::Bytes};
  ui::Label Lnach{*this, IDC_frmtempformat_Lnach};
  ui::TextBox Tnach{*this, IDC_frmtempformat_Tnach, ui::TextBox::Holds::Bytes};
  ui::Button Cadd{*this, IDC_frmtempformat_Cadd};
  ui::Button Cchange{*this, IDC_frmtempformat_Cchange};
  ui::Button Cremove{*this, IDC_frmtempformat_Cremove};
  ui::Button Cup{*this, IDC_frmtempformat_Cup};
  ui::Button Cdown{*this, IDC_frmtempformat_Cdown};
  ui::Button Copen{*this, IDC_frmtempformat_Copen};
  ui::Button Csave{*this, IDC_frmtempformat_Csave};
  ui::Button COK{*this, IDC_frmtempformat_COK};
  ui::Button CEXIT{*this, IDC_frmtempformat_CEXIT};

  void load() override {
    if (templates_.empty()) Tsaxeli.setFocus();
  }

 private:
  void List1_Click();
  void Cadd_Click();
  void Cchange_Click();
  void Cremove_Click();
  void Copen_Click();
  void Csave_Click();
  void append(const TemplateFormats& more);
  void move(int by);
  void showList(int selected);
  void enableButtons();
  TemplateFormat edited() const;
  std::string folder() const;

  app::Workbench& bench_;
  TemplateFormats& templates_;
  std::function<void()> changed_;
};

}  // namespace generators
