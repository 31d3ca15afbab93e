// Replace by a list of pairs: in the selection, the document, or all open documents.
#pragma once

#include <string>
#include <vector>

#include "app/workbench.h"
#include "editor/list_replace.h"
#include "editor/pair_grid.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace editor {

class frmxascvla : public ui::Form {
 public:
  explicit frmxascvla(app::Workbench& bench);

  ui::ListView LV{*this, IDC_frmxascvla_LV};
  ui::Label Lfind{*this, IDC_frmxascvla_Lfind};
  ui::TextBox Tfind{*this, IDC_frmxascvla_Tfind, ui::TextBox::Holds::Bytes};
  ui::Label Lreplace{*this, IDC_frmxascvla_Lreplace};
  ui::TextBox Treplace{*this, IDC_frmxascvla_Treplace, ui::TextBox::Holds::Bytes};
  ui::Button Cadd{*this, IDC_frmxascvla_Cadd};
  ui::Button Cchange{*this, IDC_frmxascvla_Cchange};
  ui::Button Cremove{*this, IDC_frmxascvla_Cremove};
  ui::Button Cup{*this, IDC_frmxascvla_Cup};
  ui::Button Cdown{*this, IDC_frmxascvla_Cdown};
  ui::Button Cload{*this, IDC_frmxascvla_Cload};
  ui::Button Csave{*this, IDC_frmxascvla_Csave};
  ui::CheckBox CKcase{*this, IDC_frmxascvla_CKcase};
  ui::CheckBox CKword{*this, IDC_frmxascvla_CKword};
  ui::OptionButton OPselection{*this, IDC_frmxascvla_OPselection, 1};
  ui::OptionButton OPdocument{*this, IDC_frmxascvla_OPdocument, 1};
  ui::OptionButton OPall{*this, IDC_frmxascvla_OPall, 1};
  ui::Label Lresult{*this, IDC_frmxascvla_Lresult};
  ui::Button COK{*this, IDC_frmxascvla_COK};
  ui::Button CEXIT{*this, IDC_frmxascvla_CEXIT};

  // Shows the window with the pairs of its last time.
  void openWindow();

 private:
  void Cload_Click();
  void Csave_Click();
  void COK_Click();
  void replaceSelection(std::vector<int>& counts);
  void replaceDocument(std::vector<int>& counts);
  void replaceAll(std::vector<int>& counts);
  std::string replaced(const std::string& text, base::LineEnd lineEnd, std::vector<int>& counts) const;
  void showCounts(const std::vector<int>& counts);
  std::vector<ReplacePair> pairs() const;
  void setPairs(const std::vector<ReplacePair>& pairs);

  app::Workbench& bench_;
  PairGrid grid_{LV, Tfind, Treplace, Cadd, Cchange, Cremove, Cup, Cdown};
};

}  // namespace editor
