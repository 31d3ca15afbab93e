// About the program: version, purpose, and the licence of its fonts.
#pragma once

#include "resources/ids.h"
#include "ui/controls.h"
#include "ui/platform/platform.h"

namespace program {

class frmabout : public ui::Form {
 public:
  explicit frmabout(ui::Platform& platform);  // must outlive the form

  ui::IconBox Picon{*this, IDC_frmabout_Picon};
  ui::Label Lname{*this, IDC_frmabout_Lname};
  ui::Label Lwhat{*this, IDC_frmabout_Lwhat};
  ui::Label Llicence{*this, IDC_frmabout_Llicence};
  ui::TextBox Tlicence{*this, IDC_frmabout_Tlicence};
  ui::Button Clink{*this, IDC_frmabout_Clink};
  ui::Button COK{*this, IDC_frmabout_COK};
};

}  // namespace program
