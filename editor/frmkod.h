// The attributes of one tag in a table.
#pragma once

#include <string>

#include "app/workbench.h"
#include "editor/pair_grid.h"
#include "markup/tag_text.h"
#include "resources/ids.h"
#include "ui/controls.h"

namespace editor {

class frmkod : public ui::Form {
 public:
  explicit frmkod(const std::string& tag);  // from "<" to ">"

  ui::Label Ltag{*this, IDC_frmkod_Ltag};
  ui::ListView LV{*this, IDC_frmkod_LV};
  ui::Label Lname{*this, IDC_frmkod_Lname};
  ui::TextBox Tname{*this, IDC_frmkod_Tname, ui::TextBox::Holds::Bytes};
  ui::Label Lvalue{*this, IDC_frmkod_Lvalue};
  ui::TextBox Tvalue{*this, IDC_frmkod_Tvalue, ui::TextBox::Holds::Bytes};
  ui::Button Cadd{*this, IDC_frmkod_Cadd};
  ui::Button Cchange{*this, IDC_frmkod_Cchange};
  ui::Button Cremove{*this, IDC_frmkod_Cremove};
  ui::Button Cup{*this, IDC_frmkod_Cup};
  ui::Button Cdown{*this, IDC_frmkod_Cdown};
  ui::Button COK{*this, IDC_frmkod_COK};
  ui::Button CEXIT{*this, IDC_frmkod_CEXIT};

  // Shows the window; the tag's new text, empty when cancelled.
  std::string ask(ui::Platform& platform);

 private:
  void COK_Click();

  markup::TagText tag_;
  PairGrid grid_{LV, Tname, Tvalue, Cadd, Cchange, Cremove, Cup, Cdown};
  std::string result_;
};

// The command: edits the tag at the caret and puts it back; says so when there is none.
void editTag(app::Workbench& bench);

}  // namespace editor
